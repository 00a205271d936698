#ifndef OVXID_CATALOGUE_LINE_H
#define OVXID_CATALOGUE_LINE_H

#include <string_view>

#include "OvxIdentifier.h"

namespace ovxid {

// Reads a line of the catalogue into the record, as OvxIdentifier::parseIdentityLine() documents.
bool parseLine(HardwareIdentity& record, std::string_view line, cQlog* logger);

}  // namespace ovxid

#endif
