#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/builtin.h"
#include "manuals/page.h"
#include "simulation/board.h"

namespace {

// A row of an example that is a table: its columns are more than one blank apart.
struct Row {
  std::string left;
  std::string right;
};

std::vector<Row> tableWith(const std::string& words) {
  std::vector<Row> rows;
  std::istringstream lines(exampleWith(words, manualPage("known_ovx_ids.5")));
  for (std::string line; std::getline(lines, line);) {
    const auto gap = line.find("  ");
    rows.push_back({line.substr(0, gap), line.substr(line.find_first_not_of(' ', gap))});
  }
  return rows;
}

std::string inOneLine(std::string text) {
  text.pop_back();
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

std::string messageWith(const std::string& words) {
  return inOneLine(exampleWith(words, manualPage("known_ovx_ids.5")));
}

TEST(CatalogueManual, ShowsTheBuiltInBoards) {
  std::string lines;
  for (const ovxid::BuiltinIdentity& known : ovxid::builtinIdentities) {
    lines.append(known.line).append("\n");
  }
  EXPECT_EQ(exampleWith("Tessaryn TQB:", manualPage("known_ovx_ids.5")), lines);
}

TEST(CatalogueManual, TellsHowNumbersAreRead) {
  const std::vector<Row> rows = tableWith("passed over");
  EXPECT_EQ(rows.size(), 12);
  OvxIdentifier identifier(nullptr);
  for (const Row& row : rows) {
    HardwareIdentity identity{};
    const bool accepted = identifier.parseIdentityLine(identity, row.left);
    EXPECT_EQ(accepted ? std::to_string(identity.number) : "passed over", row.right) << row.left;
  }
}

TEST(CatalogueManual, QuotesTheMessages) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity identity{};
  const Messages messages = board.messagesOf([&] {
    identifier.parseIdentityLine(identity, "LINE");
    identifier.parseIdentityLine(identity, "Field Node:12 mains");
  });
  EXPECT_EQ(messages, (Messages{warn(messageWith("at least two")),
                                debug(messageWith("Found hardware identity"))}));
}

TEST(CatalogueManual, QuotesTheMessageForALineWithoutANumber) {
  Board board;
  OvxIdentifier identifier(board.logger());
  HardwareIdentity identity{};
  std::string quoted = messageWith("second value needs");
  quoted.insert(quoted.find("LINE") + std::string("LINE").size(), ":x");
  EXPECT_EQ(board.messagesOf([&] { identifier.parseIdentityLine(identity, "LINE:x"); }),
            Messages{warn(quoted)});
}

// What the page says about a kernel, "release 5.10.0-fnode" or "Hardware line: Gate".
void reportAs(const std::string& kernel, Board& board) {
  const std::string release = "release ";
  const std::string hardware = "Hardware line: ";
  if (kernel.compare(0, release.size(), release) == 0) {
    board.kernelRelease(kernel.substr(release.size()));
  } else {
    board.cpuinfo("Hardware\t: " + kernel.substr(hardware.size()) + "\n");
  }
}

TEST(CatalogueManual, TellsWhichBoardsItsExampleKnows) {
  const std::vector<Row> rows = tableWith("acme");
  EXPECT_EQ(rows.size(), 8);
  for (const Row& row : rows) {
    Board board;
    board.catalogue(exampleWith("Bench:14", manualPage("known_ovx_ids.5")));
    reportAs(row.left, board);
    EXPECT_EQ(OvxIdentifier(nullptr).getHardwareName(), row.right) << row.left;
  }
}

}  // namespace
