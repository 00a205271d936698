#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

#include "cli/front_end.h"
#include "manuals/page.h"

using testing::Contains;
using testing::HasSubstr;

namespace {

TEST_F(FrontEnd, PrintsItsVersion) {
  EXPECT_EQ(ovxid({"--version"}), (Outcome{0, "ovxid " OVXID_VERSION "\n", ""}));
}

TEST_F(FrontEnd, HelpsWithEveryCommandAndExitStatus) {
  const std::string help = ovxid({"--help"}).out;
  for (const char* text : {"  list ",   "  get ",     "  name ",
                           "  number ", "  explain ", "  check ",
                           "  run ",    "  shell ",   "  help ",
                           "--verbose", "--version",  "  0  ",
                           "  1  ",     "  2  ",      "  3  ",
                           "  4  ",     "  125  ",    "  126  ",
                           "  127  ",   "  134  ",    "Without a command: list."}) {
    EXPECT_THAT(help, HasSubstr(text));
  }
}

TEST_F(FrontEnd, PrintsItsVersionWhenAskedByTheShortWordToo) {
  EXPECT_EQ(ovxid({"-V"}), (Outcome{0, "ovxid " OVXID_VERSION "\n", ""}));
}

TEST_F(FrontEnd, HelpsWhenAskedByTheShortWordOrTheCommandToo) {
  EXPECT_EQ(ovxid({"-h"}), (Outcome{0, ovxid({"--help"}).out, ""}));
  EXPECT_EQ(ovxid({"help"}), (Outcome{0, ovxid({"--help"}).out, ""}));
}

TEST_F(FrontEnd, HelpsWithEveryFormat) {
  const std::string help = ovxid({"help", "list"}).out;
  for (const char* text : {"\n  plain ", "\n  json ", "\n  shell ", "\n  systemd ", "\n  null ",
                           "\n  prometheus ", "--format FORMAT ", "--output FILE "}) {
    EXPECT_THAT(help, HasSubstr(text));
  }
}

class Help : public FrontEnd, public testing::WithParamInterface<const char*> {};

TEST_P(Help, HasAnExample) {
  const Outcome outcome = ovxid({GetParam(), "--help"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr(std::string("Usage: ovxid ") + GetParam()));
  EXPECT_THAT(outcome.out, HasSubstr("Example:\n"));
  EXPECT_THAT(outcome.out, HasSubstr(std::string("ovxid ") + GetParam()));
  EXPECT_EQ(ovxid({"help", GetParam()}), outcome);
}

INSTANTIATE_TEST_SUITE_P(Of, Help,
                         testing::Values("list", "get", "name", "number", "explain", "check", "run",
                                         "shell", "help"),
                         [](const auto& test) { return test.param; });

TEST_F(FrontEnd, HelpOfRunNamesTheProgramAndItsArguments) {
  EXPECT_THAT(ovxid({"run", "--help"}).out,
              HasSubstr("Usage: ovxid run [OPTIONS] [--] PROGRAM [ARG...]\n"));
}

TEST_F(FrontEnd, HelpOfShellNamesTheArgumentsOfTheShell) {
  EXPECT_THAT(ovxid({"shell", "--help"}).out,
              HasSubstr("Usage: ovxid shell [OPTIONS] [--] [ARG...]\n"));
}

TEST_F(FrontEnd, KnowsNoBoardWhenOnlyHelpIsAskedFor) {
  mBoard.cpuinfo("Hardware\t:\n");
  EXPECT_EQ(ovxid({"run", "--help"}).status, 0);
  EXPECT_EQ(ovxid({"shell", "--help"}).status, 0);
}

// The words that the help lists, such as "list", "-v", "--format" and "127".
std::set<std::string> wordsOf(const std::string& help) {
  std::set<std::string> words;
  const std::regex entry("\n  (-., )?([^ ]+)( [A-Z]+)?  ");
  for (std::sregex_iterator match(help.begin(), help.end(), entry), end; match != end; ++match) {
    words.insert((*match)[2]);
    if ((*match)[1].length() != 0) {
      words.insert((*match)[1].str().substr(0, 2));
    }
  }
  return words;
}

// The words that head an entry of the manual page.
std::set<std::string> headsOf(const std::string& page) {
  std::set<std::string> words;
  const std::regex head("\n[.]TP\n[.]B[RI]? ([^\n]*)");
  for (std::sregex_iterator match(page.begin(), page.end(), head), end; match != end; ++match) {
    const std::string line = std::regex_replace((*match)[1].str(), std::regex(R"(\\-)"), "-");
    std::istringstream parts(std::regex_replace(line, std::regex(R"(\\~|", ")"), " "));
    for (std::string word; parts >> word;) {
      words.insert(word);
    }
  }
  return words;
}

// The commands that the help lists.
std::vector<std::string> commandsOf(const std::string& help) {
  const std::string list = help.substr(0, help.find("\nOptions:"));
  std::vector<std::string> commands;
  const std::regex entry("\n  ([a-z]+)  ");
  for (std::sregex_iterator match(list.begin(), list.end(), entry), end; match != end; ++match) {
    commands.push_back((*match)[1]);
  }
  return commands;
}

TEST_F(FrontEnd, HasEveryWordOfItsHelpInTheManualPage) {
  const std::set<std::string> heads = headsOf(manualPage("ovxid.1"));
  const std::string help = ovxid({"--help"}).out;
  std::set<std::string> words = wordsOf(help);
  for (const std::string& command : commandsOf(help)) {
    words.merge(wordsOf(ovxid({"help", command}).out));
  }
  EXPECT_GT(words.size(), 40);
  for (const std::string& word : words) {
    EXPECT_THAT(heads, Contains(word));
  }
}

// "[--] PROGRAM [ARG...]" of the help is "[--] PROGRAM [ARG...]" in the synopsis of the page too.
TEST_F(FrontEnd, HasTheOperandsOfEveryCommandInTheSynopsis) {
  std::string synopsis = manualPage("ovxid.1");
  synopsis = synopsis.substr(0, synopsis.find(".SH DESCRIPTION"));
  synopsis = std::regex_replace(synopsis, std::regex(R"(\n\.[A-Z]+ ?|\\\||\\(?=-))"), "\n");
  synopsis = std::regex_replace(synopsis, std::regex(R"(\s)"), "");
  const std::vector<std::string> commands = commandsOf(ovxid({"--help"}).out);
  EXPECT_GT(commands.size(), 8);
  for (const std::string& command : commands) {
    const std::string help = ovxid({"help", command}).out;
    const std::string usage = "Usage: ovxid " + command + " [OPTIONS]";
    ASSERT_EQ(help.rfind(usage, 0), 0);
    std::string operands = help.substr(usage.size(), help.find('\n') - usage.size());
    operands.erase(std::remove(operands.begin(), operands.end(), ' '), operands.end());
    EXPECT_THAT(synopsis, testing::ContainsRegex(command));
    EXPECT_THAT(synopsis, HasSubstr(operands)) << command;
  }
}

}  // namespace
