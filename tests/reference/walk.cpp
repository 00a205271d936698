#include "reference/walk.h"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <locale>
#include <set>
#include <utility>

namespace fs = std::filesystem;

namespace reference {

namespace {

class Walking {
 public:
  Walk run(const std::string& directory) { return {enter(directory) ? 0 : -1, mListing}; }

 private:
  bool enter(const fs::path& directory);
  bool visit(const fs::directory_entry& entry);
  void add(const fs::path& property);

  // Which directories were entered: links can lead to one again, which is passed over then.
  std::set<std::pair<dev_t, ino_t>> mEntered;
  std::string mListing;
};

bool Walking::enter(const fs::path& directory) {
  struct stat status {};
  if (stat(directory.c_str(), &status) != 0) {
    return false;
  }
  if (!mEntered.emplace(status.st_dev, status.st_ino).second) {
    return true;
  }
  for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
    if (!visit(entry)) {
      return false;
    }
  }
  return true;
}

// A link that leads nowhere is passed over, and one that leads to itself ends the walk.
bool Walking::visit(const fs::directory_entry& entry) {
  std::error_code error;
  const fs::file_status status = entry.status(error);
  if (status.type() == fs::file_type::not_found) {
    return true;
  }
  if (error) {
    return false;
  }
  if (fs::is_directory(status)) {
    return enter(entry.path());
  }
  add(entry.path());
  return true;
}

void Walking::add(const fs::path& property) {
  const std::string name = property.filename();
  if (name == "name") {
    return;
  }
  mListing += "OVX_";
  for (const char byte : name) {
    mListing += std::toupper(byte, std::locale());
  }
  std::ifstream file(property);
  std::string value;
  std::getline(file, value);
  mListing += "=" + value + "\n";
}

}  // namespace

Walk walk(const std::string& directory) { return Walking().run(directory); }

}  // namespace reference
