#ifndef OVXID_PARAMS_PROPERTIES_H
#define OVXID_PARAMS_PROPERTIES_H

#include <string>
#include <string_view>

#include "params/collection.h"

namespace ovxid {

// Whether a property of this name becomes a parameter.
bool isParameter(std::string_view property);
std::string parameterName(std::string_view property);

// Gives the collector a parameter for each property of the platform's node. False if there is none.
bool collectProperties(const Host& host, Collector& collector);

}  // namespace ovxid

#endif
