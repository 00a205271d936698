#include <ftw.h>

#include <fstream>
#include <locale>
#include <utility>

#include "OvxIdentifier.h"

namespace {

constexpr int maxOpenDirectories = 10;

std::string parameterName(const std::string& property) {
  const std::locale locale;
  std::string name = "OVX_" + property;
  for (auto byte = name.begin() + 4; byte != name.end(); ++byte) {
    *byte = std::toupper(*byte, locale);
  }
  return name;
}

std::string firstLine(const char* path) {
  std::string line;
  std::ifstream file(path);
  std::getline(file, line);
  return line;
}

}  // namespace

OvxIdentifier* OvxDTParser::mOVxId = nullptr;

int OvxDTParser::parse(OvxIdentifier* id, char* dir) {
  mOVxId = id;
  return nftw(dir, ftw_cb, maxOpenDirectories, 0);
}

int OvxDTParser::ftw_cb(const char* fpath, const struct stat* /*sb*/, int typeflag,
                        struct FTW* ftwbuf) {
  if (typeflag != FTW_F) {
    return 0;
  }
  const std::string property = fpath + ftwbuf->base;
  if (property != "name") {
    mOVxId->addParameter(parameterName(property), firstLine(fpath));
  }
  return 0;
}
