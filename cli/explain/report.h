#ifndef OVXID_CLI_EXPLAIN_REPORT_H
#define OVXID_CLI_EXPLAIN_REPORT_H

#include "explain/diagnosis.h"

// The parts of the report, each in the file of its name.
namespace ovxid::cli {

// A line for each source in the order in which they are tried, and one for the catalogue.
std::string explainSources(const Diagnosis& diagnosis);

// Which source identified the board, and as what; or what would.
std::string explainConclusion(const Diagnosis& diagnosis);

// What a reader of the report may stumble over, a sentence each.
using Remarks = std::vector<std::string>;

// The system: what is not there, or may not be read.
Remarks remarksOnSystem(const Diagnosis& diagnosis);
// The platform's node: what the library makes of its boardid and its description.
Remarks remarksOnNode(const Diagnosis& diagnosis);
// The platform's node and its properties: what is called almost as it should be.
Remarks remarksOnSpelling(const Diagnosis& diagnosis);
// The catalogue: what almost matches.
Remarks remarksOnNearMisses(const Diagnosis& diagnosis);
// The catalogue: what would match as well, and what the decision hides.
Remarks remarksOnHidden(const Diagnosis& diagnosis);
// The parameters: what a launched program does not see, or sees otherwise.
Remarks remarksOnParameters(const Diagnosis& diagnosis);

}  // namespace ovxid::cli

#endif
