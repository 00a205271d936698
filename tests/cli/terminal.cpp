#include "cli/terminal.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace {

int require(int result, const char* what) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), what);
  }
  return result;
}

std::string slavePath(int master) {
  std::array<char, 64> path{};
  require(grantpt(master), "grant a terminal");
  require(unlockpt(master), "unlock a terminal");
  require(-ptsname_r(master, path.data(), path.size()), "name a terminal");
  return path.data();
}

}  // namespace

Terminal::Terminal()
    : mMaster(require(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC), "open a terminal")),
      mPath(slavePath(mMaster)),
      mSlave(require(open(mPath.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), mPath.c_str())) {}

Terminal::~Terminal() {
  close(mSlave);
  close(mMaster);
}

std::string Terminal::shown() const {
  std::string text;
  std::array<char, 4096> part{};
  for (;;) {
    const ssize_t count = read(mMaster, part.data(), part.size());
    if (count <= 0) {
      return text;
    }
    text.append(part.data(), static_cast<std::size_t>(count));
  }
}
