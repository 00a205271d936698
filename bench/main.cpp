// Runs the benchmarks and sets each beside its floor, which does the bare work for the same result.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

struct Goal {
  const char* benchmark;
  double ratio;
};

constexpr Goal goals[] = {
    {"catalogue/1000", 1.25},  {"catalogue/100000", 1.25}, {"catalogue/1000000", 1.25},
    {"walk/100", 1.10},        {"walk/10000", 1.10},       {"listing/10000", 1.15},
    {"identification/", 1.25}, {"start/", 1.05},           {"check/1000000", 10},
};

// The time that counts: the processor's, but for processes started by the benchmark.
double timeOf(const benchmark::BenchmarkReporter::Run& run) {
  return run.run_name.time_type == "real_time" ? run.GetAdjustedRealTime()
                                               : run.GetAdjustedCPUTime();
}

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.aggregate_name == "median") {
        mMedians[run.run_name.function_name + "/" + run.run_name.args] = timeOf(run);
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  void Finalize() override {
    std::printf("\n%-20s %14s %14s %8s %8s\n", "work", "floor (ns)", "ovxid (ns)", "ratio", "goal");
    for (const Goal& goal : goals) {
      const auto ours = mMedians.find(goal.benchmark);
      const auto floor = mMedians.find(std::string("floor/") + goal.benchmark);
      if (ours != mMedians.end() && floor != mMedians.end()) {
        std::printf("%-20s %14.0f %14.0f %8.2f %8.2f\n", goal.benchmark, floor->second,
                    ours->second, ours->second / floor->second, goal.ratio);
      }
    }
  }

 private:
  std::map<std::string, double> mMedians;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 2;
  }
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
