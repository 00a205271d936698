#ifndef OVXID_TESTS_SIMULATION_ALLOCATIONS_H
#define OVXID_TESTS_SIMULATION_ALLOCATIONS_H

#include <functional>

// How often the call takes memory from the heap, in the library and in the test program.
int allocationsOf(const std::function<void()>& call);

#endif
