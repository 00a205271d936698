#ifndef OVXID_CLI_RECORD_MACS_H
#define OVXID_CLI_RECORD_MACS_H

#include <map>

#include "recording/recording.h"

namespace ovxid::cli {

// How MAC addresses are written down: as they are, or made up.
class Macs {
 public:
  explicit Macs(bool madeUp) : mMadeUp(madeUp) {}

  // The same one whenever it is asked for. A made-up address has the bytes below 0x10, and those
  // above 0x7f, where the real one has them, since a listing shows these differently.
  const MacAddress& written(const MacAddress& real);

 private:
  bool mMadeUp;
  std::map<MacAddress, MacAddress> mWritten;
};

}  // namespace ovxid::cli

#endif
