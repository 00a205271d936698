#ifndef OVXID_CLI_RECORD_MACS_H
#define OVXID_CLI_RECORD_MACS_H

#include <array>
#include <map>
#include <string>

namespace ovxid::cli {

using Mac = std::array<unsigned char, 6>;

// How MAC addresses are written down: as they are, or made up.
class Macs {
 public:
  explicit Macs(bool madeUp) : mMadeUp(madeUp) {}

  // The same one whenever it is asked for. A made-up address has the bytes below 0x10, and those
  // above 0x7f, where the real one has them, since a listing shows these differently.
  const Mac& written(const Mac& real);

 private:
  bool mMadeUp;
  std::map<Mac, Mac> mWritten;
};

// 02:42:ac:11:00:02
std::string colonText(const Mac& mac);
// As a listing has it.
std::string listingText(const Mac& mac);

}  // namespace ovxid::cli

#endif
