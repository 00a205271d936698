#ifndef OVXID_TESTS_SIMULATION_PRIVILEGES_H
#define OVXID_TESTS_SIMULATION_PRIVILEGES_H

// While this object lives, file permissions hold for root too.
class DroppedPrivileges {
 public:
  DroppedPrivileges();
  // NOLINTNEXTLINE(bugprone-exception-escape): no test may run without these rights
  ~DroppedPrivileges();
  DroppedPrivileges(const DroppedPrivileges&) = delete;
  DroppedPrivileges& operator=(const DroppedPrivileges&) = delete;
};

#endif
