#ifndef OVXID_CLI_MESSAGES_H
#define OVXID_CLI_MESSAGES_H

#include "log/log.h"

namespace ovxid::cli {

// With `verbose`, each message goes to standard error, its level before it.
Log messages(bool verbose);

}  // namespace ovxid::cli

#endif
