#ifndef OVXID_PARAMS_LIST_H
#define OVXID_PARAMS_LIST_H

#include <ovxid/records.h>

#include <iosfwd>
#include <vector>

namespace ovxid {

// Writes a NAME=VALUE line for each parameter, as OvxIdentifier::listParams() documents.
void writeList(const std::vector<ovx_param>& list, std::ostream& out);

}  // namespace ovxid

#endif
