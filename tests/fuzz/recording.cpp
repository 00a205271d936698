// The input is a document that should have a recorded board, or a compiled device tree.

#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/compare.h"
#include "host/host.h"
#include "recording/device_tree.h"
#include "recording/reader.h"
#include "recording/recorded_board.h"
#include "recording/writer.h"

namespace {

using ovxid::recording::Recording;

Recording read(const std::string& input) {
  return ovxid::recording::isDeviceTree(input) ? ovxid::recording::readDeviceTree(input)
                                               : ovxid::recording::readDocument(input);
}

void askAll(const Recording& recording) {
  const ovxid::recording::RecordedBoard board(recording);
  for (const ovxid::File file : {ovxid::File::boardid, ovxid::File::description,
                                 ovxid::File::cpuinfo, ovxid::File::catalogue}) {
    ovxid::InputFile input = board.open(file);
    char part[64];
    while (input.read(part, sizeof part) > 0) {
    }
  }
  board.walkNode([](const ovxid::NodeEntry& entry) { entry.open(); });
  ovxid::MacAddress mac{};
  for (const std::string& name : board.interfaces().names) {
    board.macAddress(name, mac);
  }
}

}  // namespace

// What is taken is written down so that the same is read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(data, data + size);
  try {
    const Recording recording = read(input);
    askAll(recording);
    if (recording.interfacesError == 0) {
      const std::string document = ovxid::recording::documentOf(recording);
      expectSame("the document",
                 ovxid::recording::documentOf(ovxid::recording::readDocument(document)), document);
    }
  } catch (const ovxid::recording::Unreadable& refusal) {
    const std::string why = refusal.what();
    expectSame("whether the refusal is a line", why.find('\n') == std::string::npos, true);
    expectSame("whether the refusal is short", why.size() < 5000, true);
  }
  return 0;
}
