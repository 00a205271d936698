#include "output/output.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <iterator>
#include <system_error>

#include "output/diagnostics.h"

namespace ovxid::cli {

namespace {

// Both end the process when it writes: a pipe without a reader, and a file of the largest size.
constexpr int signalsOfWriting[] = {SIGPIPE, SIGXFSZ};
SignalHandler inherited[std::size(signalsOfWriting)];

// Whether what was written to standard error did not arrive.
bool isErrorLost = false;

// Where it goes instead, unless it is null.
std::string* keptErrors = nullptr;

void dieOfClosedPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::raise(SIGPIPE);
}

}  // namespace

void turnSignalsIntoErrors() {
  std::transform(std::begin(signalsOfWriting), std::end(signalsOfWriting), std::begin(inherited),
                 [](int signal) { return std::signal(signal, SIG_IGN); });
}

InheritedHandlers::InheritedHandlers() {
  for (std::size_t i = 0; i < std::size(signalsOfWriting); ++i) {
    std::signal(signalsOfWriting[i], inherited[i]);
  }
}

InheritedHandlers::~InheritedHandlers() {
  for (const int signal : signalsOfWriting) {
    std::signal(signal, SIG_IGN);
  }
}

void require(bool success) {
  if (!success) {
    throw std::system_error(errno, std::generic_category());
  }
}

bool writeAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(descriptor, text.data(), text.size());
    if (count < 0) {
      return false;
    }
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

void failToWrite(const std::string& what, int reason) {
  throw Failure(exit_status::notWritten, what, std::strerror(reason));
}

KeptErrors::KeptErrors(std::string& kept) { keptErrors = &kept; }

KeptErrors::~KeptErrors() { keptErrors = nullptr; }

void tell(std::string_view text) {
  if (keptErrors != nullptr) {
    keptErrors->append(text);
    return;
  }
  isErrorLost = isErrorLost || !writeAll(STDERR_FILENO, text);
}

bool isToldOnTerminal() { return keptErrors == nullptr && isatty(STDERR_FILENO) != 0; }

void requireThatMessagesWereWritten() {
  if (isErrorLost) {
    failToWrite("standard error", EIO);
  }
}

void print(const std::string& text) {
  if (!writeAll(STDOUT_FILENO, text)) {
    const int reason = errno;
    if (reason == EPIPE && inherited[0] != SIG_IGN) {
      dieOfClosedPipe();
    }
    failToWrite("standard output", reason);
  }
  requireThatMessagesWereWritten();
}

}  // namespace ovxid::cli
