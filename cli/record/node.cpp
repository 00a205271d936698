#include "record/node.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "host/directory_listing.h"
#include "host/host.h"
#include "output/diagnostics.h"
#include "recording/limits.h"

namespace ovxid::cli {

namespace {

namespace limit = recording::limit;

// std::filesystem on 32 bits knows no dates after 2038.
bool isDirectory(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

[[noreturn]] void refuse(const std::string& path, const std::string& what, std::size_t most) {
  throw Failure(exit_status::notRead, path,
                "a recording holds no more than " + std::to_string(most) + " " + what);
}

recording::Content contentOfProperty(const std::string& path) {
  InputFile file(path.c_str());
  return contentOf(file, path, "a property", limit::value);
}

// In the order of the kernel.
class NodeRecorder {
 public:
  recording::Entry node(const std::string& path, std::string name, std::size_t depth) {
    recording::Entry node;
    node.name = std::move(name);
    node.isNode = true;
    if (depth > limit::depth) {
      refuse(path, "levels of nodes", limit::depth);
    }
    std::optional<std::vector<std::string>> names;
    if (access(path.c_str(), R_OK | X_OK) == 0) {
      names = namesIn(path);
    }
    if (!names) {
      node.value.openError = errno;
      return node;
    }
    const std::string beginning = path + "/";
    for (const std::string& each : *names) {
      node.content.push_back(entry(beginning + each, each, depth));
    }
    return node;
  }

 private:
  recording::Entry entry(const std::string& path, std::string name, std::size_t depth) {
    if (++mCount > limit::properties) {
      refuse(path, "properties", limit::properties);
    }
    if (isDirectory(path)) {
      return node(path, std::move(name), depth + 1);
    }
    recording::Entry property;
    property.name = std::move(name);
    property.value = contentOfProperty(path);
    return property;
  }

  std::size_t mCount = 0;
};

// A property of texts, each with a NUL byte behind it.
std::vector<std::string> textsOf(const std::string& property) {
  std::string bytes = contentOfProperty(std::string(treePath) + "/" + property).bytes;
  std::vector<std::string> texts;
  while (!bytes.empty()) {
    const auto end = std::min(bytes.find('\0'), bytes.size());
    texts.push_back(bytes.substr(0, end));
    bytes.erase(0, end + 1);
  }
  return texts;
}

}  // namespace

recording::Content contentOf(InputFile& file, const std::string& path, const std::string& what,
                             std::size_t mostBytes) {
  recording::Content content;
  if (!file.isOpen()) {
    content.openError = file.error();
    return content;
  }
  std::array<char, 65536> part;
  for (;;) {
    const ssize_t count = file.read(part.data(), part.size());
    if (count <= 0) {
      content.readError = file.error();
      return content;
    }
    content.bytes.append(part.data(), static_cast<std::size_t>(count));
    if (content.bytes.size() > mostBytes) {
      refuse(path, "bytes of " + what, mostBytes);
    }
  }
}

void recordTree(recording::Recording& recording) {
  recording.hasDeviceTree = isDirectory(std::string(treePath));
  for (const std::string& text : textsOf("model")) {
    recording.model += text;
  }
  recording.compatible = textsOf("compatible");
  const std::string path(nodePath);
  if (isDirectory(path)) {
    recording.node = NodeRecorder().node(path, "", 1);
  }
}

}  // namespace ovxid::cli
