#ifndef OVXID_BENCH_CATALOGUE_FILE_H
#define OVXID_BENCH_CATALOGUE_FILE_H

#include <fstream>
#include <string>

#include "simulation/replaced_directory.h"

// The /etc of this process, which holds a catalogue at this path and nothing else.
class CatalogueFile {
 public:
  CatalogueFile(const char* path, long lines) : mEtc("/etc") {
    std::ofstream file(path);
    for (long number = 1; number <= lines; ++number) {
      // Numbers with a meaning of their own are below it.
      file << line(number + 100);
    }
  }

 private:
  // Lines of one length, so that a line costs the same in every catalogue.
  static std::string line(long number) {
    std::string digits = std::to_string(number);
    digits.insert(0, 7 - digits.size(), '0');
    return "Field Node " + digits + ":" + digits + ":fn" + digits + ":field_" + digits + "\n";
  }

  ReplacedDirectory mEtc;
};

#endif
