#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/builtin_messages.h"
#include "simulation/board.h"
#include "simulation/descriptors.h"
#include "simulation/privileges.h"

using log4cpp::Priority;

namespace {

const Messages opening = {
    debug("Creating OvxIdentifier..."), debug("Finding list of known identities..."),
    debug("Opened file /etc/known_ovx_ids, now reading known hardware identites")};

Message rejected(const std::string& line) {
  return warn("The line:'" + line +
              "' is not valid known board identification description line (it must contain at "
              "least two colon separated values)");
}

// The names of the catalogue in their order. A search that finds nothing logs all of them.
std::vector<std::string> namesSearched(Board& board, OvxIdentifier& identifier) {
  board.kernelRelease("5.10.0-no such alias");
  const std::string beginning = "Searching known aliases of ";
  std::vector<std::string> names;
  for (const Message& message : board.messagesOf([&] { identifier.determineIdentity(); })) {
    if (message.text.rfind(beginning, 0) == 0) {
      const std::string name = message.text.substr(beginning.size());
      names.push_back(name.substr(0, name.size() - std::string("...").size()));
    }
  }
  return names;
}

using Names = std::vector<std::string>;

TEST(CatalogueFile, ThatIsMissingIsReplacedByThreeBuiltInBoards) {
  Board board;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(
      board.messages(),
      (Messages{debug("Creating OvxIdentifier..."), debug("Finding list of known identities..."),
                warn("No /etc/known_ovx_ids, using default known hardware identities"),
                debug("Known Hardware description: Tessaryn TQBLITE = 1"),
                debug("Known Hardware description: Tessaryn TQB = 2"),
                debug("Known Hardware description: Orvanix Starter Kit = 3")}));
  EXPECT_EQ(namesSearched(board, identifier),
            (Names{"Tessaryn TQBLITE", "Tessaryn TQB", "Orvanix Starter Kit"}));
}

constexpr const char* builtinTableAsFile =
    "Tessaryn TQBLITE:1:tqblite\n"
    "Tessaryn TQB:2:tqb\n"
    "Orvanix Starter Kit:3:ostart:Tessaryn Orvanix Starter Kit\n";

struct BuiltinCase {
  const char* name;
  const char* alias;
  const char* boardName;
  const char* number;
  const char* aliases;
};

void PrintTo(const BuiltinCase& builtin, std::ostream* out) { *out << builtin.alias; }

class BuiltIn : public testing::TestWithParam<BuiltinCase> {
 protected:
  void expectToBeFound(Board& board) {
    board.kernelRelease(std::string("5.10.0-") + GetParam().alias);
    OvxIdentifier identifier(board.logger());
    EXPECT_TRUE(identifier.determineIdentity());
    EXPECT_EQ(
        board.messagesOf([&] { identifier.logFullId(Priority::INFO); }),
        (Messages{info("Full identity: "), info(std::string("Real name: ") + GetParam().boardName),
                  info(std::string("Hardware number: ") + GetParam().number),
                  info(std::string("Aliases: ") + GetParam().aliases)}));
  }
};

TEST_P(BuiltIn, BoardIsFoundByItsAlias) {
  Board board;
  expectToBeFound(board);
}

TEST_P(BuiltIn, BoardIsFoundInAFileOfTheSameContent) {
  Board board;
  board.catalogue(builtinTableAsFile);
  expectToBeFound(board);
}

INSTANTIATE_TEST_SUITE_P(
    Row, BuiltIn,
    testing::Values(BuiltinCase{"One", "tqblite", "Tessaryn TQBLITE", "1", "tqblite "},
                    BuiltinCase{"Two", "tqb", "Tessaryn TQB", "2", "tqb "},
                    BuiltinCase{"ThreeByItsFirstAlias", "ostart", "Orvanix Starter Kit", "3",
                                "ostart Tessaryn Orvanix Starter Kit "},
                    BuiltinCase{"ThreeByItsSecondAlias", "Tessaryn Orvanix Starter Kit",
                                "Orvanix Starter Kit", "3",
                                "ostart Tessaryn Orvanix Starter Kit "}),
    [](const auto& test) { return test.param.name; });

TEST(CatalogueFile, LoadsItsLinesInOrder) {
  Board board;
  board.catalogue("Field Node:3:fn1\nBench Unit:9:bu\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), opening +
                                  debug("Found hardware identity: Board number 3(Field Node)") +
                                  debug("Found hardware identity: Board number 9(Bench Unit)"));
  EXPECT_EQ(namesSearched(board, identifier), (Names{"Field Node", "Bench Unit"}));
}

TEST(CatalogueFile, ThatIsEmptyReplacesTheBuiltInTable) {
  Board board;
  board.catalogue("");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), opening);
  EXPECT_EQ(namesSearched(board, identifier), Names{});
}

TEST(CatalogueFile, OfOneRejectedLineReplacesTheBuiltInTable) {
  Board board;
  board.catalogue("Field Node\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), opening + rejected("Field Node"));
  EXPECT_EQ(namesSearched(board, identifier), Names{});
}

TEST(CatalogueFile, WithABlankLineWarnsAndLoadsTheOthers) {
  Board board;
  board.catalogue("Field Node:3\n\nBench Unit:9\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(),
            opening + debug("Found hardware identity: Board number 3(Field Node)") + rejected("") +
                debug("Found hardware identity: Board number 9(Bench Unit)"));
  EXPECT_EQ(namesSearched(board, identifier), (Names{"Field Node", "Bench Unit"}));
}

TEST(CatalogueFile, WithABadNumberDropsThatLineAlone) {
  Board board;
  board.catalogue("Field Node:x\nBench Unit:9\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(namesSearched(board, identifier), (Names{"Bench Unit"}));
}

TEST(CatalogueFile, GivesNoLineTheAliasesOfTheOneBefore) {
  Board board;
  board.catalogue("Field Node:3:fn1\nBench Unit:9:bu\n").kernelRelease("5.10.0-bu");
  OvxIdentifier identifier(board.logger());
  identifier.getHardwareName();
  EXPECT_EQ(board.messages().back(), debug("Aliases: bu "));
}

TEST(CatalogueFile, GivesALineBeginningWithAHashNoSpecialTreatment) {
  Board board;
  board.catalogue("#Field Node:3\n# a comment\n");
  const OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), opening +
                                  debug("Found hardware identity: Board number 3(#Field Node)") +
                                  rejected("# a comment"));
}

TEST(CatalogueFile, WithTheSameLineTwiceHoldsTwoRecords) {
  Board board;
  board.catalogue("Field Node:3:fn1\nField Node:3:fn1\n");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), opening +
                                  debug("Found hardware identity: Board number 3(Field Node)") +
                                  debug("Found hardware identity: Board number 3(Field Node)"));
  EXPECT_EQ(namesSearched(board, identifier), (Names{"Field Node", "Field Node"}));
}

TEST(CatalogueFile, WithoutAFinalNewlineLoadsItsLastLine) {
  Board board;
  board.catalogue("Field Node:3\nBench Unit:9");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(namesSearched(board, identifier), (Names{"Field Node", "Bench Unit"}));
}

TEST(CatalogueFile, WithCarriageReturnsKeepsThemInTheAliases) {
  Board board;
  board.catalogue("Field Node:3:fn1\r\nBench Unit:9\r\n").kernelRelease("5.10.0-fn1\r");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), opening +
                                  debug("Found hardware identity: Board number 3(Field Node)") +
                                  debug("Found hardware identity: Board number 9\r(Bench Unit)"));
  identifier.getHardwareName();
  EXPECT_EQ(board.messages().back(), debug("Aliases: fn1\r "));
}

TEST(CatalogueFile, WithCarriageReturnsHasNoMatchingLastAlias) {
  Board board;
  board.catalogue("Field Node:3:fn1\r\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(board.logger());
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(CatalogueFile, ThatMayNotBeReadIsLikeAMissingOne) {
  Board board;
  board.catalogue("Field Node:3\n").permissions(cataloguePath, 0);
  const DroppedPrivileges dropped;
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), builtinCatalogueMessages());
  EXPECT_EQ(namesSearched(board, identifier),
            (Names{"Tessaryn TQBLITE", "Tessaryn TQB", "Orvanix Starter Kit"}));
}

TEST(CatalogueFile, ThatFindsNoFreeDescriptorIsLikeAMissingOne) {
  Board board;
  board.catalogue("Field Node:3\n");
  const OvxIdentifier before(nullptr);
  const FreeDescriptors none(0);
  const OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), builtinCatalogueMessages());
}

TEST(CatalogueFile, ThatIsADirectoryOpensAndHoldsNothing) {
  Board board;
  board.directory(cataloguePath);
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(board.messages(), opening);
  EXPECT_EQ(namesSearched(board, identifier), Names{});
}

TEST(CatalogueFile, ThatFailsInTheMiddleKeepsWhatWasReadWithoutAMessage) {
  Board board;
  std::string lines;
  for (int i = 0; i < 10000; ++i) {
    lines += "Field Node:3:an alias to fill the file with\n";
  }
  board.catalogue(lines).readFailsAfter(1);
  const OvxIdentifier identifier(board.logger());
  const auto found = static_cast<std::size_t>(
      std::count(board.messages().begin(), board.messages().end(),
                 debug("Found hardware identity: Board number 3(Field Node)")));
  EXPECT_GT(found, 0U);
  EXPECT_LT(found, 10000U);
  EXPECT_EQ(board.messages().size(), opening.size() + found);
}

TEST(CatalogueFile, ThatFailsInTheMiddleIsSearchedAsFarAsItWasRead) {
  Board board;
  board.catalogue("Bench Unit:9:bu\n" + std::string(100000, 'x')).readFailsAfter(1);
  board.kernelRelease("5.10.0-bu");
  OvxIdentifier identifier(board.logger());
  EXPECT_EQ(identifier.getHardwareNumber(), 9);
}

TEST(CatalogueFile, IsLoadedWithoutALoggerToo) {
  Board board;
  board.catalogue("Field Node:3:fn1\nrejected\n").kernelRelease("5.10.0-fn1");
  OvxIdentifier identifier(nullptr);
  EXPECT_EQ(identifier.getHardwareNumber(), 3);
}

TEST(CatalogueFile, IsNotReadAgainAfterConstruction) {
  Board board;
  board.catalogue("Field Node:3:fn1\n").kernelRelease("5.10.0-bu");
  OvxIdentifier identifier(board.logger());
  board.catalogue("Bench Unit:9:bu\n");
  EXPECT_FALSE(identifier.determineIdentity());
}

TEST(FindKnownIdentities, CalledAgainAppendsEveryRecordOfTheFileAgain) {
  Board board;
  board.catalogue("Field Node:3\nBench Unit:9\n");
  OvxIdentifier identifier(board.logger());
  identifier.findKnownIdentities();
  EXPECT_EQ(namesSearched(board, identifier),
            (Names{"Field Node", "Bench Unit", "Field Node", "Bench Unit"}));
}

TEST(FindKnownIdentities, CalledAgainAppendsTheBuiltInTableAgainWithItsMessages) {
  Board board;
  OvxIdentifier identifier(board.logger());
  const Messages first = board.messages();
  EXPECT_EQ(board.messagesOf([&] { identifier.findKnownIdentities(); }),
            Messages(first.begin() + 1, first.end()));
  EXPECT_EQ(namesSearched(board, identifier),
            (Names{"Tessaryn TQBLITE", "Tessaryn TQB", "Orvanix Starter Kit", "Tessaryn TQBLITE",
                   "Tessaryn TQB", "Orvanix Starter Kit"}));
}

}  // namespace
