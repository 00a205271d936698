#ifndef OVXID_TESTS_EXHAUSTION_LAUNCH_H
#define OVXID_TESTS_EXHAUSTION_LAUNCH_H

// Launches a program that is not there, or a shell, once for each allocation that this takes, as
// sweep() does. Returns the number of allocations.
int sweepLaunch(bool useShell);

#endif
