#include "exhaustion/heap.h"

#include <malloc.h>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <stdexcept>

// The C library's heap under the names that it keeps for programs that bring their own malloc.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);
}

namespace {

heap::Use taken{};

// The attempt under way.
struct Supply {
  bool watched = false;
  int refused = 0;
  heap::Shortage shortage = heap::Shortage::once;
  heap::Attempt attempt{};
};

Supply supply;

bool isRefused() {
  if (!supply.watched) {
    return false;
  }
  const int number = ++supply.attempt.allocations;
  if (supply.refused == 0 || number < supply.refused) {
    return false;
  }
  return number == supply.refused || supply.shortage == heap::Shortage::lasting;
}

void* refuseLibrary() {
  supply.attempt.refusedLibrary = true;
  errno = ENOMEM;
  return nullptr;
}

void* count(void* block) {
  if (block != nullptr) {
    ++taken.blocks;
    taken.bytes += malloc_usable_size(block);
  }
  return block;
}

void discount(void* block) {
  if (block != nullptr) {
    --taken.blocks;
    taken.bytes -= malloc_usable_size(block);
  }
}

heap::Ending endingOf(const std::function<void()>& call) {
  try {
    call();
    return heap::Ending::returned;
  } catch (const std::bad_alloc&) {
    return heap::Ending::badAlloc;
  } catch (const std::out_of_range&) {
    return heap::Ending::outOfRange;
  }
}

}  // namespace

extern "C" void* malloc(std::size_t size) noexcept {
  return isRefused() ? refuseLibrary() : count(__libc_malloc(size));
}

extern "C" void* calloc(std::size_t number, std::size_t size) noexcept {
  return isRefused() ? refuseLibrary() : count(__libc_calloc(number, size));
}

extern "C" void* realloc(void* block, std::size_t size) noexcept {
  if (isRefused()) {
    return refuseLibrary();
  }
  const std::size_t before = malloc_usable_size(block);
  void* const moved = __libc_realloc(block, size);
  if (moved != nullptr) {
    taken.blocks += block == nullptr ? 1 : 0;
    taken.bytes += malloc_usable_size(moved) - before;
  }
  return moved;
}

extern "C" void free(void* block) noexcept {
  discount(block);
  __libc_free(block);
}

void* operator new(std::size_t size) {
  if (isRefused()) {
    supply.attempt.refusedObject = true;
    throw std::bad_alloc();
  }
  void* const block = count(__libc_malloc(size));
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  ++taken.objects;
  return block;
}

void operator delete(void* block) noexcept {
  taken.objects -= block == nullptr ? 0 : 1;
  std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept { operator delete(block); }

heap::Use heap::use() { return taken; }

heap::Attempt heap::attempt(const std::function<void()>& call, int refused, Shortage shortage) {
  supply = {true, refused, shortage, {}};
  supply.attempt.ending = endingOf(call);
  supply.watched = false;
  return supply.attempt;
}
