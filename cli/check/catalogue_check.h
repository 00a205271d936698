#ifndef OVXID_CLI_CHECK_CATALOGUE_CHECK_H
#define OVXID_CLI_CHECK_CATALOGUE_CHECK_H

#include <string_view>

#include "check/findings.h"
#include "log/log.h"

namespace ovxid::cli {

// Says what is wrong with a catalogue. Its lines are read as the library reads them, whose messages
// go to the log.
void checkCatalogue(std::string_view content, const Log& log, Findings& findings);

}  // namespace ovxid::cli

#endif
