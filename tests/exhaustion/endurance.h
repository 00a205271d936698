#ifndef OVXID_TESTS_EXHAUSTION_ENDURANCE_H
#define OVXID_TESTS_EXHAUSTION_ENDURANCE_H

// Each collects the parameters that often, and throws std::runtime_error when that leaves open
// descriptors or takes more memory than the list, which stays empty for one and grows for the
// other.
void endureWithEmptyList(int calls);
void endureWithGrowingList(int calls);

#endif
