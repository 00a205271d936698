#include "text_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace ovxid::cli {

namespace {

bool readAll(int descriptor, std::string& content) {
  constexpr std::size_t part = 65536;
  std::size_t size = 0;
  for (;;) {
    content.resize(size + part);
    const ssize_t count = read(descriptor, content.data() + size, part);
    if (count <= 0) {
      content.resize(size);
      return count == 0;
    }
    size += static_cast<std::size_t>(count);
  }
}

}  // namespace

std::optional<std::string> contentOf(const std::string& path) {
  const bool isStandardInput = path == "-";
  const int descriptor = isStandardInput ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) {
    return std::nullopt;
  }
  std::string content;
  const bool complete = readAll(descriptor, content);
  const int reason = errno;
  if (!isStandardInput) {
    close(descriptor);
  }
  errno = reason;
  return complete ? std::optional(std::move(content)) : std::nullopt;
}

std::optional<std::string_view> takeLine(std::string_view& text) {
  if (text.empty()) {
    return std::nullopt;
  }
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

}  // namespace ovxid::cli
