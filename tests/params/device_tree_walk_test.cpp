#include <ftw.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <locale>
#include <sstream>
#include <stdexcept>

#include "simulation/board.h"
#include "simulation/descriptors.h"
#include "simulation/locale.h"
#include "simulation/privileges.h"

namespace {

int walk(OvxIdentifier& identifier, std::string directory = nodePath) {
  return OvxDTParser::parse(&identifier, directory.data());
}

// The lines of the listing, sorted, because the order of files in a directory is not fixed.
std::vector<std::string> linesOf(OvxIdentifier& identifier) {
  std::istringstream text(listing(identifier));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) {
    lines.push_back(line);
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

using Lines = std::vector<std::string>;

struct PropertyCase {
  const char* name;
  std::string path;
  std::string content;
  std::string parameter;
};

void PrintTo(const PropertyCase& property, std::ostream* out) { *out << property.path; }

class Property : public testing::TestWithParam<PropertyCase> {};

TEST_P(Property, BecomesAParameter) {
  Board board;
  board.property(GetParam().path, GetParam().content);
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), GetParam().parameter + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Case, Property,
    testing::Values(
        PropertyCase{"Boardid", "boardid", bytes("7\0"), bytes("OVX_BOARDID=7\0")},
        PropertyCase{"Description", "description", bytes("Tessaryn TQB\0"),
                     bytes("OVX_DESCRIPTION=Tessaryn TQB\0")},
        PropertyCase{"Wan", "wan", bytes("eth0\0"), bytes("OVX_WAN=eth0\0")},
        PropertyCase{"StringListOfAChild", "child/compatible", bytes("a,b\0c,d\0"),
                     bytes("OVX_COMPATIBLE=a,b\0c,d\0")},
        PropertyCase{"Cell", "#address-cells", bytes("\0\0\0\1"),
                     bytes("OVX_#ADDRESS-CELLS=\0\0\0\1")},
        PropertyCase{"CellHoldingTen", "ten", bytes("\0\0\0\n"), bytes("OVX_TEN=\0\0\0")},
        PropertyCase{"CellsCutAtTheFirstTen", "cells", bytes("\0\0\1\0\0\n\2\3"),
                     bytes("OVX_CELLS=\0\0\1\0\0")},
        PropertyCase{"Boolean", "wifi", "", "OVX_WIFI="},
        PropertyCase{"FirstByteANewline", "odd", "\nsecond", "OVX_ODD="},
        PropertyCase{"SeveralLinesAsTheFirst", "lines", "one\ntwo\n", "OVX_LINES=one"},
        PropertyCase{"WithoutANewlineWhole", "text", "one two", "OVX_TEXT=one two"},
        PropertyCase{"BlanksAndCarriageReturnKept", "blanks", " a \r\n", "OVX_BLANKS= a \r"},
        PropertyCase{"HighBytesKept", "high", "\xff\x80\x7f", "OVX_HIGH=\xff\x80\x7f"},
        PropertyCase{"OfAGrandchildNamedByItselfAlone", "child/grandchild/port", "1", "OVX_PORT=1"},
        PropertyCase{"NameInCapitalsNotSkipped", "NAME", "x", "OVX_NAME=x"},
        PropertyCase{"NameCapitalisedNotSkipped", "Name", "x", "OVX_NAME=x"},
        PropertyCase{"LongerThanNameNotSkipped", "names", "x", "OVX_NAMES=x"},
        PropertyCase{"EndingInNameNotSkipped", "hostname", "x", "OVX_HOSTNAME=x"},
        PropertyCase{"PunctuationAndDigitsKept", "a-b,c#d.e+f_g@9", "x", "OVX_A-B,C#D.E+F_G@9=x"},
        PropertyCase{"LettersBeyondAsciiKept", "gr\xc3\xbc\xc3\x9f", "x",
                     "OVX_GR\xc3\xbc\xc3\x9f=x"}),
    [](const auto& test) { return test.param.name; });

TEST(DeviceTreeWalk, SkipsTheNameOfTheNode) {
  Board board;
  board.property("name", bytes("orvanix\0"));
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "");
}

TEST(DeviceTreeWalk, SkipsTheNameOfEachChildNodeAtAnyDepth) {
  Board board;
  board.property("child/name", "child").property("child/grandchild/name", "grandchild");
  board.property("a/b/c/d/e/f/name", "f");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "");
}

TEST(DeviceTreeWalk, EntersAChildNodeCalledName) {
  Board board;
  board.property("name/port", "1");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "OVX_PORT=1\n");
}

TEST(DeviceTreeWalk, GivesAnEmptyValueForAPropertyThatOpensAndCannotBeRead) {
  Board board;
  board.link("broken", "/proc/self/mem");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "OVX_BROKEN=\n");
}

TEST(DeviceTreeWalk, OfAnEmptyNodeSucceedsAndAddsNothing) {
  Board board;
  board.node();
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "");
}

TEST(DeviceTreeWalk, AddsTheSamePropertyOfTwoChildNodesTwice) {
  Board board;
  board.property("one/port", "1").property("two/port", "2");
  OvxIdentifier identifier(nullptr);
  walk(identifier);
  EXPECT_EQ(linesOf(identifier), (Lines{"OVX_PORT=1", "OVX_PORT=2"}));
}

TEST(DeviceTreeWalk, FollowsTheOrderOfTheDirectory) {
  Board board;
  std::string expected;
  for (const char* name : {"b", "a", "d", "c"}) {
    board.property(name, name);
  }
  for (const auto& entry : std::filesystem::directory_iterator(nodePath)) {
    const std::string name = entry.path().filename();
    expected += std::string("OVX_") + static_cast<char>(std::toupper(name[0])) + "=" + name + "\n";
  }
  OvxIdentifier identifier(nullptr);
  walk(identifier);
  EXPECT_EQ(listing(identifier), expected);
}

TEST(DeviceTreeWalk, MeetsThePropertiesOfAChildWhereTheChildStands) {
  Board board;
  board.property("a", "1").property("child/b", "2").property("c", "3");
  std::string expected;
  for (const auto& entry : std::filesystem::directory_iterator(nodePath)) {
    const std::string name = entry.path().filename();
    expected += name == "a" ? "OVX_A=1\n" : name == "c" ? "OVX_C=3\n" : "OVX_B=2\n";
  }
  OvxIdentifier identifier(nullptr);
  walk(identifier);
  EXPECT_EQ(listing(identifier), expected);
}

TEST(DeviceTreeWalk, NamesALinkToAFileAfterTheLink) {
  Board board;
  board.property("target", "first\nsecond").link("alias", "target");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(linesOf(identifier), (Lines{"OVX_ALIAS=first", "OVX_TARGET=first"}));
}

TEST(DeviceTreeWalk, SkipsALinkNamedName) {
  Board board;
  board.property("target", "x").link("name", "target");
  OvxIdentifier identifier(nullptr);
  walk(identifier);
  EXPECT_EQ(linesOf(identifier), (Lines{"OVX_TARGET=x"}));
}

TEST(DeviceTreeWalk, AddsNothingForADanglingLink) {
  Board board;
  board.link("dangling", "nowhere").property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(linesOf(identifier), (Lines{"OVX_WIFI=yes"}));
}

TEST(DeviceTreeWalk, FollowsALinkToADirectory) {
  Board board;
  board.directory("/proc/elsewhere").link("child", "/proc/elsewhere");
  std::filesystem::copy_file("/proc/self/comm", "/proc/elsewhere/process");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier).rfind("OVX_PROCESS=", 0), 0U) << listing(identifier);
}

TEST(DeviceTreeWalk, OfAMissingDirectoryFailsAndAddsNothing) {
  Board board;
  OvxIdentifier identifier(nullptr);
  errno = 0;
  EXPECT_EQ(walk(identifier), -1);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(listing(identifier), "");
}

TEST(DeviceTreeWalk, OfAMissingDirectoryStillSetsItsTarget) {
  Board board;
  OvxIdentifier identifier(nullptr);
  OvxDTParser::mOVxId = nullptr;
  walk(identifier);
  EXPECT_EQ(OvxDTParser::mOVxId, &identifier);
}

TEST(DeviceTreeWalk, KeepsItsTargetUntilTheNextWalk) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier first(nullptr);
  OvxIdentifier second(nullptr);
  walk(first);
  EXPECT_EQ(OvxDTParser::mOVxId, &first);
  walk(second);
  EXPECT_EQ(OvxDTParser::mOVxId, &second);
  EXPECT_EQ(listing(first), "OVX_WIFI=yes\n");
  EXPECT_EQ(listing(second), "OVX_WIFI=yes\n");
}

TEST(DeviceTreeWalk, HasNoTargetBeforeTheFirstOne) {
  // A new process checks this, because an earlier test may have walked in this one.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(std::exit(OvxDTParser::mOVxId == nullptr ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(DeviceTreeWalk, OfAnUnreadableStartDirectorySucceedsAndAddsNothing) {
  Board board;
  board.property("wifi", "yes").permissions(nodePath, 0);
  OvxIdentifier identifier(nullptr);
  const DroppedPrivileges dropped;
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "");
}

TEST(DeviceTreeWalk, PassesOverAnUnreadableChild) {
  Board board;
  board.property("wifi", "yes").property("child/port", "1");
  board.permissions(std::string(nodePath) + "/child", 0);
  OvxIdentifier identifier(nullptr);
  const DroppedPrivileges dropped;
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\n");
}

TEST(DeviceTreeWalk, AddsNothingForEntriesWithoutAReadableStatus) {
  Board board;
  board.property("wifi", "yes").property("child/port", "1");
  board.permissions(std::string(nodePath) + "/child", 0444);
  OvxIdentifier identifier(nullptr);
  const DroppedPrivileges dropped;
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\n");
}

TEST(DeviceTreeWalk, PassesOverANodeThatMayNotBeReadWhenParametersAreCollected) {
  Board board;
  board.property("closed/secret", "x").property("wifi", "yes");
  board.permissions(std::string(nodePath) + "/closed", 0);
  OvxIdentifier identifier(nullptr);
  const DroppedPrivileges dropped;
  identifier.parse_params();
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\n");
}

TEST(DeviceTreeWalk, GivesAnEmptyValueForAPropertyThatMayNotBeRead) {
  Board board;
  board.property("secret", "x").permissions(std::string(nodePath) + "/secret", 0);
  OvxIdentifier identifier(nullptr);
  const DroppedPrivileges dropped;
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(listing(identifier), "OVX_SECRET=\n");
}

TEST(DeviceTreeWalk, ReachesEveryDepthWithTenDirectoriesOpen) {
  // The walk asks the locale for the upper case of a name. At that moment the locale counts.
  static std::ptrdiff_t open = 0;
  struct Counting : std::ctype<char> {
    char do_toupper(char byte) const override {
      open = openDescriptors();
      return byte;
    }
  };
  Board board;
  std::string path;
  for (int depth = 0; depth < 40; ++depth) {
    path += "n/";
  }
  board.property(path + "deep", "1");
  OvxIdentifier identifier(nullptr);
  const auto before = openDescriptors();
  const std::locale locale = std::locale::global({std::locale::classic(), new Counting});
  const int result = walk(identifier);
  std::locale::global(locale);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(listing(identifier), "OVX_deep=1\n");
  EXPECT_EQ(open - before, 10);
}

TEST(DeviceTreeWalk, LeavesTheWorkingDirectoryAloneWhileItReads) {
  Board board;
  board.property("child/port", "1");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path("/proc/device-tree");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier, "orvanix"), 0);
  std::filesystem::current_path(before);
  EXPECT_EQ(listing(identifier), "OVX_PORT=1\n");
}

TEST(DeviceTreeWalk, CrossesMounts) {
  Board board;
  board.property("wifi", "yes").childNode("child");
  const ReplacedDirectory child(std::string(nodePath) + "/child");
  board.property("child/port", "1");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(walk(identifier), 0);
  EXPECT_EQ(linesOf(identifier), (Lines{"OVX_PORT=1", "OVX_WIFI=yes"}));
}

TEST(DeviceTreeWalk, UpperCasesAsTheLocaleOfTheProcessDoes) {
  Board board;
  board.property("a-b", "1");
  OvxIdentifier identifier(nullptr);
  const UpperCaseLocale locale('-', '_');
  walk(identifier);
  EXPECT_EQ(listing(identifier), "OVX_a_b=1\n");
}

TEST(DeviceTreeWalk, UpperCasesAsTheLocaleOfTheProcessDoesByThen) {
  Board board;
  board.property("a-b", "1");
  OvxIdentifier before(nullptr);
  walk(before);
  OvxIdentifier identifier(nullptr);
  const UpperCaseLocale locale('-', '_');
  walk(identifier);
  EXPECT_EQ(listing(identifier), "OVX_a_b=1\n");
}

// An upper case that cannot be had, and how often it was asked for.
struct NoUpperCase : std::ctype<char> {
  explicit NoUpperCase(int& asked) : mAsked(asked) {}
  char do_toupper(char /*byte*/) const override {
    ++mAsked;
    throw std::range_error("no upper case");
  }
  int& mAsked;
};

TEST(DeviceTreeWalk, EndsWithWhatItThrowsAndLeavesNoDirectoryOpen) {
  Board board;
  board.property("child/port", "1").property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  const auto before = openDescriptors();
  int asked = 0;
  const std::locale locale = std::locale::global({std::locale::classic(), new NoUpperCase(asked)});
  EXPECT_THROW(walk(identifier), std::range_error);
  std::locale::global(locale);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(openDescriptors(), before);
  EXPECT_EQ(listing(identifier), "");
  EXPECT_EQ(walk(identifier), 0);
}

TEST(DeviceTreeWalk, PutsThePrefixAsItIsBeforeTheUpperCase) {
  Board board;
  board.property("V", "1");
  OvxIdentifier identifier(nullptr);
  const UpperCaseLocale locale('V', 'W');
  walk(identifier);
  EXPECT_EQ(listing(identifier), "OVX_W=1\n");
}

TEST(DeviceTreeWalk, GivesAnEmptyValueForAPropertyThatFindsNoFreeDescriptor) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  walk(identifier);
  {
    const FreeDescriptors forTheDirectory(1);
    EXPECT_EQ(walk(identifier), 0);
  }
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\nOVX_WIFI=\n");
}

TEST(DeviceTreeWalk, FailsWhenTheNodeFindsNoFreeDescriptor) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  {
    const FreeDescriptors none(0);
    EXPECT_EQ(walk(identifier), -1);
  }
  EXPECT_EQ(listing(identifier), "");
}

TEST(DeviceTreeWalk, LogsNothing) {
  Board board;
  board.property("wifi", "yes").link("dangling", "nowhere");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messagesOf([&] { walk(identifier); }), Messages{});
}

struct TypeCase {
  const char* name;
  int type;
};

void PrintTo(const TypeCase& type, std::ostream* out) { *out << type.name; }

class EntryThatIsNoFile : public testing::TestWithParam<TypeCase> {};

TEST_P(EntryThatIsNoFile, YieldsNothing) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  OvxDTParser::mOVxId = &identifier;
  const std::string path = std::string(nodePath) + "/wifi";
  FTW position{static_cast<int>(path.rfind('/')) + 1, 1};
  EXPECT_EQ(OvxDTParser::ftw_cb(path.c_str(), nullptr, GetParam().type, &position), 0);
  EXPECT_EQ(listing(identifier), "");
}

INSTANTIATE_TEST_SUITE_P(But, EntryThatIsNoFile,
                         testing::Values(TypeCase{"ADirectory", FTW_D},
                                         TypeCase{"AnUnreadableDirectory", FTW_DNR},
                                         TypeCase{"ADirectoryAfterItsContents", FTW_DP},
                                         TypeCase{"OfUnknownStatus", FTW_NS},
                                         TypeCase{"ALink", FTW_SL},
                                         TypeCase{"ADanglingLink", FTW_SLN}),
                         [](const auto& test) { return test.param.name; });

TEST(WalkedEntry, IsNamedByThePathFromItsBaseOn) {
  Board board;
  board.property("child/wifi", "yes");
  OvxIdentifier identifier(nullptr);
  OvxDTParser::mOVxId = &identifier;
  const std::string directory = std::string(nodePath) + "/";
  FTW position{static_cast<int>(directory.size()), 2};
  EXPECT_EQ(OvxDTParser::ftw_cb((directory + "child/wifi").c_str(), nullptr, FTW_F, &position), 0);
  EXPECT_EQ(listing(identifier), "OVX_CHILD/WIFI=yes\n");
}

TEST(WalkedEntry, ThatIsGoneTakesNoValueOfTheEntryBefore) {
  Board board;
  board.property("wifi", "yes");
  OvxIdentifier identifier(nullptr);
  OvxDTParser::mOVxId = &identifier;
  const std::string path = std::string(nodePath) + "/wifi";
  FTW position{static_cast<int>(path.rfind('/')) + 1, 1};
  OvxDTParser::ftw_cb(path.c_str(), nullptr, FTW_F, &position);
  board.remove(path);
  OvxDTParser::ftw_cb(path.c_str(), nullptr, FTW_F, &position);
  EXPECT_EQ(listing(identifier), "OVX_WIFI=yes\nOVX_WIFI=\n");
}

TEST(WalkedEntry, ThatIsGoneWhenItIsOpenedGivesAnEmptyValue) {
  Board board;
  OvxIdentifier identifier(nullptr);
  OvxDTParser::mOVxId = &identifier;
  FTW position{1, 1};
  EXPECT_EQ(OvxDTParser::ftw_cb("/gone", nullptr, FTW_F, &position), 0);
  EXPECT_EQ(listing(identifier), "OVX_GONE=\n");
}

}  // namespace
