#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <regex>
#include <set>
#include <sstream>

#include "cli/front_end.h"
#include "cli/help_text.h"
#include "manuals/page.h"

using testing::Contains;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

TEST_F(FrontEnd, PrintsItsVersion) {
  EXPECT_EQ(ovxid({"--version"}), (Outcome{0, "ovxid " OVXID_VERSION "\n", ""}));
}

TEST_F(FrontEnd, TellsInItsHelpWhatItDoesWithoutACommand) {
  EXPECT_THAT(ovxid({"--help"}).out, HasSubstr("\nWithout a command: list.\n"));
}

TEST_F(FrontEnd, PrintsItsVersionWhenAskedByTheShortWordToo) {
  EXPECT_EQ(ovxid({"-V"}), (Outcome{0, "ovxid " OVXID_VERSION "\n", ""}));
}

TEST_F(FrontEnd, HelpsWhenAskedByTheShortWordOrTheCommandToo) {
  EXPECT_EQ(ovxid({"-h"}), (Outcome{0, ovxid({"--help"}).out, ""}));
  EXPECT_EQ(ovxid({"help"}), (Outcome{0, ovxid({"--help"}).out, ""}));
}

class Help : public FrontEnd {
 protected:
  std::vector<std::string> commands() {
    std::vector<std::string> names;
    const HelpLists lists = listsOf(ovxid({"--help"}).out);
    for (const HelpEntry& command : lists.at("Commands")) {
      names.push_back(command.word);
    }
    EXPECT_THAT(names, Contains("list"));
    return names;
  }
};

TEST_F(Help, OfEveryCommandHasAnExample) {
  for (const std::string& command : commands()) {
    SCOPED_TRACE(command);
    const Outcome outcome = ovxid({command, "--help"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, StartsWith("Usage: ovxid " + command));
    EXPECT_THAT(outcome.out, ContainsRegex("\nExample:\n  .*ovxid " + command));
    EXPECT_EQ(ovxid({"help", command}), outcome);
  }
}

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

using WordsOfLists = std::map<std::string, std::set<std::string>>;

void addWords(WordsOfLists& words, const std::string& help) {
  for (const auto& [title, entries] : listsOf(help)) {
    for (const HelpEntry& entry : entries) {
      words[title].insert(entry.word);
      if (!entry.shortWord.empty()) {
        words[title].insert(entry.shortWord);
      }
    }
  }
}

// The words that head the entries of a section, such as "EXIT STATUS", but not the placeholders.
std::set<std::string> headsOf(const std::string& page, const std::string& section) {
  const auto begin = page.find("\n.SH " + section + "\n");
  const std::string text = page.substr(begin, page.find("\n.SH ", begin + 1) - begin);
  std::set<std::string> words;
  const std::regex head("\n[.]TP\n[.]B[RI]? ([^\n]*)");
  for (std::sregex_iterator match(text.begin(), text.end(), head), end; match != end; ++match) {
    const std::string line = std::regex_replace((*match)[1].str(), std::regex(R"(\\-)"), "-");
    std::istringstream parts(std::regex_replace(line, std::regex(R"(\\~ [A-Z]+|", ")"), " "));
    for (std::string word; parts >> word;) {
      words.insert(word);
    }
  }
  return words;
}

TEST_F(Help, ListsWhatTheManualPageLists) {
  const std::string page = manualPage("ovxid.1");
  WordsOfLists ofHelp;
  addWords(ofHelp, ovxid({"--help"}).out);
  for (const std::string& command : commands()) {
    addWords(ofHelp, ovxid({"help", command}).out);
  }
  WordsOfLists ofPage;
  for (const char* list : {"Commands", "Options", "Formats", "Warnings", "Exit status"}) {
    std::string section = list;
    std::transform(section.begin(), section.end(), section.begin(), toupper);
    ofPage[list] = headsOf(page, section);
  }
  EXPECT_THAT(ofHelp, testing::ContainerEq(ofPage));
}

// "[--] PROGRAM [ARG...]" of the help is "[--] PROGRAM [ARG...]" in the synopsis of the page too.
TEST_F(Help, HasTheOperandsOfEveryCommandAsTheSynopsisOfTheManualPage) {
  std::string synopsis = manualPage("ovxid.1");
  synopsis = synopsis.substr(0, synopsis.find(".SH DESCRIPTION"));
  synopsis = std::regex_replace(synopsis, std::regex(R"(\n\.[A-Z]+ ?|\\\||\\(?=-))"), "\n");
  synopsis = std::regex_replace(synopsis, std::regex(R"(\s)"), "");
  for (const std::string& command : commands()) {
    const std::string help = ovxid({"help", command}).out;
    const std::string usage = "Usage: ovxid " + command + " [OPTIONS]";
    ASSERT_EQ(help.rfind(usage, 0), 0);
    std::string operands = help.substr(usage.size(), help.find('\n') - usage.size());
    operands.erase(std::remove(operands.begin(), operands.end(), ' '), operands.end());
    EXPECT_THAT(synopsis, HasSubstr(command));
    EXPECT_THAT(synopsis, HasSubstr(operands)) << command;
  }
}

}  // namespace
