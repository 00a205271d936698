// The input is one line of the catalogue.

#include <cstddef>
#include <cstdint>
#include <utility>

#include "fuzz/compare.h"
#include "reference/catalogue.h"
#include "simulation/logger.h"

namespace {

// The library's result in the reference's form.
reference::LineReading readLine(HardwareIdentity record, const std::string& line) {
  static cQlog logger;
  static OvxIdentifier identifier(&logger);
  logger.messages.clear();
  const bool accepted = identifier.parseIdentityLine(record, line);
  return {accepted, std::move(record), std::move(logger.messages)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string line(data, data + size);
  static const HardwareIdentity before{"Bench Unit", {"bu"}, 9};
  const reference::LineReading library = readLine(before, line);
  const reference::LineReading reference = reference::readLine(before, line);
  expectSame("whether it is accepted", library.accepted, reference.accepted);
  expectSame("name", library.record.name, reference.record.name);
  expectSame("number", library.record.number, reference.record.number);
  expectSame("aliases", library.record.aliases, reference.record.aliases);
  expectSame("messages", library.messages, reference.messages);
  return 0;
}
