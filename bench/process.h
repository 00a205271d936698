#ifndef OVXID_BENCH_PROCESS_H
#define OVXID_BENCH_PROCESS_H

#include <benchmark/benchmark.h>

#include <vector>

// Starts a program with these arguments, the first of which is its path, and waits for it. It has
// to succeed.
void runProcess(benchmark::State& state, std::vector<const char*> arguments);

#endif
