#ifndef OVXID_PARAMETERS_H
#define OVXID_PARAMETERS_H

#include <OvxIdentifier.h>
#include <ovxid/environment.h>

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>
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

}  // namespace ovxid

#endif
