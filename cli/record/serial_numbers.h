#ifndef OVXID_CLI_RECORD_SERIAL_NUMBERS_H
#define OVXID_CLI_RECORD_SERIAL_NUMBERS_H

#include <string>
#include <string_view>

namespace ovxid::cli {

// The text with zeros in the place of what names the single machine in lines of cpuinfo, which
// stand behind this beginning of a line. The library does not look at that.
std::string withoutSerialNumbers(std::string text, std::string_view beginning = "");

}  // namespace ovxid::cli

#endif
