#ifndef OVXID_LAUNCH_LAUNCH_H
#define OVXID_LAUNCH_LAUNCH_H

#include <ovxid/records.h>

#include <vector>

namespace ovxid {

// Replaces the process by a program or by the user's shell, as OvxIdentifier::execute() documents.
int launch(const std::vector<ovx_param>& list, int argc, char** argv, bool useShell);

}  // namespace ovxid

#endif
