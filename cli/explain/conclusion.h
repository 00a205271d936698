#ifndef OVXID_CLI_EXPLAIN_CONCLUSION_H
#define OVXID_CLI_EXPLAIN_CONCLUSION_H

#include "explain/diagnosis.h"

namespace ovxid::cli {

// Which source identified the board, and as what; or what would.
std::string explainConclusion(const Diagnosis& diagnosis);

}  // namespace ovxid::cli

#endif
