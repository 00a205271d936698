#ifndef OVXID_PARAMS_LIST_H
#define OVXID_PARAMS_LIST_H

#include <ovxid/records.h>

#include <string>

namespace ovxid {

// Appends the line of a listing that a parameter has.
inline void appendLine(std::string& text, const ovx_param& param) {
  text.append(param.name).append("=").append(param.value).append("\n");
}

}  // namespace ovxid

#endif
