#include <ftw.h>

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

}  // namespace

}  // namespace ovxid

OvxIdentifier* OvxDTParser::mOVxId = nullptr;

int OvxDTParser::parse(OvxIdentifier* id, char* dir) {
  mOVxId = id;
  return nftw(dir, ftw_cb, ovxid::maxOpenDirectories, 0);
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
