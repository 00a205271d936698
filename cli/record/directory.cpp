#include "record/directory.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "diagnostics.h"
#include "output.h"

namespace ovxid::cli {

namespace {

void make(const std::string& path) {
  if (mkdir(path.c_str(), 0777) != 0) {
    throw Failure(exit_status::notWritten, path, std::strerror(errno));
  }
}

}  // namespace

RecordingDirectory::RecordingDirectory(std::string path) : mPath(std::move(path)) { make(mPath); }

RecordingDirectory::~RecordingDirectory() {
  if (!mKept) {
    std::error_code error;
    std::filesystem::remove_all(mPath, error);
  }
}

void RecordingDirectory::file(const std::string& path, const std::string& content) const {
  createFile(mPath + "/" + path, content);
}

void RecordingDirectory::directory(const std::string& path) const { make(mPath + "/" + path); }

}  // namespace ovxid::cli
