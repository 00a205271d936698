#ifndef OVXID_CLI_RECORD_BOARD_H
#define OVXID_CLI_RECORD_BOARD_H

#include "recording/recording.h"

namespace ovxid::cli {

// Writes down this machine, without what names the single one, and with `madeUpMacs` with other MAC
// addresses. Throws Failure.
recording::Recording recordBoard(bool madeUpMacs);

}  // namespace ovxid::cli

#endif
