#ifndef OVXID_TESTS_EXHAUSTION_HEAP_H
#define OVXID_TESTS_EXHAUSTION_HEAP_H

#include <cstddef>
#include <functional>

// The heap of this process, the libraries' part included: the definitions of a program come before
// those of the C library and of the C++ library, so both take their memory here.
namespace heap {

// What is taken and not given back. Objects are what came through operator new; the other blocks
// are the C library's own.
struct Use {
  std::ptrdiff_t blocks;
  std::size_t bytes;
  std::ptrdiff_t objects;
};

Use use();

// Memory may run out for a moment, or for good.
enum class Shortage { once, lasting };

enum class Ending { returned, badAlloc, outOfRange };

struct Attempt {
  Ending ending;
  // How many allocations were asked for.
  int allocations;
  // Whose allocations were refused.
  bool refusedObject;
  bool refusedLibrary;
};

// Makes the call, in which the allocation of that number, counted from 1, is refused. With 0, none
// is.
Attempt attempt(const std::function<void()>& call, int refused = 0,
                Shortage shortage = Shortage::once);

}  // namespace heap

#endif
