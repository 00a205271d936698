#include <ostream>
#include <utility>

#include "OvxIdentifier.h"

void OvxIdentifier::addParameter(std::string name, std::string value) {
  mParams.push_back({std::move(name), std::move(value)});
}

std::ostream& OvxIdentifier::listParams(std::ostream& out) {
  std::string line;
  for (const ovx_param& param : mParams) {
    line.assign(param.name).append("=").append(param.value).append("\n");
    // Unformatted, so that a width set on the stream pads nothing.
    out.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
  }
  return out;
}
