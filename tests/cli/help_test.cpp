#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "cli/front_end.h"

using testing::ContainsRegex;
using testing::HasSubstr;

namespace {

TEST_F(FrontEnd, PrintsItsVersion) {
  EXPECT_EQ(ovxid({"--version"}), (Outcome{0, "ovxid " OVXID_VERSION "\n", ""}));
}

TEST_F(FrontEnd, HelpsWithEveryCommandAndExitStatus) {
  const std::string help = ovxid({"--help"}).out;
  for (const char* text :
       {"  list ", "  name ", "  number ", "  run ", "  shell ", "--verbose", "--version", "  0  ",
        "  1  ", "  2  ", "  3  ", "  125  ", "  126  ", "  127  ", "Without a command: list."}) {
    EXPECT_THAT(help, HasSubstr(text));
  }
}

TEST_F(FrontEnd, HelpsWhenAskedByTheShortWordToo) {
  EXPECT_EQ(ovxid({"-h"}), (Outcome{0, ovxid({"--help"}).out, ""}));
}

class Help : public FrontEnd, public testing::WithParamInterface<const char*> {};

TEST_P(Help, HasAnExample) {
  const Outcome outcome = ovxid({GetParam(), "--help"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, HasSubstr(std::string("Usage: ovxid ") + GetParam()));
  EXPECT_THAT(outcome.out, HasSubstr("Example:\n"));
  EXPECT_THAT(outcome.out, HasSubstr(std::string("ovxid ") + GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Of, Help, testing::Values("list", "name", "number", "run", "shell"),
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

TEST_F(FrontEnd, HasEveryOptionCommandAndExitStatusOfItsHelpInTheManualPage) {
  std::ostringstream page;
  page << std::ifstream(OVXID_MANUAL_PAGE).rdbuf();
  const std::string help = ovxid({"--help"}).out;
  const std::regex entry("\n  ([^ ]+)  ");
  int entries = 0;
  for (std::sregex_iterator match(help.begin(), help.end(), entry), end; match != end; ++match) {
    std::istringstream names((*match)[1]);
    for (std::string name; std::getline(names, name, ','); ++entries) {
      const std::string escaped = std::regex_replace(name, std::regex("-"), "\\-");
      EXPECT_THAT(
          page.str(),
          ContainsRegex("\n[.]BR? (.* )?" +
                        std::regex_replace(escaped, std::regex(R"(\\)"), R"(\\)") + "( .*)?\n"));
    }
  }
  EXPECT_EQ(entries, 17);
}

TEST(ManualPage, IsOfThisVersion) {
  std::ifstream page(OVXID_MANUAL_PAGE);
  std::string title;
  std::getline(page, title);
  EXPECT_THAT(title, HasSubstr("\"ovxid " + std::string(OVXID_VERSION) + "\""));
}

}  // namespace
