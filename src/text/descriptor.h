#ifndef OVXID_TEXT_DESCRIPTOR_H
#define OVXID_TEXT_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace ovxid {

// An open file, or a negative number where it could not be opened. It is closed with this.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : mNumber(number) {}
  ~Descriptor() {
    if (mNumber >= 0) {
      close(mNumber);
    }
  }
  Descriptor(Descriptor&& other) noexcept : mNumber(std::exchange(other.mNumber, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int get() const { return mNumber; }

 private:
  int mNumber;
};

}  // namespace ovxid

#endif
