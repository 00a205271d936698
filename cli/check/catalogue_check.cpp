#include "check/catalogue_check.h"

#include <algorithm>

#include "cQlog.h"
#include "check/earlier_boards.h"
#include "check/line_checks.h"
#include "text_file.h"

namespace ovxid::cli {

struct CatalogueCheck::TalkingReader {
  cQlog log{{false, false}};
  OvxIdentifier identifier{&log};
};

CatalogueCheck::CatalogueCheck(bool verbose)
    : mLog({verbose, false}), mReader(verbose ? &mLog : nullptr) {}
CatalogueCheck::~CatalogueCheck() = default;

void CatalogueCheck::check(std::string_view content, Findings& findings) {
  const auto lines = static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
  const auto colons = static_cast<std::size_t>(std::count(content.begin(), content.end(), ':'));
  EarlierBoards earlier(lines + 1, colons + 1);
  if (content.empty()) {
    findings.warn(warning::emptyCatalogue, 1, "the catalogue is empty: it knows no board");
  }
  const bool endsInNewline = content.empty() || content.back() == '\n';
  std::size_t number = 0;
  while (const std::optional<std::string_view> text = takeLine(content)) {
    ++number;
    checkText(*text, number, findings);
    HardwareIdentity identity{};
    if (mReader.parseIdentityLine(identity, std::string(*text))) {
      const Line line = lineOf(number, *text, identity.number);
      checkValues(line, findings);
      earlier.checkAndAdd(line, findings);
    } else {
      reportPassedOver(*text, number, findings);
    }
  }
  if (!endsInNewline) {
    findings.warn(warning::noNewline, number, "no newline ends the last line");
  }
}

// A line that is empty or meant as a comment loses nothing, so it is no error.
void CatalogueCheck::reportPassedOver(std::string_view text, std::size_t number,
                                      Findings& findings) {
  if (text.empty() || text == "\r") {
    findings.warn(warning::emptyLine, number, "the library reports an empty line as not valid");
  } else if (text.front() == '#') {
    findings.warn(warning::comment, number,
                  "there are no comments: the library reports the line as not valid");
  } else {
    findings.error(number, "the line is passed over: " + reasonFor(std::string(text)));
  }
}

// The library's message ends in its reason, in brackets. A NUL byte in the line would end it
// before.
std::string CatalogueCheck::reasonFor(std::string text) {
  std::replace(text.begin(), text.end(), '\0', '?');
  if (!mTalkingReader) {
    mTalkingReader = std::make_unique<TalkingReader>();
  }
  TalkingReader& reader = *mTalkingReader;
  reader.log.use({false, true});
  HardwareIdentity identity{};
  reader.identifier.parseIdentityLine(identity, std::move(text));
  reader.log.use({false, false});
  const std::string message = reader.log.takeMessages().back();
  const auto begin = message.rfind('(') + 1;
  return message.substr(begin, message.size() - 1 - begin);
}

}  // namespace ovxid::cli
