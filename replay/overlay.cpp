#include "replay/overlay.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "replay/failure.h"

namespace ovxid::replay {

namespace {

namespace fs = std::filesystem;

void makeReadOnly(const std::string& directory) {
  mount_attr attributes{};
  attributes.attr_set = MOUNT_ATTR_RDONLY;
  require(
      mount_setattr(AT_FDCWD, directory.c_str(), AT_RECURSIVE, &attributes, sizeof attributes) == 0,
      "make " + directory + " read-only", "that takes Linux 5.12");
}

// A mount that an overlay does not show, and where it belongs.
struct Submount {
  std::string place;
  int descriptor;
};

// The kernel writes a blank in a path as \040, and so on.
std::string withoutOctals(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isOctal = text[i] == '\\' && i + 3 < text.size();
    result += isOctal ? static_cast<char>(std::stoi(text.substr(i + 1, 3), nullptr, 8)) : text[i];
    i += isOctal ? 3 : 0;
  }
  return result;
}

std::vector<Submount> submountsOf(const std::string& directory) {
  std::vector<Submount> submounts;
  std::ifstream mounts("/proc/self/mountinfo");
  for (std::string line; std::getline(mounts, line);) {
    std::istringstream words(line);
    // The fifth word of the line.
    std::string place;
    for (int word = 0; word < 5; ++word) {
      words >> place;
    }
    place = withoutOctals(place);
    if (place.rfind(directory + "/", 0) == 0) {
      const int descriptor =
          open_tree(AT_FDCWD, place.c_str(), OPEN_TREE_CLONE | OPEN_TREE_CLOEXEC | AT_RECURSIVE);
      require(descriptor >= 0, place);
      submounts.push_back({place.substr(directory.size()), descriptor});
    }
  }
  return submounts;
}

void putBack(const std::vector<Submount>& submounts, const std::string& directory) {
  for (const Submount& submount : submounts) {
    const std::string place = directory + submount.place;
    require(
        move_mount(submount.descriptor, "", AT_FDCWD, place.c_str(), MOVE_MOUNT_F_EMPTY_PATH) == 0,
        place);
    close(submount.descriptor);
  }
}

}  // namespace

bool keepInMemory(const std::string& directory) {
  const std::string kept = directory + "/.kept";
  const std::string written = directory + "/.written";
  const std::string work = directory + "/.work";
  makeReadOnly(kept);
  const std::vector<Submount> submounts = submountsOf(kept);
  fs::create_directory(written);
  fs::create_directory(work);
  const std::string layers = "lowerdir=" + kept + ",upperdir=" + written + ",workdir=" + work;
  if (mount("board", directory.c_str(), "overlay", 0, layers.c_str()) != 0) {
    fs::remove_all(written);
    fs::remove_all(work);
    return false;
  }
  putBack(submounts, directory);
  return true;
}

}  // namespace ovxid::replay
