#include <ftw.h>

#include <exception>
#include <locale>
#include <string_view>
#include <utility>

#include "OvxIdentifier.h"
#include "params/names.h"
#include "text/lines.h"

namespace ovxid {

namespace {

constexpr int maxOpenDirectories = 10;
constexpr std::string_view nodesOwnName = "name";

std::string parameterName(std::string_view property) {
  const std::locale locale;
  const auto& letters = std::use_facet<std::ctype<char>>(locale);
  std::string name = parameter::prefix;
  for (const char byte : property) {
    name += letters.toupper(byte);
  }
  return name;
}

std::string firstLineOf(const char* path) {
  const InputFile file(path);
  return file.isOpen() ? firstLine(file) : std::string();
}

// What the callback of the walk under way threw.
std::exception_ptr thrown;

// nftw(3) is C: an exception would pass through it without closing its directories, or end the
// process. So the walk ends here, and the exception goes on when nftw(3) has returned.
int visit(const char* path, const struct stat* status, int type, FTW* position) noexcept {
  try {
    return OvxDTParser::ftw_cb(path, status, type, position);
  } catch (...) {
    thrown = std::current_exception();
    return -1;
  }
}

}  // namespace

}  // namespace ovxid

OvxIdentifier* OvxDTParser::mOVxId = nullptr;

int OvxDTParser::parse(OvxIdentifier* id, char* dir) {
  mOVxId = id;
  const int result = nftw(dir, ovxid::visit, ovxid::maxOpenDirectories, 0);
  if (ovxid::thrown) {
    std::rethrow_exception(std::exchange(ovxid::thrown, nullptr));
  }
  return result;
}

int OvxDTParser::ftw_cb(const char* fpath, const struct stat* /*sb*/, int typeflag,
                        struct FTW* ftwbuf) {
  if (typeflag != FTW_F) {
    return 0;
  }
  const std::string_view property = fpath + ftwbuf->base;
  if (property == ovxid::nodesOwnName) {
    return 0;
  }
  std::string name = ovxid::parameterName(property);
  mOVxId->addParameter(std::move(name), ovxid::firstLineOf(fpath));
  return 0;
}
