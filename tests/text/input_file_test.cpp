#include "text/input_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <array>
#include <iostream>
#include <string>

#include "simulation/child.h"
#include "simulation/descriptors.h"
#include "simulation/kernel.h"
#include "text/memory_file.h"

using ovxid::InputFile;

namespace {

class InputFileTest : public testing::Test {
 protected:
  ~InputFileTest() override { kernel = {}; }

  std::string readPart(InputFile& file) {
    const ssize_t count = file.read(mPart.data(), mPart.size());
    return count < 0 ? "cannot be read"
                     : std::string(mPart.data(), static_cast<std::size_t>(count));
  }

  std::array<char, 4> mPart{};
};

TEST_F(InputFileTest, GivesItsBytesInPartsAndNothingAtItsEnd) {
  const MemoryFile bytes(std::string_view("a\nb\0cd", 6));
  InputFile file(bytes.path().c_str());
  EXPECT_TRUE(file.isOpen());
  EXPECT_EQ(readPart(file), std::string("a\nb\0", 4));
  EXPECT_EQ(readPart(file), "cd");
  EXPECT_EQ(readPart(file), "");
  EXPECT_EQ(readPart(file), "");
}

TEST_F(InputFileTest, IsNotOpenWhenItIsMissing) {
  InputFile file("/proc/self/fd/none");
  EXPECT_FALSE(file.isOpen());
}

TEST_F(InputFileTest, CannotBeReadWhenItIsADirectory) {
  InputFile file("/");
  EXPECT_TRUE(file.isOpen());
  EXPECT_EQ(readPart(file), "cannot be read");
}

TEST_F(InputFileTest, IsReadOnWhenASignalInterruptsReading) {
  const MemoryFile bytes("abcd");
  InputFile file(bytes.path().c_str());
  kernel.interruptions = 3;
  EXPECT_EQ(readPart(file), "abcd");
  EXPECT_EQ(kernel.interruptions, 0);
}

TEST_F(InputFileTest, IsClosedWhenItGoesOutOfScope) {
  const auto before = openDescriptors();
  {
    InputFile file("/dev/null");
    InputFile missing("/proc/self/fd/none");
    EXPECT_EQ(openDescriptors(), before + 1);
  }
  EXPECT_EQ(openDescriptors(), before);
}

TEST_F(InputFileTest, IsReadAsDescriptor0WhenStandardInputIsClosed) {
  const MemoryFile bytes("abcd");
  const Outcome outcome = inChild([&] {
    close(STDIN_FILENO);
    InputFile file(bytes.path().c_str());
    std::cout << (file.isOpen() ? readPart(file) : "not open");
    return 0;
  });
  EXPECT_EQ(outcome, (Outcome{0, "abcd", ""}));
}

TEST_F(InputFileTest, LeavesDescriptor0ClosedWhenStandardInputIsClosed) {
  const Outcome outcome = inChild([] {
    close(STDIN_FILENO);
    { InputFile file("/dev/null"); }
    std::cout << (fcntl(STDIN_FILENO, F_GETFD) < 0 ? "closed" : "open");
    return 0;
  });
  EXPECT_EQ(outcome, (Outcome{0, "closed", ""}));
}

TEST_F(InputFileTest, IsNotInheritedByAProgramThatIsLaunched) {
  const int lowestFree = dup(STDIN_FILENO);
  close(lowestFree);
  InputFile file("/dev/null");
  EXPECT_EQ(fcntl(lowestFree, F_GETFD), FD_CLOEXEC);
}

}  // namespace
