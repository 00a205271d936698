#include "replay/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "replay/failure.h"
#include "text/descriptor.h"

namespace ovxid::replay {

void makeFile(int directory, const std::string& name, std::string_view bytes) {
  constexpr mode_t everybody = 0666;
  const Descriptor file(
      openat(directory, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, everybody));
  require(file.get() >= 0, name);
  while (!bytes.empty()) {
    const ssize_t count = write(file.get(), bytes.data(), bytes.size());
    require(count >= 0, name);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

// Of devices, Linux lets every user make this one, which is none. Where devices are allowed,
// opening it would fail for another reason.
void makeClosedFile(int directory, const std::string& name) {
  constexpr mode_t everybody = 0666;
  require(mknodat(directory, name.c_str(), S_IFCHR | everybody, 0) == 0, name);
}

void makeDirectory(int directory, const std::string& name) {
  constexpr mode_t everybody = 0777;
  require(mkdirat(directory, name.c_str(), everybody) == 0, name);
}

void makeContent(int directory, const std::string& name, const recording::Content& content) {
  if (content.openError != 0) {
    makeClosedFile(directory, name);
  } else if (content.readError != 0) {
    makeDirectory(directory, name);
  } else {
    makeFile(directory, name, content.bytes);
  }
}

}  // namespace ovxid::replay
