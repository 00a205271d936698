#ifndef OVXID_TESTS_EXHAUSTION_ENDURANCE_H
#define OVXID_TESTS_EXHAUSTION_ENDURANCE_H

// Collects the parameters that often, and throws std::runtime_error when that leaves open
// descriptors or takes more memory than the list.
void endure(int calls);

#endif
