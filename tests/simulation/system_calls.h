#ifndef OVXID_TESTS_SIMULATION_SYSTEM_CALLS_H
#define OVXID_TESTS_SIMULATION_SYSTEM_CALLS_H

#include <functional>
#include <string>
#include <vector>

// What the call asks of the kernel, traced in a child process: the name of each system call, with
// the path of what it opens. Calls that only take or give back memory are left out.
std::vector<std::string> systemCallsOf(const std::function<void()>& call);

// Makes the call in a child process, and sends the signal to this process and its children before
// the first system call at which it is time. Waits until the process has ended.
void interrupt(int signal, const std::function<bool()>& isTime, const std::function<void()>& call);

#endif
