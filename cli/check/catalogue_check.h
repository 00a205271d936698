#ifndef OVXID_CLI_CHECK_CATALOGUE_CHECK_H
#define OVXID_CLI_CHECK_CATALOGUE_CHECK_H

#include <OvxIdentifier.h>

#include <memory>
#include <string>
#include <string_view>

#include "cQlog.h"
#include "check/findings.h"

namespace ovxid::cli {

// Says what is wrong with catalogues. What the library reads is asked of the library.
class CatalogueCheck {
 public:
  // With `verbose`, the library's messages go to standard error.
  explicit CatalogueCheck(bool verbose);
  ~CatalogueCheck();
  CatalogueCheck(const CatalogueCheck&) = delete;
  CatalogueCheck& operator=(const CatalogueCheck&) = delete;

  void check(std::string_view content, Findings& findings);

 private:
  struct TalkingReader;

  void reportPassedOver(std::string_view text, std::size_t number, Findings& findings);
  std::string reasonFor(std::string text);

  // Without a logger it reads several times faster. Only lines that are passed over need the other.
  cQlog mLog;
  OvxIdentifier mReader;
  std::unique_ptr<TalkingReader> mTalkingReader;
};

}  // namespace ovxid::cli

#endif
