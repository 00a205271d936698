#ifndef OVXID_CLI_OUTPUT_UNFINISHED_FILE_H
#define OVXID_CLI_OUTPUT_UNFINISHED_FILE_H

#include <sys/types.h>

#include <string>
#include <string_view>

#include "text/descriptor.h"

namespace ovxid::cli {

// A file beside the one that it is to replace, removed unless it did. Each member throws
// std::system_error. The directory is held by the caller for as long as this lives.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(int directory);
  ~UnfinishedFile();
  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  // When this returns, the content is on the disk.
  void write(std::string_view content, mode_t mode) const;
  void rename(const std::string& name) const;

 private:
  void make();

  int mDirectory;
  std::string mName;
  Descriptor mFile;
};

// Removes what runs have left in the directory that were killed.
void removeUnfinishedFiles(int directory);

}  // namespace ovxid::cli

#endif
