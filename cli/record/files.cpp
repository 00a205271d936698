#include "recording/files.h"

#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

#include "directory_listing.h"
#include "host/host.h"
#include "record/records.h"
#include "record/serial_numbers.h"
#include "recording/session.h"
#include "text_file.h"

namespace ovxid::cli {

namespace {

// std::filesystem on 32 bits knows no dates after 2038.
bool isDirectory(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// Copies files of the board. What may not be read is noted, and cannot be read when it is replayed,
// either.
class Copier {
 public:
  explicit Copier(const RecordingDirectory& directory) : mDirectory(directory) {}

  // Paths of the board, and below the directory.
  void file(const std::string& from, const std::string& to);
  void node(const std::string& from, const std::string& to);

  const std::string& order() const { return mOrder; }
  const std::string& unreadable() const { return mUnreadable; }

 private:
  // What is in it.
  std::vector<std::string> directory(const std::string& from, const std::string& to);

  const RecordingDirectory& mDirectory;
  std::string mOrder;
  std::string mUnreadable;
};

std::string whatMayBeKnown(const std::string& path, const std::string& content) {
  if (path == pathOf(File::cpuinfo)) {
    return withoutSerialNumbers(content);
  }
  return content;
}

void Copier::file(const std::string& from, const std::string& to) {
  const std::optional<std::string> content = contentOf(from);
  if (!content && errno == EISDIR) {
    mDirectory.directory(to);
  } else if (content) {
    mDirectory.file(to, whatMayBeKnown(from, *content));
  } else if (errno != ENOENT) {
    mUnreadable += "unreadable=" + recording::escaped(to) + "\n";
  }
}

std::vector<std::string> Copier::directory(const std::string& from, const std::string& to) {
  mDirectory.directory(to);
  std::optional<std::vector<std::string>> names;
  if (access(from.c_str(), R_OK | X_OK) == 0) {
    names = namesIn(from);
  }
  if (!names) {
    mUnreadable += "unreadable=" + recording::escaped(to) + "\n";
  }
  return names.value_or(std::vector<std::string>());
}

// In the order in which the library walks over it.
void Copier::node(const std::string& from, const std::string& to) {
  std::vector<std::string> rest(1);
  while (!rest.empty()) {
    const std::string entry = rest.back();
    rest.pop_back();
    if (!entry.empty()) {
      mOrder += recording::escaped(entry.substr(1)) + "\n";
    }
    if (!isDirectory(from + entry)) {
      file(from + entry, to + entry);
      continue;
    }
    const std::vector<std::string> names = directory(from + entry, to + entry);
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
      rest.push_back(entry + "/" + *name);
    }
  }
}

std::string kernel() {
  utsname names{};
  if (uname(&names) != 0) {
    return "unreadable=uname\n";
  }
  return "release=" + recording::escaped(static_cast<const char*>(names.release)) +
         "\nmachine=" + recording::escaped(static_cast<const char*>(names.machine)) + "\n";
}

}  // namespace

void recordFiles(const RecordingDirectory& directory) {
  Copier copier(directory);
  copier.node(std::string(nodePath), recording::file::node);
  copier.file(pathOf(File::cpuinfo), recording::file::cpuinfo);
  copier.file(pathOf(File::catalogue), recording::file::catalogue);
  if (!copier.order().empty()) {
    directory.file(recording::file::order, copier.order());
  }
  directory.file(recording::file::machine, kernel() + copier.unreadable());
}

}  // namespace ovxid::cli
