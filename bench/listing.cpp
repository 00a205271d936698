// Listing the parameters to a file.
#include <OvxIdentifier.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <fstream>

#include "simulation/replaced_directory.h"

namespace {

constexpr const char* path = "/mnt/listing";

std::vector<ovx_param> parameters(long count) {
  std::vector<ovx_param> list;
  for (long number = 0; number < count; ++number) {
    const std::string text = std::to_string(number);
    list.push_back({"OVX_PROPERTY-" + text, "the value of " + text});
  }
  return list;
}

void list(benchmark::State& state) {
  const ReplacedDirectory mnt("/mnt");
  OvxIdentifier identifier(nullptr);
  for (const ovx_param& parameter : parameters(state.range(0))) {
    identifier.addParameter(parameter.name, parameter.value);
  }
  while (state.KeepRunning()) {
    state.PauseTiming();
    std::ofstream file(path);
    state.ResumeTiming();
    identifier.listParams(file);
  }
}

// Every line is flushed, so it takes a write(2) of its own.
void listFloor(benchmark::State& state) {
  const ReplacedDirectory mnt("/mnt");
  const std::vector<ovx_param> list = parameters(state.range(0));
  while (state.KeepRunning()) {
    state.PauseTiming();
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    state.ResumeTiming();
    std::string line;
    for (const ovx_param& parameter : list) {
      line.assign(parameter.name).append("=").append(parameter.value).append("\n");
      if (write(file, line.data(), line.size()) < 0) {
        state.SkipWithError("the floor cannot write");
      }
    }
    state.PauseTiming();
    close(file);
    state.ResumeTiming();
  }
}

BENCHMARK(list)->Name("listing")->Arg(10000);
BENCHMARK(listFloor)->Name("floor/listing")->Arg(10000);

}  // namespace
