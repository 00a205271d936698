#include "log/log.h"

#include <string>

namespace ovxid {

void Log::operator()(Level level, std::initializer_list<std::string_view> parts) const {
  if (!isRead()) {
    return;
  }
  std::string message;
  for (const std::string_view part : parts) {
    message.append(part);
  }
  mReader(mContext, level, message.c_str());
}

}  // namespace ovxid
