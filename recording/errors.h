#ifndef OVXID_RECORDING_ERRORS_H
#define OVXID_RECORDING_ERRORS_H

#include <optional>
#include <string>
#include <string_view>

// The errors of errno by their names: their numbers differ from one architecture to another.
namespace ovxid::recording {

std::string errorName(int error);
std::optional<int> errorNamed(std::string_view name);

}  // namespace ovxid::recording

#endif
