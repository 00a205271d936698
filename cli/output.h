#ifndef OVXID_CLI_OUTPUT_H
#define OVXID_CLI_OUTPUT_H

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

// Writes the text to standard output at once. When its reader has gone away, the process ends by
// SIGPIPE, unless it was started with SIGPIPE ignored. Throws Failure for any other error, and when
// messages on standard error were lost.
void print(const std::string& text);

// Makes a file of this content, which must not be there yet. Throws Failure.
void createFile(const std::string& path, std::string_view content);

// Gives the file this content, as a whole: a reader sees the old content or all of the new one.
// When it fails, which throws Failure, the old file stays and nothing else is left behind.
void replaceFile(const std::string& path, const std::string& text);

}  // namespace ovxid::cli

#endif
