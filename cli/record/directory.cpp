#include "record/directory.h"

#include <ftw.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "diagnostics.h"
#include "output_file.h"

namespace ovxid::cli {

namespace {

void make(const std::string& path) {
  if (mkdir(path.c_str(), 0777) != 0) {
    throw Failure(exit_status::notWritten, path, std::strerror(errno));
  }
}

constexpr int descriptorsOfWalk = 8;

int removeEntry(const char* path, const struct stat* /*status*/, int /*type*/, FTW* /*position*/) {
  return std::remove(path);
}

}  // namespace

RecordingDirectory::RecordingDirectory(std::string path) : mPath(std::move(path)) { make(mPath); }

RecordingDirectory::~RecordingDirectory() {
  if (!mKept) {
    nftw(mPath.c_str(), removeEntry, descriptorsOfWalk, FTW_DEPTH | FTW_PHYS);
  }
}

void RecordingDirectory::file(const std::string& path, const std::string& content) const {
  createFile(mPath + "/" + path, content);
}

void RecordingDirectory::directory(const std::string& path) const { make(mPath + "/" + path); }

}  // namespace ovxid::cli
