// Lets memory run out in every scenario. See usage() below.
#include <algorithm>
#include <charconv>
#include <functional>
#include <iostream>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "exhaustion/endurance.h"
#include "exhaustion/launch.h"
#include "exhaustion/sweep.h"
#include "simulation/board.h"

namespace {

struct Skipped : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// In the order of what a run amounts to.
enum class Result { passed, skipped, failed };

struct Options {
  bool names = false;
  bool counts = false;
  int calls = 100000;
  std::vector<std::string> chosen;
};

// A scenario, and what tells how many allocations it has.
struct Check {
  std::string name;
  std::function<std::string()> run;
};

std::string text(const Allocations& allocations) {
  return std::to_string(allocations.withoutLogger) + ", " + std::to_string(allocations.withLogger) +
         " with a logger";
}

std::vector<Check> checks(int calls) {
  std::vector<Check> checks;
  for (const auto& scenarios : {catalogueScenarios(), identityScenarios(), parameterScenarios()}) {
    for (const Scenario& scenario : scenarios) {
      checks.push_back({scenario.name, [scenario] { return text(sweep(scenario)); }});
    }
  }
  checks.push_back({"program", [] { return std::to_string(sweepLaunch(false)); }});
  checks.push_back({"shell", [] { return std::to_string(sweepLaunch(true)); }});
  checks.push_back({"many_calls", [calls] {
                      endure(calls);
                      return std::string();
                    }});
  return checks;
}

int usage() {
  std::cerr << "Usage: exhaustion [--names] [--counts] [--calls=NUMBER] [SCENARIO...]\n\n"
               "Runs the named scenarios, or all, and lets memory run out in each.\n\n"
               "  --names         print the names of the scenarios instead\n"
               "  --counts        print how many allocations each scenario has\n"
               "  --calls=NUMBER  how many calls many_calls makes (100000)\n";
  return 2;
}

bool read(std::string_view argument, Options& options) {
  constexpr std::string_view calls = "--calls=";
  if (argument == "--names") {
    options.names = true;
  } else if (argument == "--counts") {
    options.counts = true;
  } else if (argument.substr(0, calls.size()) == calls) {
    const std::string_view number = argument.substr(calls.size());
    const auto [end, error] = std::from_chars(number.begin(), number.end(), options.calls);
    return error == std::errc() && end == number.end() && options.calls > 0;
  } else {
    options.chosen.emplace_back(argument);
  }
  return true;
}

Result resultOf(const Check& check, bool counts) {
  try {
    const std::string allocations = check.run();
    std::cout << "pass  " << check.name << (counts ? "  " + allocations : "") << std::endl;
    return Result::passed;
  } catch (const Skipped& reason) {
    std::cout << "skip  " << check.name << ": " << reason.what() << std::endl;
    return Result::skipped;
  } catch (const std::exception& error) {
    std::cout << "FAIL  " << check.name << ": " << error.what() << std::endl;
    return Result::failed;
  }
}

int statusOf(Result result) {
  // As ctest is told.
  constexpr int skipped = 77;
  return result == Result::failed ? 1 : result == Result::skipped ? skipped : 0;
}

// The chosen ones, or all: false when there is none of a chosen name.
bool choose(std::vector<Check>& checks, const std::vector<std::string>& names) {
  std::vector<Check> chosen;
  for (const std::string& name : names) {
    const auto check = std::find_if(checks.begin(), checks.end(),
                                    [&](const Check& each) { return each.name == name; });
    if (check == checks.end()) {
      return false;
    }
    chosen.push_back(*check);
  }
  if (!names.empty()) {
    checks = chosen;
  }
  return true;
}

}  // namespace

void giveUpSimulation(const std::string& why) { throw Skipped(why); }

int main(int argc, char** argv) {
  Options options;
  for (char** argument = argv + 1; argument != argv + argc; ++argument) {
    if (!read(*argument, options)) {
      return usage();
    }
  }
  std::vector<Check> chosen = checks(options.calls);
  if (!choose(chosen, options.chosen)) {
    return usage();
  }
  std::set<Result> results{Result::passed};
  for (const Check& check : chosen) {
    if (options.names) {
      std::cout << check.name << '\n';
    } else {
      results.insert(resultOf(check, options.counts));
    }
  }
  return statusOf(*results.rbegin());
}
