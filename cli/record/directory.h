#ifndef OVXID_CLI_RECORD_DIRECTORY_H
#define OVXID_CLI_RECORD_DIRECTORY_H

#include <string>

#include "undisturbed.h"

namespace ovxid::cli {

// A new directory, which is removed again unless it is to be kept, or the user ends the process.
// Throws Failure for any error.
class RecordingDirectory {
 public:
  explicit RecordingDirectory(std::string path);
  ~RecordingDirectory();
  RecordingDirectory(const RecordingDirectory&) = delete;
  RecordingDirectory& operator=(const RecordingDirectory&) = delete;

  // Paths below it.
  void file(const std::string& path, const std::string& content) const;
  void directory(const std::string& path) const;

  void keep() { mKept = !mUndisturbed.isCalledOff(); }

 private:
  Undisturbed mUndisturbed;
  std::string mPath;
  bool mKept = false;
};

}  // namespace ovxid::cli

#endif
