#include "encoding/ascii.h"

#include <algorithm>

namespace ovxid {

std::string toSmallLetters(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), toSmall);
  return result;
}

}  // namespace ovxid
