#ifndef OVXID_TESTS_FUZZ_COMPARE_H
#define OVXID_TESTS_FUZZ_COMPARE_H

#include <gtest/gtest-printers.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

// Each ends the process, having printed both sides, unless they are equal.

template <typename Value>
void expectSame(std::string_view what, const Value& library, const Value& reference) {
  if (library == reference) {
    return;
  }
  std::cerr << "The library and the reference differ: " << what
            << "\n  library:   " << testing::PrintToString(library)
            << "\n  reference: " << testing::PrintToString(reference) << std::endl;
  std::abort();
}

// Of lists, prints the first element that differs.
template <typename Value>
void expectSame(std::string_view what, const std::vector<Value>& library,
                const std::vector<Value>& reference) {
  if (library == reference) {
    return;
  }
  const std::string list(what);
  for (std::size_t i = 0; i < library.size() && i < reference.size(); ++i) {
    expectSame(list + ", element " + std::to_string(i), library[i], reference[i]);
  }
  expectSame(list + ", size", library.size(), reference.size());
}

#endif
