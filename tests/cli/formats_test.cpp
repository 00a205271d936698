#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "cli/front_end.h"

namespace {

using Variables = std::multiset<std::string>;
using Lines = std::multiset<std::string>;

// The board's variables among those of an environment.
Variables boardVariables(const std::string& text) {
  Variables variables;
  for (const std::string& entry : entriesOf(text)) {
    if (entry.rfind("OVX_", 0) == 0) {
      variables.insert(entry);
    }
  }
  return variables;
}

std::string everyByteBut(const std::string& left) {
  std::string text;
  for (int byte = 1; byte < 256; ++byte) {
    const char next = static_cast<char>(byte);
    text += left.find(next) == std::string::npos ? std::string(1, next) : "";
  }
  return text;
}

class Formats : public FrontEnd {
 protected:
  Formats() {
    mBoard.property("boardid", "7")
        .property("description", bytes("It's a \"Field Node\"\0"))
        .property("compatible", bytes("orvanix,field\0orvanix,node\0"))
        .property("bytes", everyByteBut("\n"))
        .property("expansions", "$HOME `id` $(id) !! \\ ~ * ${x#y}")
        .property("backslash", "\\")
        .property("quotes", "'''\"\"\"'")
        .property("blanks", "  two  ")
        .property("empty", "")
        .property("id", "12");
  }

  // In any order: that of properties is the file system's.
  Lines lines(const char* format) {
    Lines lines;
    std::istringstream listing(ovxid({"list", "--format", format}).out);
    for (std::string line; std::getline(listing, line);) {
      lines.insert(line);
    }
    return lines;
  }

  // What a program sees that `run` starts.
  Variables launched() { return boardVariables(ovxid({"run", "env", "-0"}).out); }
};

TEST_F(Formats, NullHasWhatALaunchedProgramSees) {
  const Outcome outcome = ovxid({"list", "--format", "null"});
  EXPECT_EQ(boardVariables(outcome.out), launched());
  EXPECT_EQ(boardVariables(outcome.out).size(), 11);
  EXPECT_EQ(outcome.status, 0);
}

TEST_F(Formats, NullEndsEachVariableWithANul) {
  Board board;
  board.property("wifi", "yes");
  EXPECT_EQ(ovxid({"list", "--format", "null"}).out, bytes("OVX_WIFI=yes\0"));
}

struct ShellCase {
  const char* name;
  Arguments words;
};

void PrintTo(const ShellCase& shell, std::ostream* out) {
  *out << testing::PrintToString(shell.words);
}

class Shell : public Formats, public testing::WithParamInterface<ShellCase> {};

TEST_P(Shell, EvaluatesTheListingToWhatALaunchedProgramSees) {
  // A leak checker would look in vain for a process of the shell in the board's /proc.
  Arguments arguments{"run", "env", "-i", "PATH=/usr/bin:/bin", "ASAN_OPTIONS=detect_leaks=0"};
  arguments.insert(arguments.end(), GetParam().words.begin(), GetParam().words.end());
  arguments.insert(arguments.end(),
                   {"-c", "eval \"$(\"$0\" list --format shell)\" && exec env -0", OVXID_CLI});
  const Outcome outcome = ovxid(arguments);
  EXPECT_EQ(boardVariables(outcome.out), launched());
  EXPECT_EQ(outcome.err, "");
}

INSTANTIATE_TEST_SUITE_P(Of, Shell,
                         testing::Values(ShellCase{"Dash", {"dash"}}, ShellCase{"Bash", {"bash"}},
                                         ShellCase{"BashAsSh", {"bash", "--posix"}},
                                         ShellCase{"Busybox", {"busybox", "sh"}}),
                         [](const auto& test) { return test.param.name; });

TEST_F(Formats, ShellNamesInACommentWhatIsNoNameOfAVariable) {
  Board board;
  board.property("gpio-1", "a").property("#size", "b").property("reg\x1b\xff", "c");
  const std::string why = " is left out: no shell has a variable of this name";
  EXPECT_EQ(lines("shell"),
            (Lines{"# OVX_GPIO-1" + why, "# OVX_#SIZE" + why, "# OVX_REG\\x1b\\xff" + why}));
}

TEST_F(Formats, SystemdQuotesWhatItWouldChange) {
  Board board;
  board.property("a", "$HOME `id` \"x\" 'y' \\ %n !  ").property("b", bytes("a\tb\0c"));
  EXPECT_EQ(lines("systemd"),
            (Lines{R"(OVX_A="\$HOME \`id\` \"x\" 'y' \\ %n !  ")", "OVX_B=\"a\tb\""}));
}

TEST_F(Formats, SystemdTakesControlCharacters) {
  Board board;
  board.property("control", "a\x01\x1b\r\x7f");
  EXPECT_EQ(lines("systemd"), Lines{"OVX_CONTROL=\"a\x01\x1b\r\x7f\""});
}

TEST_F(Formats, SystemdNamesInACommentWhatItDoesNotTake) {
  Board board;
  board.property("gpio-1", "a")
      .property("name\\", "b")
      .property("latin", "\xe4")
      .property("none", "\xef\xbf\xbe")
      .property("last", "\xf4\x8f\xbf\xbf")
      .property("arabic", "\xef\xb7\x90")
      .property("before", "\xef\xb7\x8f")
      .property("behind", "\xef\xb7\xb0")
      .property("replacement", "\xef\xbf\xbd")
      .property("plane", "\xf0\x9e\xbf\xbe");
  const std::string name = " is left out: systemd takes no variable of this name";
  const std::string value = " is left out: systemd takes no value with these bytes";
  EXPECT_EQ(lines("systemd"),
            (Lines{"# OVX_GPIO-1" + name, "# OVX_NAME\\\\" + name, "# OVX_LATIN" + value,
                   "# OVX_NONE" + value, "# OVX_LAST" + value, "# OVX_ARABIC" + value,
                   "OVX_BEFORE=\"\xef\xb7\x8f\"", "OVX_BEHIND=\"\xef\xb7\xb0\"",
                   "OVX_REPLACEMENT=\"\xef\xbf\xbd\"", "OVX_PLANE=\"\xf0\x9e\xbf\xbe\""}));
}

TEST_F(Formats, PrometheusHasMetricsOfAnIdentifiedBoard) {
  Board board;
  board.property("boardid", "7").property("description", "A \"Field\\Node\"");
  EXPECT_EQ(
      lines("prometheus"),
      (Lines{"# HELP ovxid_identified Whether the board is identified.",
             "# TYPE ovxid_identified gauge", "ovxid_identified 1",
             "# HELP ovxid_board_info The identity of the board.", "# TYPE ovxid_board_info gauge",
             R"(ovxid_board_info{name="A \"Field\\Node\"",number="7",source="device-tree"} 1)",
             "# HELP ovxid_parameter_info The board parameters that are text.",
             "# TYPE ovxid_parameter_info gauge",
             R"(ovxid_parameter_info{name="OVX_ID",value="7"} 1)",
             R"(ovxid_parameter_info{name="OVX_DESC",value="A \"Field\\Node\""} 1)",
             R"(ovxid_parameter_info{name="OVX_BOARDID",value="7"} 1)",
             R"(ovxid_parameter_info{name="OVX_DESCRIPTION",value="A \"Field\\Node\""} 1)"}));
}

TEST_F(Formats, PrometheusSaysThatABoardIsNotIdentified) {
  const Board board;
  const Lines metrics = lines("prometheus");
  EXPECT_EQ(metrics.count("ovxid_identified 0"), 1);
  EXPECT_EQ(metrics.count(R"(ovxid_board_info{name="Unknown",number="-1",source=""} 1)"), 1);
}

TEST_F(Formats, PrometheusEscapesANameThatIsNoText) {
  Board board;
  board.property("boardid", "7").property("description", "F\xe4ld");
  EXPECT_EQ(lines("prometheus")
                .count(R"(ovxid_board_info{name="F\\xe4ld",number="7",source="device-tree"} 1)"),
            1);
}

TEST_F(Formats, PrometheusEscapesANewlineInAName) {
  Board board;
  board.property("a\nb", "c");
  EXPECT_EQ(lines("prometheus").count(R"(ovxid_parameter_info{name="OVX_A\nB",value="c"} 1)"), 1);
}

TEST_F(Formats, PrometheusLeavesOutWhatIsNoText) {
  Board board;
  board.property("latin", "\xe4").property("n\xe4me", "a");
  EXPECT_THAT(lines("prometheus"),
              testing::Not(testing::Contains(testing::StartsWith("ovxid_parameter_info"))));
}

}  // namespace
