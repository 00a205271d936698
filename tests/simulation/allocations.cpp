#include "simulation/allocations.h"

#include <cstdlib>
#include <new>

namespace {

int allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* const memory = std::malloc(size)) {
    return memory;
  }
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

int allocationsOf(const std::function<void()>& call) {
  const int before = allocations;
  call();
  return allocations - before;
}
