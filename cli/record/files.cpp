#include "recording/files.h"

#include <sys/utsname.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "catalogue.h"
#include "platform.h"
#include "record/records.h"
#include "record/serial_numbers.h"
#include "recording/session.h"
#include "text_file.h"

namespace ovxid::cli {

namespace {

namespace fs = std::filesystem;

// Copies files of the board. What may not be read is noted, so that it can be that there, too.
class Copier {
 public:
  explicit Copier(const RecordingDirectory& directory) : mDirectory(directory) {}

  // Paths of the board, and below the directory.
  void file(const std::string& from, const std::string& to);
  void node(const std::string& from, const std::string& to);

  const std::string& order() const { return mOrder; }
  const std::string& unreadable() const { return mUnreadable; }

 private:
  void entry(const fs::directory_entry& entry, const std::string& to);
  void directory(const std::string& from, const std::string& to);

  const RecordingDirectory& mDirectory;
  std::string mOrder;
  std::string mUnreadable;
};

std::string whatMayBeKnown(const std::string& path, const std::string& content) {
  if (path == cpuinfoPath) {
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

void Copier::directory(const std::string& from, const std::string& to) {
  mDirectory.directory(to);
  if (access(from.c_str(), R_OK | X_OK) != 0) {
    mUnreadable += "unreadable=" + recording::escaped(to) + "\n";
  }
}

void Copier::entry(const fs::directory_entry& entry, const std::string& to) {
  std::error_code error;
  if (entry.is_directory(error)) {
    directory(entry.path(), to);
  } else {
    file(entry.path(), to);
  }
}

// In the order in which the library walks over it.
void Copier::node(const std::string& from, const std::string& to) {
  std::error_code error;
  const fs::directory_entry node(from, error);
  if (!node.exists(error)) {
    return;
  }
  entry(node, to);
  constexpr auto options = fs::directory_options::follow_directory_symlink |
                           fs::directory_options::skip_permission_denied;
  for (fs::recursive_directory_iterator each(from, options, error), end; each != end;
       each.increment(error)) {
    const std::string path = each->path().lexically_relative(from);
    mOrder += recording::escaped(path) + "\n";
    entry(*each, std::string(to).append("/").append(path));
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
  copier.file(cpuinfoPath, recording::file::cpuinfo);
  copier.file(cataloguePath, recording::file::catalogue);
  if (!copier.order().empty()) {
    directory.file(recording::file::order, copier.order());
  }
  directory.file(recording::file::machine, kernel() + copier.unreadable());
}

}  // namespace ovxid::cli
