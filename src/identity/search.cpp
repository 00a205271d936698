#include "identity/search.h"

namespace ovxid {

int Search::askKernel() {
  if (!mKernelError) {
    mKernelError = host.uname(kernel);
  }
  return *mKernelError;
}

void Search::haveRead(const char* from, int error, std::string_view bytes) {
  if (trial != nullptr) {
    trial->readings.push_back({from, error, std::string(bytes)});
  }
}

void Search::lookUp(const char* what, const char* field, std::string_view value, bool amongNames) {
  if (trial != nullptr) {
    trial->lookUp = LookUp{what, field, std::string(value), amongNames};
  }
}

void Search::note(const char* note) {
  if (trial != nullptr) {
    trial->note = note;
  }
}

}  // namespace ovxid
