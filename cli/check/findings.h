#ifndef OVXID_CLI_CHECK_FINDINGS_H
#define OVXID_CLI_CHECK_FINDINGS_H

#include <cstddef>
#include <string>
#include <vector>

#include "check/warnings.h"

namespace ovxid::cli {

// What was found in one catalogue: lines of text as compilers write them.
class Findings {
 public:
  Findings(std::string file, std::vector<std::string> ignored);

  void error(std::size_t line, const std::string& what);
  void warn(const Warning& warning, std::size_t line, const std::string& what);

  const std::string& text() const { return mText; }

 private:
  // The text, with what stands before each finding of the line at its end.
  std::string& begin(std::size_t line);

  std::string mFile;
  std::vector<std::string> mIgnored;
  std::string mText;
};

}  // namespace ovxid::cli

#endif
