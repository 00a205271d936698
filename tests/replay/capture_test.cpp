#include "replay/capture.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdio>
#include <iostream>
#include <stdexcept>

#include "replay/failure.h"
#include "simulation/descriptors.h"

namespace {

using ovxid::recording::Said;
using ovxid::replay::captured;
using ovxid::replay::Failure;

class Captured : public testing::Test {
 protected:
  // What the test framework has said before is no part of it.
  Captured() { std::fflush(stdout); }
};

TEST_F(Captured, AProcessHasWhatItWroteAndItsStatus) {
  const Said said = captured([] {
    std::cerr << "err";
    return write(STDOUT_FILENO, "out", 3) == 3 ? 42 : 1;
  });
  EXPECT_EQ(said.status, 42);
  EXPECT_EQ(said.out, "out");
  EXPECT_EQ(said.err, "err");
}

TEST_F(Captured, AKilledProcessHasTheNumberOfTheSignal) {
  EXPECT_EQ(captured([] { return std::raise(SIGKILL); }).status, 128 + SIGKILL);
}

TEST_F(Captured, AnExceptionEndsTheProcess) {
  EXPECT_EQ(captured([]() -> int { throw std::runtime_error("x"); }).status, 128 + SIGABRT);
}

// UndefinedBehaviorSanitizer opens descriptors when it first meets a type of objects.
TEST_F(Captured, NoDescriptorStaysOpenWhenThereAreTooFew) {
  const Failure knownToTheSanitizer("", "");
  const std::ptrdiff_t before = openDescriptors();
  for (const int free : {0, 1}) {
    const FreeDescriptors few(free);
    EXPECT_THROW(captured([] { return 0; }), Failure) << free;
  }
  EXPECT_EQ(openDescriptors(), before);
}

TEST_F(Captured, ALargeOutputIsComplete) {
  const std::string text(1000000, 'a');
  const Said said = captured([&] {
    return write(STDOUT_FILENO, text.data(), text.size()) == static_cast<ssize_t>(text.size()) ? 0
                                                                                               : 1;
  });
  EXPECT_EQ(said.out, text);
}

}  // namespace
