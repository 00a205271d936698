#include <ostream>
#include <utility>

#include "OvxIdentifier.h"

namespace ovxid {

namespace {

// Unformatted, so that a width set on the stream pads nothing.
void writeBytes(std::ostream& out, const std::string& bytes) {
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

}  // namespace ovxid

void OvxIdentifier::addParameter(std::string name, std::string value) {
  mParams.push_back({std::move(name), std::move(value)});
}

std::ostream& OvxIdentifier::listParams(std::ostream& out) {
  for (const ovx_param& param : mParams) {
    ovxid::writeBytes(out, param.name);
    out.put('=');
    ovxid::writeBytes(out, param.value);
    out << std::endl;
  }
  return out;
}
