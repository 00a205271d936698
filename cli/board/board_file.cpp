#include "board/board_file.h"

#include <string>

#include "command_line/command_table.h"
#include "host/this_machine.h"
#include "output/diagnostics.h"
#include "recording/device_tree.h"
#include "recording/file.h"
#include "recording/limits.h"
#include "recording/reader.h"
#include "recording/recorded_board.h"

namespace ovxid::cli {

namespace {

class MachineWithCatalogue : public ThisMachine {
 public:
  explicit MachineWithCatalogue(std::string catalogue) : mCatalogue(std::move(catalogue)) {}

  InputFile open(File file) const override {
    return file == File::catalogue ? InputFile::ofBytes(mCatalogue, 0) : ThisMachine::open(file);
  }

 private:
  std::string mCatalogue;
};

// What the call reads of the file.
template <typename Read>
auto readFrom(const char* path, Read read) {
  try {
    return read(path);
    // GCOVR_EXCL_BR_START: std::bad_alloc goes on to main
  } catch (const recording::Unreadable& error) {
    throw Failure(exit_status::notRead, path, error.what());
  }
  // GCOVR_EXCL_BR_STOP
}

std::string contentOfFile(const char* path) {
  return readFrom(path, [](const char* file) {
    return recording::bytesOfFile(file, recording::limit::document);
  });
}

recording::Recording readBoard(const char* path) {
  const std::string bytes = recording::bytesOfDocument(path);
  return recording::isDeviceTree(bytes) ? recording::readDeviceTree(bytes)
                                        : recording::readDocument(bytes);
}

}  // namespace

std::shared_ptr<const Host> hostOf(const Invocation& invocation) {
  const char* const board = invocation.option(boardOption.name, nullptr);
  const char* const catalogue = invocation.option(catalogueOption.name, nullptr);
  if (board == nullptr && catalogue == nullptr) {
    return std::make_shared<ThisMachine>();
  }
  if (board == nullptr) {
    return std::make_shared<MachineWithCatalogue>(contentOfFile(catalogue));
  }
  recording::Recording recording = readFrom(board, readBoard);
  if (catalogue != nullptr) {
    recording.catalogue = {contentOfFile(catalogue), 0, 0};
  }
  return std::make_shared<recording::RecordedBoard>(std::move(recording));
}

}  // namespace ovxid::cli
