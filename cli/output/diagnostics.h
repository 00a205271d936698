#ifndef OVXID_CLI_OUTPUT_DIAGNOSTICS_H
#define OVXID_CLI_OUTPUT_DIAGNOSTICS_H

#include <stdexcept>
#include <string>
#include <utility>

#include "log/log.h"
#include "output/exit_status.h"

namespace ovxid::cli {

// One line on standard error: what failed, and why.
void complain(const std::string& what, const std::string& why);

// What ends the front end: the line to print, and the exit status.
class Failure : public std::runtime_error {
 public:
  Failure(ExitStatus status, std::string what, const std::string& why)
      : std::runtime_error(why), mStatus(status), mSubject(std::move(what)) {}

  const std::string& subject() const { return mSubject; }
  int status() const { return mStatus.value; }

 private:
  ExitStatus mStatus;
  std::string mSubject;
};

// Where the library's messages go: to standard error if `verbose`, each with its level before it.
Log messages(bool verbose);

}  // namespace ovxid::cli

#endif
