#include <filesystem>

#include "cli/front_end.h"

namespace {

constexpr const char* refusedObject = "refused: object\n";
constexpr const char* refusedLibrary = "refused: library\n";
constexpr const char* complaint = "ovxid: memory: Cannot allocate memory\n";

bool takeOut(std::string& text, const std::string& part) {
  const auto position = text.find(part);
  if (position == std::string::npos) {
    return false;
  }
  text.erase(position, part.size());
  return true;
}

bool isBeginningInWholeLines(const std::string& beginning, const std::string& text) {
  return text.compare(0, beginning.size(), beginning) == 0 &&
         (beginning.empty() || beginning.back() == '\n');
}

void expectComplaint(Outcome outcome, const Outcome& normal) {
  EXPECT_EQ(outcome.status, 125);
  EXPECT_TRUE(takeOut(outcome.err, complaint));
  EXPECT_TRUE(isBeginningInWholeLines(outcome.err, normal.err)) << outcome.err;
  EXPECT_TRUE(isBeginningInWholeLines(outcome.out, normal.out)) << outcome.out;
}

class Memory : public FrontEnd {
 protected:
  Memory() {
    mBoard.catalogue("Field Node of the Second Series:3:fn1\n")
        .cpuinfo("Hardware\t: Field Node of the Second Series\n");
  }

  // Runs the front end once for each of its allocations, with that one refused.
  void runOut(const Arguments& arguments) {
    const Outcome normal = ovxid(arguments);
    int number = 1;
    while (isTriedWithout(number, arguments, normal)) {
      ++number;
    }
    EXPECT_GT(number, 1);
  }

 private:
  // False when there is no such allocation, or when it was enough to see that one.
  bool isTriedWithout(int number, const Arguments& arguments, const Outcome& normal) {
    SCOPED_TRACE("allocation " + std::to_string(number));
    refusesAllocation(number);
    Outcome outcome = ovxid(arguments);
    if (takeOut(outcome.err, refusedObject)) {
      expectComplaint(outcome, normal);
      return !HasFailure();
    }
    const bool refused = takeOut(outcome.err, refusedLibrary);
    if (refused && outcome.status == 125) {
      expectComplaint(outcome, normal);
    } else {
      EXPECT_EQ(outcome, normal);
    }
    return refused && !HasFailure();
  }
};

}  // namespace

TEST_F(Memory, RunsOutBeforeAListing) { runOut({"-v", "list"}); }

TEST_F(Memory, RunsOutBeforeTheEnvironmentIsPrinted) { runOut({"list", "--format", "shell"}); }

TEST_F(Memory, RunsOutBeforeAFileIsWrittenAndLeavesNothingBesideIt) {
  mBoard.file("/proc/out/listing", "old\n");
  runOut({"list", "--output", "/proc/out/listing"});
  const std::filesystem::directory_iterator files("/proc/out");
  EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(Memory, RunsOutBeforeAHelpText) { runOut({"help", "list"}); }

TEST_F(Memory, RunsOutBeforeAnExplanation) { runOut({"explain"}); }

TEST_F(Memory, RunsOutBeforeACatalogueIsChecked) {
  mBoard.file("/proc/in/a", "Field Node:0x3:fn1\nField Node\n");
  runOut({"check", "/proc/in/a"});
}

TEST_F(Memory, RunsOutBeforeABoardIsRecorded) { runOut({"record"}); }

TEST_F(Memory, RunsOutBeforeARecordedBoardIsAsked) {
  mBoard.file("/proc/in/a", R"({"format": 1, "ovxid": "1.1.0", "release": "5.10-fn1",
      "machine": "armv7l", "device_tree": false, "cpuinfo": "Hardware\t: a\n",
      "catalogue": "Field Node of the Second Series:3:fn1\n", "interfaces": [],
      "interface_room": 25})");
  ASSERT_EQ(ovxid({"number", "--board", "/proc/in/a"}), (Outcome{0, "3\n", ""}));
  runOut({"number", "--board", "/proc/in/a"});
}

TEST_F(Memory, RunsOutBeforeJson) { runOut({"list", "--format", "json"}); }

TEST_F(Memory, RunsOutBeforeALaunch) { runOut({"run", "/nowhere/a-program-that-is-not-there"}); }

TEST_F(Memory, RunsOutBeforeAComplaintAboutTheCommandLine) {
  runOut({"a-command-that-nobody-knows"});
}

TEST_F(Memory, RunsOutBeforeAComplaintAboutTheBoard) {
  mBoard.cpuinfo("Hardware:\n");
  runOut({"list"});
}
