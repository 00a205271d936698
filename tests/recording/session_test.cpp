#include "recording/session.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <system_error>

#include "simulation/descriptors.h"

namespace {

using ovxid::recording::escaped;
using ovxid::recording::outcomeOf;
using ovxid::recording::session;

TEST(Escapes, LeaveWhatShows) { EXPECT_EQ(escaped("Kestrel #1 (Rev B)"), "Kestrel #1 (Rev B)"); }

TEST(Escapes, BeginBelowTheBlankAndBehindTheTilde) {
  EXPECT_EQ(escaped("\x1f ~\x7f"), "\\x1f ~\\x7f");
}

TEST(Escapes, StandForWhatDoesNotShow) {
  EXPECT_EQ(escaped(std::string("\0\t\n\\\xe4\x7f", 6)), "\\x00\\t\\x0a\\\\\\xe4\\x7f");
}

TEST(Session, HasEachLineBehindItsMark) {
  EXPECT_EQ(session("ovxid list", {3, "a\n\nb \n", "c\n"}),
            "$ ovxid list\nout| a\nout|\nout| b\\x20\nerr| c\nexit 3\n");
}

TEST(Session, MarksAMissingNewline) {
  EXPECT_EQ(session("x", {0, "a", ""}), "$ x\nout| a\\\nexit 0\n");
}

class OutcomeOf : public testing::Test {
 protected:
  // What the test framework has said before is no part of it.
  OutcomeOf() { std::fflush(stdout); }
};

TEST_F(OutcomeOf, AProcessHasWhatItWroteAndItsStatus) {
  const ovxid::recording::Outcome outcome = outcomeOf([] {
    std::cerr << "err";
    return write(STDOUT_FILENO, "out", 3) == 3 ? 42 : 1;
  });
  EXPECT_EQ(outcome.status, 42);
  EXPECT_EQ(outcome.out, "out");
  EXPECT_EQ(outcome.err, "err");
}

TEST_F(OutcomeOf, AKilledProcessHasTheNumberOfTheSignal) {
  EXPECT_EQ(outcomeOf([] { return std::raise(SIGKILL); }).status, 128 + SIGKILL);
}

TEST_F(OutcomeOf, AnExceptionEndsTheProcess) {
  EXPECT_EQ(outcomeOf([]() -> int { throw std::runtime_error("x"); }).status, 128 + SIGABRT);
}

// UndefinedBehaviorSanitizer opens descriptors when it first meets a type of objects.
TEST_F(OutcomeOf, NoDescriptorStaysOpenWhenThereAreTooFew) {
  const std::system_error knownToTheSanitizer(EMFILE, std::generic_category(), "");
  const std::ptrdiff_t before = openDescriptors();
  for (const int free : {0, 1, 2}) {
    const FreeDescriptors few(free);
    EXPECT_THROW(outcomeOf([] { return 0; }), std::system_error) << free;
  }
  EXPECT_EQ(openDescriptors(), before);
}

TEST_F(OutcomeOf, ALargeOutputIsComplete) {
  const std::string text(1000000, 'a');
  const ovxid::recording::Outcome outcome = outcomeOf([&] {
    return write(STDOUT_FILENO, text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? 0
                                                                                               : 1;
  });
  EXPECT_EQ(outcome.out, text);
}

}  // namespace
