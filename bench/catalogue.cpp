// Loading the catalogue.
#include <OvxIdentifier.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <cstring>
#include <optional>

#include "catalogue_file.h"

namespace {

constexpr const char* path = "/etc/known_ovx_ids";

void load(benchmark::State& state) {
  const CatalogueFile catalogue(path, state.range(0));
  while (state.KeepRunning()) {
    std::optional<OvxIdentifier> identifier(std::in_place, nullptr);
    benchmark::DoNotOptimize(identifier);
    state.PauseTiming();
    identifier.reset();
    state.ResumeTiming();
  }
}

const char* endOfValue(const char* begin, const char* end) {
  const void* const colon = std::memchr(begin, ':', static_cast<std::size_t>(end - begin));
  return colon == nullptr ? end : static_cast<const char*>(colon);
}

// A line that is known to be right, so that nothing is looked at twice.
HardwareIdentity record(const char* begin, const char* end) {
  HardwareIdentity identity{};
  const char* const name = endOfValue(begin, end);
  identity.name.assign(begin, name);
  const char* value = endOfValue(name + 1, end);
  std::from_chars(name + 1, value, identity.number);
  while (value != end) {
    const char* const alias = value + 1;
    value = endOfValue(alias, end);
    identity.aliases.emplace_back(alias, value);
  }
  return identity;
}

std::vector<HardwareIdentity> bareLoad() {
  std::vector<HardwareIdentity> identities;
  std::vector<char> buffer(65536);
  const int file = open(path, O_RDONLY);
  std::size_t kept = 0;
  for (ssize_t count = 0; (count = read(file, buffer.data() + kept, buffer.size() - kept)) > 0;) {
    const char* begin = buffer.data();
    const char* const end = buffer.data() + kept + count;
    while (const void* newline = std::memchr(begin, '\n', static_cast<std::size_t>(end - begin))) {
      identities.push_back(record(begin, static_cast<const char*>(newline)));
      begin = static_cast<const char*>(newline) + 1;
    }
    kept = static_cast<std::size_t>(end - begin);
    std::memmove(buffer.data(), begin, kept);
  }
  close(file);
  return identities;
}

void loadFloor(benchmark::State& state) {
  const CatalogueFile catalogue(path, state.range(0));
  while (state.KeepRunning()) {
    std::optional<std::vector<HardwareIdentity>> identities(bareLoad());
    benchmark::DoNotOptimize(identities);
    state.PauseTiming();
    if (identities->size() != static_cast<std::size_t>(state.range(0))) {
      state.SkipWithError("the floor does not load every line");
    }
    identities.reset();
    state.ResumeTiming();
  }
}

BENCHMARK(load)->Name("catalogue")->Arg(1000)->Arg(100000)->Arg(1000000);
BENCHMARK(loadFloor)->Name("floor/catalogue")->Arg(1000)->Arg(100000)->Arg(1000000);

}  // namespace
