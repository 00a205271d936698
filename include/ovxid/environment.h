#ifndef OVXID_ENVIRONMENT_H
#define OVXID_ENVIRONMENT_H

#include <ovxid/records.h>

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

/**
 * @file
 * @brief What launched programs see of the board parameters.
 */

/** What is made of OvxIdentifier without being a member of it. */
namespace ovxid {

namespace detail {

/** What a program sees of a name or a value in its environment. */
inline std::string untilNul(const std::string& text) { return text.substr(0, text.find('\0')); }

}  // namespace detail

/**
 * @brief Returns the variables that OvxIdentifier::execute() would export for a list.
 *
 * @param parameters The list, as parameters() returns it. A parameter whose name has a '=', which
 *        execute() does not export, stands there with a shorter name, and so is not left out here.
 * @return One entry for each name, in the order of their first appearance: of equal names the last
 *         value, up to its first NUL byte. Empty names are left out, and so are names with a '='.
 *         Names end at their first NUL byte too.
 * @throw std::bad_alloc When memory runs out.
 */
inline std::vector<ovx_param> environment(const std::vector<ovx_param>& parameters) {
  std::vector<ovx_param> variables;
  std::unordered_map<std::string, std::size_t> positions;
  for (const ovx_param& parameter : parameters) {
    const std::string name = detail::untilNul(parameter.name);
    if (name.empty() || name.find('=') != std::string::npos) {
      continue;
    }
    const auto position = positions.emplace(name, variables.size());
    if (position.second) {
      variables.push_back({name, detail::untilNul(parameter.value)});
    } else {
      variables[position.first->second].value = detail::untilNul(parameter.value);
    }
  }
  return variables;
}

}  // namespace ovxid

#endif
