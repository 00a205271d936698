#include "text/lines.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace ovxid {

namespace {

constexpr std::size_t smallestBuffer = 65536;

}  // namespace

std::optional<std::string_view> LineReader::next() {
  std::size_t searched = 0;
  do {
    const std::string_view unread(mBuffer.data() + mBegin, mEnd - mBegin);
    const auto newline = unread.find('\n', searched);
    if (newline != std::string_view::npos) {
      mBegin += newline + 1;
      return unread.substr(0, newline);
    }
    searched = unread.size();
  } while (!mAtEnd && readMore());
  const std::string_view last(mBuffer.data() + mBegin, mEnd - mBegin);
  mBegin = mEnd;
  if (last.empty()) {
    return std::nullopt;
  }
  return last;
}

bool LineReader::readMore() {
  makeRoom();
  const ssize_t count = mFile.read(mBuffer.data() + mEnd, mBuffer.size() - mEnd);
  if (count > 0) {
    mEnd += static_cast<std::size_t>(count);
    return true;
  }
  if (count < 0) {
    mBegin = mEnd;
  }
  mAtEnd = true;
  return false;
}

void LineReader::makeRoom() {
  if (mBegin > 0) {
    std::memmove(mBuffer.data(), mBuffer.data() + mBegin, mEnd - mBegin);
    mEnd -= mBegin;
    mBegin = 0;
  }
  if (mEnd == mBuffer.size()) {
    mBuffer.resize(std::max(2 * mBuffer.size(), smallestBuffer));
  }
}

FirstLine firstLine(InputFile& file) {
  FirstLine line;
  std::array<char, 4096> part;
  for (;;) {
    const ssize_t count = file.read(part.data(), part.size());
    if (count <= 0) {
      return line;
    }
    const std::string_view read(part.data(), static_cast<std::size_t>(count));
    const auto newline = read.find('\n');
    line.text.append(read.substr(0, newline));
    if (newline != std::string_view::npos) {
      line.endsInNewline = true;
      line.hasMoreBehind = read.find_first_not_of('\0', newline + 1) != std::string_view::npos;
      return line;
    }
  }
}

}  // namespace ovxid
