#include "recording/session.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <exception>
#include <system_error>

namespace ovxid::recording {

namespace {

int require(int result, const char* what) {
  if (result < 0) {
    throw std::system_error(errno, std::generic_category(), what);
  }
  return result;
}

// A file without a name, which takes any number of bytes without a reader.
class Capture {
 public:
  // Not in the place of a stream that is closed.
  Capture() {
    const int file = require(memfd_create("ovxid", MFD_CLOEXEC), "memfd_create");
    mDescriptor = fcntl(file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(file);
    require(mDescriptor, "fcntl");
  }
  ~Capture() { close(mDescriptor); }
  Capture(const Capture&) = delete;
  Capture& operator=(const Capture&) = delete;

  // GCOVR_EXCL_START: see below
  void takeOver(int stream) const { require(dup2(mDescriptor, stream), "dup2"); }
  // GCOVR_EXCL_STOP

  std::string text() const {
    std::string text;
    std::array<char, 4096> part{};
    while (const int count = require(static_cast<int>(pread(mDescriptor, part.data(), part.size(),
                                                            static_cast<off_t>(text.size()))),
                                     "read what was written")) {
      text.append(part.data(), static_cast<std::size_t>(count));
    }
    return text;
  }

 private:
  int mDescriptor = -1;
};

int statusOf(int waited) {
  return WIFSIGNALED(waited) ? 128 + WTERMSIG(waited) : WEXITSTATUS(waited);
}

std::string escapedByte(char byte) {
  switch (byte) {
    case '\\':
      return "\\\\";
    case '\t':
      return "\\t";
    default:
      break;
  }
  if (byte >= ' ' && byte <= '~') {
    return {byte};
  }
  constexpr const char* digits = "0123456789abcdef";
  const auto value = static_cast<unsigned char>(byte);
  return {'\\', 'x', digits[value / 16], digits[value % 16]};
}

// A blank at the end of a line is seen by nobody.
std::string escapedLine(std::string_view line) {
  const bool endsInBlank = !line.empty() && line.back() == ' ';
  return escaped(line.substr(0, line.size() - (endsInBlank ? 1 : 0))) +
         (endsInBlank ? "\\x20" : "");
}

void appendLines(std::string& text, const char* mark, std::string_view lines) {
  while (!lines.empty()) {
    const auto end = lines.find('\n');
    const std::string_view line = lines.substr(0, end);
    text.append(mark).append(line.empty() ? "" : " ").append(escapedLine(line));
    // A line that nothing ends is marked, too.
    text.append(end == std::string_view::npos ? "\\\n" : "\n");
    lines.remove_prefix(end == std::string_view::npos ? lines.size() : end + 1);
  }
}

// GCOVR_EXCL_START: gcc does not write its counts when a process ends like this
// An exception must not reach those who called for the outcome.
[[noreturn]] void callAndEnd(const std::function<int()>& call, const Capture& out,
                             const Capture& err) {
  try {
    out.takeOver(STDOUT_FILENO);
    err.takeOver(STDERR_FILENO);
    const int status = call();
    _exit(status);
  } catch (...) {
    std::terminate();
  }
}
// GCOVR_EXCL_STOP

}  // namespace

Outcome outcomeOf(const std::function<int()>& call) {
  const Capture out;
  const Capture err;
  const pid_t child = require(fork(), "fork");
  if (child == 0) {              // GCOVR_EXCL_BR_LINE: see above
    callAndEnd(call, out, err);  // GCOVR_EXCL_LINE
  }
  int waited = 0;
  require(waitpid(child, &waited, 0), "waitpid");
  return {statusOf(waited), out.text(), err.text()};
}

std::string session(const std::string& command, const Outcome& outcome) {
  std::string text = "$ " + command + "\n";
  appendLines(text, "out|", outcome.out);
  appendLines(text, "err|", outcome.err);
  return text + "exit " + std::to_string(outcome.status) + "\n";
}

std::string escaped(std::string_view text) {
  std::string result;
  for (const char byte : text) {
    result += escapedByte(byte);
  }
  return result;
}

}  // namespace ovxid::recording
