#include "text/lines.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "simulation/allocations.h"
#include "simulation/kernel.h"
#include "text/memory_file.h"
#include "text/reading.h"

using ovxid::InputFile;
using ovxid::LineReader;

namespace {

using Lines = std::vector<std::string>;

Lines readLines(const std::string& path, const Reading& reading = {}) {
  InputFile file(path.c_str());
  LineReader reader(file);
  Lines lines;
  const LimitedReading limited(reading);
  while (const std::optional<std::string_view> line = reader.next()) {
    lines.emplace_back(*line);
  }
  return lines;
}

Lines streamedLines(const std::string& path, const Reading& reading = {}) {
  std::ifstream file(path);
  Lines lines;
  const LimitedReading limited(reading);
  for (std::string line; std::getline(file, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::string readFirstLine(const std::string& path, const Reading& reading = {}) {
  InputFile file(path.c_str());
  const LimitedReading limited(reading);
  return firstLine(file).text;
}

std::string streamedFirstLine(const std::string& path, const Reading& reading = {}) {
  std::ifstream file(path);
  std::string line;
  const LimitedReading limited(reading);
  std::getline(file, line);
  return line;
}

// Lists of long lines are not printed.
void expectLinesAsStreamsDo(const std::string& bytes, const Reading& reading = {}) {
  const MemoryFile file(bytes);
  EXPECT_TRUE(readLines(file.path(), reading) == streamedLines(file.path(), reading));
  EXPECT_TRUE(readFirstLine(file.path(), reading) == streamedFirstLine(file.path(), reading));
}

TEST(Lines, OfAnEmptyFileAreNone) {
  const MemoryFile file("");
  EXPECT_EQ(readLines(file.path()), Lines{});
  EXPECT_EQ(readFirstLine(file.path()), "");
}

TEST(Lines, OfNewlinesOnlyAreEmpty) {
  const MemoryFile file("\n\n\n");
  EXPECT_EQ(readLines(file.path()), (Lines{"", "", ""}));
  EXPECT_EQ(readFirstLine(file.path()), "");
}

TEST(Lines, NeedNoNewlineAtTheEnd) {
  const MemoryFile file("a\nb");
  EXPECT_EQ(readLines(file.path()), (Lines{"a", "b"}));
  EXPECT_EQ(readFirstLine(MemoryFile("b").path()), "b");
}

TEST(Lines, KeepEveryByteButTheirNewline) {
  const std::string line("\0 \r\t\xff\0", 6);
  const MemoryFile file(line + "\n" + line);
  EXPECT_EQ(readLines(file.path()), (Lines{line, line}));
  EXPECT_EQ(readFirstLine(file.path()), line);
}

TEST(Lines, EndForGoodAtTheEndOfTheFile) {
  const MemoryFile bytes("a");
  InputFile file(bytes.path().c_str());
  LineReader reader(file);
  EXPECT_EQ(reader.next(), "a");
  EXPECT_EQ(reader.next(), std::nullopt);
  EXPECT_EQ(reader.next(), std::nullopt);
}

TEST(Lines, AreReadOnWhenASignalInterruptsReading) {
  const MemoryFile file("a\nb\n");
  kernel.interruptions = 2;
  EXPECT_EQ(readLines(file.path()), (Lines{"a", "b"}));
}

TEST(Lines, OfWhichOnlyTheBeginningCanBeReadAreDropped) {
  const MemoryFile file("one\ntwo\n");
  EXPECT_EQ(readLines(file.path(), {1, 6}), Lines{"one"});
}

TEST(FirstLine, IsKeptAsFarAsItCanBeRead) {
  const MemoryFile file("one two\n");
  EXPECT_EQ(readFirstLine(file.path(), {1, 6}), "one tw");
  EXPECT_EQ(readFirstLine(file.path(), {0, 6}), "");
}

TEST(FirstLine, IsReadNoFurtherThanThePartThatEndsIt) {
  const MemoryFile bytes("one\ntwo\n");
  InputFile file(bytes.path().c_str());
  const LimitedReading limited({3, 5});
  EXPECT_EQ(firstLine(file).text, "one");
  EXPECT_EQ(kernel.readsLeft, 2);
}

class LinesOfLength : public testing::TestWithParam<std::size_t> {};

TEST_P(LinesOfLength, AreReadAsAStreamReadsThem) {
  const std::string line(GetParam(), 'x');
  expectLinesAsStreamsDo(line);
  expectLinesAsStreamsDo(line + "\n");
  expectLinesAsStreamsDo(line + "\nshort\n" + line);
  expectLinesAsStreamsDo("short\n" + line + "\n" + line + "\n\nshort");
}

TEST_P(LinesOfLength, AreReadFromPiecesAsAStreamReadsThem) {
  const std::string line(GetParam(), 'x');
  expectLinesAsStreamsDo("short\n" + line + "\n" + line, {std::nullopt, 4097});
  expectLinesAsStreamsDo(line + "\n" + line + "\n", {std::nullopt, 1000});
}

INSTANTIATE_TEST_SUITE_P(AroundTheBuffers, LinesOfLength,
                         testing::Values(0, 1, 4095, 4096, 4097, 8191, 8192, 65529, 65530, 65531,
                                         65535, 65536, 65537, 131065, 131071, 131072, 131073,
                                         262143, 262144, 262145, 1000000));

std::string generated(std::mt19937& random, const std::string& alphabet, std::size_t longest) {
  std::string bytes(random() % (longest + 1), ' ');
  for (char& byte : bytes) {
    byte = alphabet[random() % alphabet.size()];
  }
  return bytes;
}

const std::string fewLines("abc \r\t\v\0\xff:-7\n", 13);
const std::string manyLines("a\n\r\0", 4);

TEST(Lines, OfAFileLargerThanTheBufferTakeNoLargerOne) {
  std::string bytes;
  for (int i = 0; i < 100000; ++i) {
    bytes += "short\n";
  }
  const MemoryFile memory(bytes);
  InputFile file(memory.path().c_str());
  LineReader reader(file);
  EXPECT_EQ(allocationsOf([&] {
              while (reader.next()) {
              }
            }),
            1);
}

TEST(Lines, OfGeneratedFilesAreReadAsAStreamReadsThem) {
  std::mt19937 random;
  for (int i = 0; i < 2000; ++i) {
    expectLinesAsStreamsDo(generated(random, fewLines, 200), {std::nullopt, 1 + random() % 20});
    expectLinesAsStreamsDo(generated(random, manyLines, 40), {std::nullopt, 1 + random() % 5});
  }
}

TEST(Lines, OfLargeGeneratedFilesAreReadAsAStreamReadsThem) {
  std::mt19937 random;
  for (int i = 0; i < 10; ++i) {
    std::string bytes;
    for (int line = 0; line < 30; ++line) {
      bytes.append(random() % 70000, 'x').append("\n");
    }
    expectLinesAsStreamsDo(bytes, {std::nullopt, 1000 + random() % 100000});
  }
}

// Each of the two reads when it has handed out all that it has, so a failure meets both there.
TEST(Lines, AreReadAsAStreamReadsThemWhenReadingFails) {
  std::mt19937 random;
  for (int i = 0; i < 2000; ++i) {
    const Reading reading{static_cast<int>(random() % 8), 1 + random() % 10};
    expectLinesAsStreamsDo(generated(random, fewLines, 60), reading);
    expectLinesAsStreamsDo(generated(random, manyLines, 20), reading);
  }
}

}  // namespace
