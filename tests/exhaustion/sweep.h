#ifndef OVXID_TESTS_EXHAUSTION_SWEEP_H
#define OVXID_TESTS_EXHAUSTION_SWEEP_H

#include "exhaustion/scenarios.h"

struct Allocations {
  int withoutLogger;
  int withLogger;
};

// Runs the scenario once for each of its allocations, with that one refused, and again with that
// one and all behind it refused, without a logger and with one. Throws std::runtime_error when what
// is left is not as it should be. Returns how many allocations there are.
Allocations sweep(const Scenario& scenario);

#endif
