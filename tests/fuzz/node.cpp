// The input describes the device-tree node. A line that begins with '@' names a property, and what
// follows up to the next such line is its content, without the last newline:
//
//   @boardid
//   7
//   @child/port
//   1
//   @empty-child/
//   @link>port
//
// A '/' at the end makes a directory, a '>' a symbolic link to the entry that it names.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>

#include "fuzz/board.h"
#include "fuzz/compare.h"
#include "reference/catalogue.h"
#include "reference/walk.h"

namespace fs = std::filesystem;

namespace {

// Nothing may be written outside of the node, where a link to elsewhere or a ".." would lead.
bool staysInside(const fs::path& path) {
  for (const fs::path& component : path) {
    if (component == ".." || component.native().find('\0') != std::string::npos) {
      return false;
    }
  }
  return true;
}

bool isNeighbour(const fs::path& target) {
  return target.filename() == target && staysInside(target);
}

void makeEntry(const std::string& name, const std::string& content) {
  const auto arrow = name.find('>');
  const fs::path entry = std::string(nodePath) + "/" + name.substr(0, arrow);
  if (!staysInside(entry)) {
    return;
  }
  fs::create_directories(entry.parent_path());
  if (arrow == std::string::npos && entry.has_filename()) {
    write(entry, content);
  } else if (arrow != std::string::npos && isNeighbour(name.substr(arrow + 1))) {
    fs::create_symlink(name.substr(arrow + 1), entry);
  }
}

// Where an entry cannot be made, as below a file, there is none.
void makeEntryIfPossible(const std::string& name, const std::string& content) {
  try {
    makeEntry(name, content);
  } catch (const std::system_error&) {
  }
}

void makeNode(const std::string& description) {
  fs::remove_all(nodePath);
  for (auto entry = description.find('@'); entry != std::string::npos;) {
    const auto next = description.find("\n@", entry);
    const std::string text = description.substr(entry + 1, next - entry - 1);
    const auto newline = text.find('\n');
    makeEntryIfPossible(text.substr(0, newline),
                        newline == std::string::npos ? "" : text.substr(newline + 1));
    entry = next == std::string::npos ? next : next + 1;
  }
}

// The library's result in the reference's form.
reference::Walk walk(OvxIdentifier identifier) {
  std::string node = nodePath;
  const int result = OvxDTParser::parse(&identifier, node.data());
  return {result, listing(identifier)};
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  board();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const reference::Catalogue catalogue = reference::loadCatalogue();
  static const OvxIdentifier identifier(board().logger());
  beginInput(size);
  makeNode({data, data + size});
  expectSameDetermination(identifier, catalogue.identities);
  const reference::Walk library = walk(identifier);
  const reference::Walk reference = reference::walk(nodePath);
  expectSame("result of the walk", library.result, reference.result);
  expectSame("parameters", library.listing, reference.listing);
  expectFrontEndToAgree();
  expectFrontEndToList(library.listing);
  return 0;
}
