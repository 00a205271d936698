#ifndef OVXID_CLI_EXPLAIN_VERDICT_H
#define OVXID_CLI_EXPLAIN_VERDICT_H

#include "explain/evidence.h"

namespace ovxid::cli {

// Which source identified the board, and as what; or what would.
std::string explainVerdict(const Evidence& evidence);

}  // namespace ovxid::cli

#endif
