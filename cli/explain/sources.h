#ifndef OVXID_CLI_EXPLAIN_SOURCES_H
#define OVXID_CLI_EXPLAIN_SOURCES_H

#include "explain/diagnosis.h"

namespace ovxid::cli {

// A line for each source in the order in which they are tried, and one for the catalogue.
std::string explainSources(const Diagnosis& diagnosis);

}  // namespace ovxid::cli

#endif
