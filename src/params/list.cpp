#include "params/list.h"

#include <ostream>

namespace ovxid {

void writeList(const std::vector<ovx_param>& list, std::ostream& out) {
  std::string line;
  for (const ovx_param& param : list) {
    line.assign(param.name).append("=").append(param.value).append("\n");
    // Unformatted, so that a width set on the stream pads nothing.
    out.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
  }
}

}  // namespace ovxid
