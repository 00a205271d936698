#ifndef OVXID_CLI_OUTPUT_OUTPUT_H
#define OVXID_CLI_OUTPUT_OUTPUT_H

#include <string>
#include <string_view>

namespace ovxid::cli {

using SignalHandler = void (*)(int);

// Ignores SIGPIPE and SIGXFSZ, so that a closed pipe and a file that may not grow become write
// errors that can be reported. Called first.
void turnSignalsIntoErrors();

// The handlers of these that this process was started with, in force for as long as this lives.
class InheritedHandlers {
 public:
  InheritedHandlers();
  ~InheritedHandlers();
  InheritedHandlers(const InheritedHandlers&) = delete;
  InheritedHandlers& operator=(const InheritedHandlers&) = delete;
};

// Throws std::system_error with the reason that errno has, unless it succeeded.
void require(bool success);

// Whether all of the text was written; errno tells why not.
bool writeAll(int descriptor, std::string_view text);

// Throws Failure with this reason, as in errno.
[[noreturn]] void failToWrite(const std::string& what, int reason);

// Writes the text to standard error at once, so that the lines of several processes do not mix.
// When that fails, all later ones are lost as well.
void tell(std::string_view text);

// While it lives, what is told is kept in a string instead.
class KeptErrors {
 public:
  explicit KeptErrors(std::string& kept);
  ~KeptErrors();
  KeptErrors(const KeptErrors&) = delete;
  KeptErrors& operator=(const KeptErrors&) = delete;
};

// Whether people see at once on a terminal what is told.
bool isToldOnTerminal();

// Throws Failure when messages on standard error were lost.
void requireThatMessagesWereWritten();

// Writes the text to standard output at once. When its reader has gone away, the process ends by
// SIGPIPE, unless it was started with SIGPIPE ignored. Throws Failure for any other error, and when
// messages on standard error were lost.
void print(const std::string& text);

}  // namespace ovxid::cli

#endif
