// Apart from the messages themselves, which programs without the test framework use too.
#include <gtest/gtest-printers.h>

#include "simulation/logger.h"

void PrintTo(const Message& message, std::ostream* out) {
  *out << "\n  " << message.level << ": " << testing::PrintToString(message.text);
}
