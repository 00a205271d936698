#include "recording/file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

#include "recording/reader.h"
#include "recording/writer.h"

namespace {

namespace fs = std::filesystem;
using ovxid::recording::bytesOfFile;
using ovxid::recording::readFile;
using ovxid::recording::Unreadable;

class RecordingFile : public testing::Test {
 protected:
  RecordingFile() {
    std::string path = fs::temp_directory_path() / "recording.XXXXXX";
    mDirectory = mkdtemp(path.data());
  }
  ~RecordingFile() override { fs::remove_all(mDirectory); }

  std::string fileWith(const std::string& bytes) const {
    std::string path = mDirectory / "file";
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

  fs::path mDirectory;
};

std::string refusalOf(const std::function<void()>& read) {
  try {
    read();
    return "none";
  } catch (const Unreadable& error) {
    return error.what();
  }
}

std::string errorOf(const std::string& path, std::size_t mostBytes) {
  return refusalOf([&] { bytesOfFile(path, mostBytes); });
}

TEST_F(RecordingFile, HasAllItsBytes) {
  const std::string bytes(200000, 'a');
  EXPECT_EQ(bytesOfFile(fileWith(bytes), bytes.size()), bytes);
  EXPECT_EQ(bytesOfFile(fileWith(""), 0), "");
}

TEST_F(RecordingFile, HasNoMoreBytesThanItMay) {
  EXPECT_EQ(errorOf(fileWith("12345"), 4), "File too large");
}

TEST_F(RecordingFile, TellsWhyItCannotBeRead) {
  EXPECT_EQ(errorOf(mDirectory / "missing", 1), "No such file or directory");
  EXPECT_EQ(errorOf(mDirectory, 1), "Is a directory");
}

TEST_F(RecordingFile, MayBeStandardInput) {
  const int input = dup(STDIN_FILENO);
  ASSERT_NE(std::freopen(fileWith("abc").c_str(), "r", stdin), nullptr);
  EXPECT_EQ(bytesOfFile("-", 3), "abc");
  close(STDIN_FILENO);
  EXPECT_EQ(errorOf("-", 3), "Bad file descriptor");
  dup2(input, STDIN_FILENO);
  close(input);
}

std::string refusalOf(const std::string& path) {
  return refusalOf([&] { readFile(path); });
}

TEST_F(RecordingFile, IsADocument) {
  ovxid::recording::Recording board;
  board.release = "6.1";
  EXPECT_EQ(readFile(fileWith(ovxid::recording::documentOf(board))).release, "6.1");
  EXPECT_EQ(refusalOf(fileWith("{}")), "/: no recording: there is no 'format'");
}

TEST_F(RecordingFile, IsNoFolder) {
  EXPECT_EQ(refusalOf(mDirectory), "a folder: a board is one file, as 'ovxid record' writes it");
}

TEST_F(RecordingFile, IsThere) {
  EXPECT_EQ(refusalOf(mDirectory / "missing"), "No such file or directory");
}

}  // namespace
