#include "command.h"
#include "exit_status.h"
#include "record/directory.h"
#include "record/records.h"

namespace ovxid::cli::command {

int record(const Invocation& invocation) {
  RecordingDirectory directory(invocation.operands[0]);
  Macs macs(invocation.has("no-mac"));
  const std::string listing = recordWhatIsSaid(macs, directory);
  recordInterfaces(wanInterfaceIn(listing), macs, directory);
  recordFiles(directory);
  directory.keep();
  return exit_status::done.value;
}

}  // namespace ovxid::cli::command
