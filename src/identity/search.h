#ifndef OVXID_IDENTITY_SEARCH_H
#define OVXID_IDENTITY_SEARCH_H

#include <sys/utsname.h>

#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/loading.h"
#include "host/host.h"
#include "log/log.h"

namespace ovxid {

// What a source read.
struct Reading {
  // A path, or a call.
  const char* from;
  // As in errno; 0 if there is none.
  int error;
  // The bytes, or their beginning.
  std::string bytes;
};

// What a source looked up in the catalogue.
struct LookUp {
  // What people call the value.
  const char* what;
  // The field of the file that has it. Null if it is all that was read, or its end.
  const char* field;
  std::string value;
  // Whether it was compared with the names of the catalogue, too, and not with the aliases alone.
  bool amongNames;
};

// What a source did.
struct Trial {
  std::vector<Reading> readings;
  std::optional<LookUp> lookUp;
  // What people are told where this is more than what was read and looked up.
  const char* note = nullptr;
  // The first identity in the catalogue that the value matches.
  const HardwareIdentity* match = nullptr;
};

// What the sources search in, and where they write down what they do.
class Search {
 public:
  Search(const Host& board, const Catalogue& known, const Log& messages)
      : host(board), catalogue(known), log(messages) {}

  const Host& host;
  const Catalogue& catalogue;
  Log log;
  utsname kernel{};
  // Null if nobody asks.
  Trial* trial = nullptr;

  // Has uname(2) answer when it is first called. Returns the error, as in errno.
  int askKernel();

  void haveRead(const char* from, int error, std::string_view bytes = {});
  void lookUp(const char* what, const char* field, std::string_view value, bool amongNames);
  void note(const char* note);

 private:
  std::optional<int> mKernelError;
};

// What a source found. Where it found nothing, the board keeps the value that it has.
struct Finding {
  bool identified = false;
  std::optional<std::string> name;
  std::optional<std::int32_t> number;
  // The identity in the catalogue, if it was found there.
  const HardwareIdentity* match = nullptr;
  // What ends the search without a result.
  std::exception_ptr thrown;
};

}  // namespace ovxid

#endif
