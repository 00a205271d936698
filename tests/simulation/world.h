#ifndef OVXID_TESTS_SIMULATION_WORLD_H
#define OVXID_TESTS_SIMULATION_WORLD_H

#include <string>

// The parts of the system that a test may change without anyone else seeing it. Each function
// throws std::system_error, naming what is missing, where the machine does not allow it.

// Replaces the network by one that has nothing but a loopback interface.
void enterEmptyNetwork();

// A directory of the system, replaced by an empty one for as long as this lives. What it held
// stands in its subdirectory `.kept`. The first one gives the process mounts of its own; a user who
// is not root becomes root of a user namespace then.
class ReplacedDirectory {
 public:
  explicit ReplacedDirectory(std::string path);
  // NOLINTNEXTLINE(bugprone-exception-escape): the next test must not find this one's world
  ~ReplacedDirectory();
  ReplacedDirectory(const ReplacedDirectory&) = delete;
  ReplacedDirectory& operator=(const ReplacedDirectory&) = delete;

  // Makes one of the entries that the directory held appear in it.
  void keep(const std::string& entry);
  void keepAllBut(const std::string& entry);

 private:
  std::string mPath;
};

// Takes away the right of root to pass over file permissions, for as long as this lives.
class DroppedPrivileges {
 public:
  DroppedPrivileges();
  // NOLINTNEXTLINE(bugprone-exception-escape): a test must not go on without them
  ~DroppedPrivileges();
  DroppedPrivileges(const DroppedPrivileges&) = delete;
  DroppedPrivileges& operator=(const DroppedPrivileges&) = delete;
};

#endif
