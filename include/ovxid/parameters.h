#ifndef OVXID_PARAMETERS_H
#define OVXID_PARAMETERS_H

#include <OvxIdentifier.h>

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

/**
 * @file
 * @brief The board parameters as values, for programs that do not want to print or export them.
 *
 * All of it is inline and uses only the public members of OvxIdentifier.
 */

/** What is made of OvxIdentifier without being a member of it. */
namespace ovxid {

namespace detail {

/** Takes a listing apart: OvxIdentifier::listParams() flushes the stream after each parameter. */
class ListingReader : public std::streambuf {
 public:
  std::vector<ovx_param> parameters;

 protected:
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    mLine.append(text, static_cast<std::size_t>(size));
    return size;
  }

  int_type overflow(int_type byte) override {
    if (!traits_type::eq_int_type(byte, traits_type::eof())) {
      mLine += traits_type::to_char_type(byte);
    }
    return traits_type::not_eof(byte);
  }

  int sync() override {
    const std::size_t nameEnd = mLine.find('=');
    const std::size_t valueEnd = mLine.size() - 1;
    parameters.push_back(
        {mLine.substr(0, nameEnd), mLine.substr(nameEnd + 1, valueEnd - nameEnd - 1)});
    mLine.clear();
    return 0;
  }

 private:
  std::string mLine;
};

/** What a program sees of a name or a value in its environment. */
inline std::string untilNul(const std::string& text) { return text.substr(0, text.find('\0')); }

}  // namespace detail

/**
 * @brief Returns the parameter list of an identifier.
 *
 * @param identifier The identifier, whose list is empty unless OvxIdentifier::loadParams() or
 *        another member has appended to it. It is not changed.
 * @return The parameters in list order, every byte of them. A name ends at its first '=', since the
 *         listing, from which this reads, does not tell a later one from that before the value.
 * @throw std::bad_alloc When memory runs out.
 */
inline std::vector<ovx_param> parameters(OvxIdentifier& identifier) {
  detail::ListingReader reader;
  std::ostream listing(&reader);
  listing.exceptions(std::ios_base::badbit);
  identifier.listParams(listing);
  return std::move(reader.parameters);
}

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
