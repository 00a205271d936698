#include "recording/file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "recording/reader.h"
#include "recording/writer.h"

namespace {

namespace fs = std::filesystem;
using ovxid::recording::bytesOfFile;
using ovxid::recording::NotARecording;
using ovxid::recording::readFile;

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

// As in errno.
int errorOf(const std::string& path, std::size_t mostBytes) {
  try {
    bytesOfFile(path, mostBytes);
    return 0;
  } catch (const std::system_error& error) {
    return error.code().value();
  }
}

TEST_F(RecordingFile, HasAllItsBytes) {
  const std::string bytes(200000, 'a');
  EXPECT_EQ(bytesOfFile(fileWith(bytes), bytes.size()), bytes);
  EXPECT_EQ(bytesOfFile(fileWith(""), 0), "");
}

TEST_F(RecordingFile, HasNoMoreBytesThanItMay) { EXPECT_EQ(errorOf(fileWith("12345"), 4), EFBIG); }

TEST_F(RecordingFile, TellsWhyItCannotBeRead) {
  EXPECT_EQ(errorOf(mDirectory / "missing", 1), ENOENT);
  EXPECT_EQ(errorOf(mDirectory, 1), EISDIR);
}

TEST_F(RecordingFile, MayBeStandardInput) {
  const int input = dup(STDIN_FILENO);
  ASSERT_NE(std::freopen(fileWith("abc").c_str(), "r", stdin), nullptr);
  EXPECT_EQ(bytesOfFile("-", 3), "abc");
  close(STDIN_FILENO);
  EXPECT_EQ(errorOf("-", 3), EBADF);
  dup2(input, STDIN_FILENO);
  close(input);
}

std::string refusalOf(const std::string& path) {
  try {
    readFile(path);
    return "none";
  } catch (const NotARecording& error) {
    return error.what();
  }
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
  EXPECT_THROW(readFile(mDirectory / "missing"), std::system_error);
}

}  // namespace
