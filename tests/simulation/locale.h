#ifndef OVXID_TESTS_SIMULATION_LOCALE_H
#define OVXID_TESTS_SIMULATION_LOCALE_H

#include <locale>
#include <string>

// Makes the process's locale one that groups digits, "1.234", for as long as this lives.
class GroupingLocale {
 public:
  GroupingLocale() : mBefore(std::locale::global({std::locale::classic(), new Grouping})) {}
  ~GroupingLocale() { std::locale::global(mBefore); }
  GroupingLocale(const GroupingLocale&) = delete;
  GroupingLocale& operator=(const GroupingLocale&) = delete;

 private:
  struct Grouping : std::numpunct<char> {
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };

  std::locale mBefore;
};

#endif
