#ifndef OVXID_CLI_BOARD_H
#define OVXID_CLI_BOARD_H

#include <OvxIdentifier.h>

#include "cQlog.h"

namespace ovxid::cli {

// This machine, as the library sees it.
class Board {
 public:
  // With `verbose`, each message of the library goes to standard error. With `keepMessages`, it is
  // kept for messages().
  explicit Board(bool verbose, bool keepMessages = false);

  // Determines and reports the identity, as a query of the library does. Throws Failure.
  void identify();
  // Appends the parameters to the list.
  void collect();

  // Reads a line of a catalogue as the library does, without its messages. False if it is passed
  // over.
  bool readLine(HardwareIdentity& identity, const std::string& line);

  bool isIdentified() const { return mIdentified; }
  // The name up to its first NUL byte, as a launched program sees it.
  std::string name();
  std::int32_t number();
  // What the library logged so far, if it was to be kept.
  const std::vector<std::string>& messages() const { return mLog.messages(); }
  OvxIdentifier& identifier() { return mIdentifier; }

 private:
  cQlog mLog;
  OvxIdentifier mIdentifier;
  bool mIdentified = false;
};

}  // namespace ovxid::cli

#endif
