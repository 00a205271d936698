#ifndef OVXID_TESTS_SIMULATION_ALLOCATIONS_H
#define OVXID_TESTS_SIMULATION_ALLOCATIONS_H

#include <functional>

// The number of allocations during the call, by the library and by the test program together.
int allocationsOf(const std::function<void()>& call);

#endif
