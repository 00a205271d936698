#ifndef OVXID_CLI_RECORD_SERIAL_NUMBERS_H
#define OVXID_CLI_RECORD_SERIAL_NUMBERS_H

#include <string>

namespace ovxid::cli {

// The lines of cpuinfo, or messages about them, with zeros in the place of what names the single
// machine. The library does not look at that.
std::string withoutSerialNumbers(std::string text);

}  // namespace ovxid::cli

#endif
