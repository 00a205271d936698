#include "replay/recording.h"

#include <arpa/inet.h>
#include <net/if.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <system_error>

#include "recording/files.h"
#include "replay/escapes.h"
#include "replay/failure.h"

namespace ovxid::replay {

namespace {

namespace file = recording::file;
namespace fs = std::filesystem;

std::vector<std::string> linesOf(const Recording& recording, const char* name) {
  std::vector<std::string> lines;
  if (!recording.has(name)) {
    return lines;
  }
  std::ifstream stream(recording.file(name));
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  if (stream.bad() || !stream.eof()) {
    throw Failure(recording.file(name), "cannot be read");
  }
  return lines;
}

[[noreturn]] void refuse(const Recording& recording, const char* name, std::size_t line,
                         const std::string& why) {
  throw Failure(recording.file(name) + ":" + std::to_string(line), why);
}

std::string valueIn(const Recording& recording, const char* name, const std::string& text,
                    std::size_t line) {
  std::optional<std::string> value = unescaped(text);
  if (!value) {
    refuse(recording, name, line,
           "a backslash is not followed by another one, by t, or by x and two hexadecimal digits");
  }
  return *value;
}

// Of a recording from somebody else, no path may lead out of its directory or out of the node.
bool staysInside(const std::string& path) {
  const fs::path parts(path);
  return !path.empty() && parts.is_relative() && path.find('\0') == std::string::npos &&
         std::none_of(parts.begin(), parts.end(), [](const fs::path& part) {
           return part.empty() || part == ".." || part == ".";
         });
}

std::string pathIn(const Recording& recording, const char* name, const std::string& line,
                   std::size_t number) {
  std::string path = valueIn(recording, name, line, number);
  if (!staysInside(path)) {
    refuse(recording, name, number, "not a path below the directory: '" + line + "'");
  }
  return path;
}

void takeFact(Recording& recording, const std::string& key, const std::string& value,
              std::size_t number) {
  if (key == "release") {
    recording.release = valueIn(recording, file::machine, value, number);
  } else if (key == "machine") {
    recording.machine = valueIn(recording, file::machine, value, number);
  } else if (key == "unreadable" && value == "uname") {
    recording.hasUname = false;
  } else if (key == "unreadable") {
    recording.unreadable.push_back(pathIn(recording, file::machine, value, number));
  } else {
    refuse(recording, file::machine, number, "no such key: '" + key + "'");
  }
}

void readMachine(Recording& recording) {
  std::size_t number = 0;
  for (const std::string& line : linesOf(recording, file::machine)) {
    ++number;
    if (const auto equals = line.find('='); !line.empty()) {
      takeFact(recording, line.substr(0, equals),
               equals == std::string::npos ? "" : line.substr(equals + 1), number);
    }
  }
  if (recording.hasUname && (!recording.release || !recording.machine)) {
    throw Failure(recording.file(file::machine), "no release, or no machine");
  }
}

bool hasOnly(std::string_view characters, std::string_view text) {
  return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

// What the kernel allows and ip(8) takes. A label goes on behind a colon.
bool isName(std::string_view name) {
  constexpr std::string_view allowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_.@+-";
  const auto colon = name.find(':');
  return name.size() < IFNAMSIZ && hasOnly(allowed, name.substr(0, colon)) &&
         (colon == std::string_view::npos || hasOnly(allowed, name.substr(colon + 1))) &&
         name.front() != '.' && name.front() != '-';
}

bool isAddress(const std::string& text) {
  in_addr address{};
  return inet_pton(AF_INET, text.c_str(), &address) == 1;
}

bool isMac(std::string_view text) {
  constexpr std::string_view form = "00:00:00:00:00:00";
  constexpr std::string_view digits = "0123456789abcdef";
  return text.size() == form.size() &&
         std::equal(text.begin(), text.end(), form.begin(), [&](char byte, char place) {
           return place == ':' ? byte == ':' : digits.find(byte) != std::string_view::npos;
         });
}

Address addressOf(const Recording& recording, const std::string& line, std::size_t number) {
  std::istringstream words(line);
  Address entry;
  std::string more;
  words >> entry.name >> entry.address >> entry.mac;
  if (!words || words >> more || !isName(entry.name) ||
      (entry.address != none && !isAddress(entry.address)) ||
      (entry.mac != none && !isMac(entry.mac))) {
    refuse(recording, file::interfaces, number,
           "not a name or label, an address and a MAC address that can be replayed");
  }
  return entry;
}

// Links would let the files of this machine pass for those of the board, and pipes never end. All
// of it is kept in memory.
void requirePlainFiles(const Recording& recording) {
  constexpr std::uintmax_t largest = 16U << 20;
  for (const auto& entry : fs::recursive_directory_iterator(recording.path)) {
    const fs::file_type type = entry.symlink_status().type();
    if (type != fs::file_type::regular && type != fs::file_type::directory) {
      throw Failure(entry.path(), "neither a file nor a directory");
    }
    if (type == fs::file_type::regular && entry.file_size() > largest) {
      throw Failure(entry.path(), "is larger than 16 MiB");
    }
  }
}

}  // namespace

bool Recording::has(const char* name) const { return fs::exists(file(name)); }

bool Recording::isUnreadable(const std::string& name) const {
  return std::find(unreadable.begin(), unreadable.end(), name) != unreadable.end();
}

Recording readRecording(const std::string& directory) {
  Recording recording;
  std::error_code error;
  recording.path = fs::canonical(directory, error);
  if (error) {
    throw Failure(directory.empty() ? "''" : directory, error.message());
  }
  if (!recording.has(file::machine)) {
    throw Failure(directory, "not a recorded board: it has no file 'machine'");
  }
  requirePlainFiles(recording);
  readMachine(recording);
  std::size_t number = 0;
  for (const std::string& line : linesOf(recording, file::order)) {
    recording.order.push_back(pathIn(recording, file::order, line, ++number));
  }
  number = 0;
  for (const std::string& line : linesOf(recording, file::interfaces)) {
    recording.addresses.push_back(addressOf(recording, line, ++number));
  }
  return recording;
}

}  // namespace ovxid::replay
