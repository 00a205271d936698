// The walk over a node.
#include <OvxIdentifier.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <ftw.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "simulation/replaced_directory.h"

namespace {

namespace fs = std::filesystem;

// A node below /mnt of this process, with a hundred properties a directory.
class Node {
 public:
  explicit Node(long properties) : mMnt("/mnt") {
    for (long number = 0; number < properties; ++number) {
      const fs::path directory = mPath + "/child" + std::to_string(number / 100);
      fs::create_directories(directory);
      std::ofstream file(directory / ("property-" + std::to_string(number)));
      file << "the value of " << number << '\0';
    }
  }

  char* path() { return mPath.data(); }

 private:
  ReplacedDirectory mMnt;
  std::string mPath = "/mnt/node";
};

void walk(benchmark::State& state) {
  Node node(state.range(0));
  const OvxIdentifier empty(nullptr);
  while (state.KeepRunning()) {
    state.PauseTiming();
    OvxIdentifier identifier = empty;
    state.ResumeTiming();
    benchmark::DoNotOptimize(OvxDTParser::parse(&identifier, node.path()));
    state.PauseTiming();
    identifier = empty;
    state.ResumeTiming();
  }
}

std::vector<ovx_param>* target = nullptr;

// The value is complete only when the file ends, which takes a second read(2) to know.
std::string bareRead(const char* path) {
  std::array<char, 4096> buffer;
  std::string value;
  const int file = open(path, O_RDONLY);
  for (ssize_t count = 0; (count = read(file, buffer.data(), buffer.size())) > 0;) {
    const auto size = static_cast<std::size_t>(count);
    const void* const newline = std::memchr(buffer.data(), '\n', size);
    const char* const end =
        newline == nullptr ? buffer.data() + size : static_cast<const char*>(newline);
    value.append(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    if (newline != nullptr) {
      break;
    }
  }
  close(file);
  return value;
}

int bareVisit(const char* path, const struct stat* /*status*/, int type, FTW* position) {
  if (type == FTW_F && std::strcmp(path + position->base, "name") != 0) {
    std::string name("OVX_");
    for (const char* byte = path + position->base; *byte != '\0'; ++byte) {
      name += *byte >= 'a' && *byte <= 'z' ? static_cast<char>(*byte - 'a' + 'A') : *byte;
    }
    target->push_back({std::move(name), bareRead(path)});
  }
  return 0;
}

void walkFloor(benchmark::State& state) {
  Node node(state.range(0));
  while (state.KeepRunning()) {
    state.PauseTiming();
    std::vector<ovx_param> parameters;
    target = &parameters;
    state.ResumeTiming();
    benchmark::DoNotOptimize(nftw(node.path(), bareVisit, 10, 0));
    state.PauseTiming();
    if (parameters.size() != static_cast<std::size_t>(state.range(0))) {
      state.SkipWithError("the floor does not find every property");
    }
    parameters = {};
    state.ResumeTiming();
  }
}

BENCHMARK(walk)->Name("walk")->Arg(100)->Arg(10000);
BENCHMARK(walkFloor)->Name("floor/walk")->Arg(100)->Arg(10000);

}  // namespace
