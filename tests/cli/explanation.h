#ifndef OVXID_TESTS_CLI_EXPLANATION_H
#define OVXID_TESTS_CLI_EXPLANATION_H

#include <string>
#include <utility>
#include <vector>

#include "cli/front_end.h"

// A whole report of `ovxid explain`. It begins as that of the board of the fixture Explain; a test
// says in which rows its own board differs, and ends with what is remarked.
class Report {
 public:
  Report& says(const std::string& row, const std::string& text);
  // The rows of the sources behind this one say that they are not tried.
  Report& identifiedBy(const std::string& row, const std::string& as);
  Report& notIdentified(const std::string& why);
  // The lines of a catalogue that would make the board known.
  Report& knownByLine(const std::string& line);
  Report& knownByEitherLine(const std::string& one, const std::string& other);

  Outcome remarking(const std::vector<std::string>& remarks) const;
  Outcome remarkingNothing() const { return remarking({}); }

 private:
  std::vector<std::pair<std::string, std::string>> mRows = {
      {"device tree", "/proc/device-tree/orvanix/boardid: No such file or directory"},
      {"kernel release", "6.1.55: no '-' with an alias behind it"},
      {"machine", "aarch64: not x86_64"},
      {"cpuinfo", "/proc/cpuinfo: no line begins with Hardware"},
      {"catalogue",
       "/etc/known_ovx_ids: No such file or directory; the built-in table of 3 boards stands in "
       "for it"}};
  std::string mDecidedBy;
  std::string mVerdict =
      "This board is not identified. No line in /etc/known_ovx_ids could make it known:\n"
      "it takes a boardid in its device tree, or a kernel release that ends in '-' and an alias.\n";
};

// A board that nothing identifies: its device tree has no node, its release no hyphen, and its
// cpuinfo no Hardware line.
class Explain : public FrontEnd {
 protected:
  Explain();

  Outcome explain() { return ovxid({"explain"}); }

  // The report on the board as it is, and what is always remarked on it.
  Report mReport;
  static constexpr const char* noNode = "The device tree has no node /orvanix.";
};

// Gives the board a node that identifies it.
class ExplainNode : public Explain {
 protected:
  // The description is "Kestrel" if none is given.
  void identify(const std::string& boardid, const std::string& number);
  void identify(const std::string& boardid, const std::string& number,
                const std::string& description, const std::string& name);
};

// A board of which nothing is to be remarked: what a test adds is what is remarked.
class ExplainKestrel : public ExplainNode {
 protected:
  ExplainKestrel() { identify(bytes("12\0"), "12"); }
};

#endif
