#include "exhaustion/endurance.h"

#include <malloc.h>

#include "exhaustion/heap.h"
#include "exhaustion/holdings.h"
#include "exhaustion/require.h"
#include "simulation/board.h"
#include "simulation/descriptors.h"

namespace {

void add(heap::Use& use, const void* block) {
  ++use.blocks;
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): it is asked for its size only
  use.bytes += malloc_usable_size(const_cast<void*>(block));
}

void addLongString(heap::Use& use, const std::string& text) {
  if (text.capacity() > std::string().capacity()) {
    add(use, text.data());
  }
}

heap::Use useOf(const Params& params) {
  heap::Use use{};
  if (params.capacity() > 0) {
    add(use, params.data());
  }
  for (const ovx_param& param : params) {
    addLongString(use, param.name);
    addLongString(use, param.value);
  }
  return use;
}

}  // namespace

void endure(int calls) {
  // The board is not identified, so that every call takes every descriptor there is to take: those
  // of all sources, of the walk and of the card.
  Board board;
  board.cpuinfo("Hardware\t: a board that nobody has ever heard of\n")
      .property("wan", bytes("lo\0"))
      .kernelAnswersMac({255, 255, 255, 255, 255, 255});
  OvxIdentifier identifier(nullptr);
  const std::ptrdiff_t descriptors = openDescriptors();
  const heap::Use before = heap::use();
  for (int call = 0; call < calls; ++call) {
    identifier.loadParams();
  }
  const heap::Use after = heap::use();
  const heap::Use list = useOf(paramsOf(identifier));
  require(paramsOf(identifier).size() == 2 * static_cast<std::size_t>(calls),
          "the list has another length");
  require(openDescriptors() == descriptors, "a descriptor is left open");
  require(after.blocks == before.blocks + list.blocks && after.bytes == before.bytes + list.bytes,
          "more memory is taken than the list takes");
}
