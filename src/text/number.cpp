#include "text/number.h"

#include <algorithm>
#include <array>
#include <limits>

namespace ovxid {

namespace {

using Limits = std::numeric_limits<std::int32_t>;

class NumberReader {
 public:
  // False when the number ends before this character.
  bool take(char next);

  bool isBlank() const { return !mBegun; }
  bool isInRange() const { return mHasDigits && nearest() == exact(); }
  std::int32_t nearest() const {
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(exact(), Limits::min(), Limits::max()));
  }

 private:
  void append(std::int64_t digit);
  std::int64_t exact() const { return mNegative ? -mMagnitude : mMagnitude; }

  // Anything but white space.
  bool mBegun = false;
  bool mHasDigits = false;
  bool mNegative = false;
  std::int64_t mMagnitude = 0;
};

// In the classic locale, whatever the locale of the process.
bool isSpace(char character) {
  return character == ' ' || (character >= '\t' && character <= '\r');
}

bool NumberReader::take(char next) {
  if (next >= '0' && next <= '9') {
    append(next - '0');
    return true;
  }
  if (mBegun) {
    return false;
  }
  if (isSpace(next)) {
    return true;
  }
  mBegun = true;
  mNegative = next == '-';
  return next == '-' || next == '+';
}

void NumberReader::append(std::int64_t digit) {
  mBegun = true;
  mHasDigits = true;
  // Once it is out of range, with either sign, it stays there, so that no number of digits
  // overflows.
  if (mMagnitude <= -std::int64_t{Limits::min()}) {
    mMagnitude = 10 * mMagnitude + digit;
  }
}

}  // namespace

std::optional<std::int32_t> readNumber(std::string_view text) {
  NumberReader number;
  for (const char next : text) {
    if (!number.take(next)) {
      break;
    }
  }
  if (!number.isInRange()) {
    return std::nullopt;
  }
  return number.nearest();
}

std::optional<std::int32_t> firstNumber(InputFile& file) {
  NumberReader number;
  std::array<char, 4096> part;
  for (;;) {
    const ssize_t count = file.read(part.data(), part.size());
    if (count < 0 || (count == 0 && number.isBlank())) {
      return std::nullopt;
    }
    const char* const end = part.data() + count;
    const char* const behind =
        std::find_if_not(part.data(), part.data() + count, [&](char c) { return number.take(c); });
    if (count == 0 || behind != end) {
      return number.nearest();
    }
  }
}

}  // namespace ovxid
