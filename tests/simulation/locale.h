#ifndef OVXID_TESTS_SIMULATION_LOCALE_H
#define OVXID_TESTS_SIMULATION_LOCALE_H

#include <algorithm>
#include <locale>
#include <string>

// While this object lives, the locale of the process writes a dot into long numbers: "1.234".
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

// While this object lives, the locale of the process changes one byte only to upper case: `from`
// becomes `to`.
class UpperCaseLocale {
 public:
  UpperCaseLocale(char from, char to)
      : mBefore(std::locale::global({std::locale::classic(), new UpperCase(from, to)})) {}
  ~UpperCaseLocale() { std::locale::global(mBefore); }
  UpperCaseLocale(const UpperCaseLocale&) = delete;
  UpperCaseLocale& operator=(const UpperCaseLocale&) = delete;

 private:
  class UpperCase : public std::ctype<char> {
   public:
    UpperCase(char from, char to) : mFrom(from), mTo(to) {}

   private:
    char do_toupper(char byte) const override { return byte == mFrom ? mTo : byte; }
    const char* do_toupper(char* begin, const char* end) const override {
      std::replace(begin, begin + (end - begin), mFrom, mTo);
      return end;
    }

    char mFrom;
    char mTo;
  };

  std::locale mBefore;
};

#endif
