#include <unistd.h>

#include <cstdint>

#include "check/catalogue_check.h"
#include "command_line/command.h"
#include "command_line/named.h"
#include "encoding/visible.h"
#include "host/host.h"
#include "output/diagnostics.h"
#include "output/output.h"
#include "recording/file.h"
#include "recording/reader.h"

namespace ovxid::cli::command {

namespace {

std::vector<std::string> ignoredWarnings(const Invocation& invocation) {
  std::vector<std::string> names;
  for (const auto& [option, name] : invocation.options) {
    names.emplace_back(named(warnings, name, "warning", "ovxid help check").name);
  }
  return names;
}

std::vector<std::string> filesOf(const Invocation& invocation) {
  std::vector<std::string> files(invocation.operands,
                                 invocation.operands + invocation.operandCount);
  if (files.empty()) {
    files.emplace_back(pathOf(File::catalogue));
  }
  return files;
}

// How a finding names the file. Its name may have bytes that a terminal would obey.
std::string nameOf(const std::string& file) {
  if (isatty(STDOUT_FILENO) != 0) {
    return harmless(file);
  }
  return file;
}

}  // namespace

// One that cannot be read does not keep the others from being checked.
int check(const Invocation& invocation) {
  const std::vector<std::string> ignored = ignoredWarnings(invocation);
  const Log log = messages(invocation.verbose);
  ExitStatus status = exit_status::done;
  bool found = false;
  for (const std::string& file : filesOf(invocation)) {
    try {
      Findings findings(nameOf(file), ignored);
      checkCatalogue(recording::bytesOfFile(file, SIZE_MAX), log, findings);
      print(findings.text());
      found = found || !findings.text().empty();
    } catch (const recording::Unreadable& error) {
      complain(file, error.what());
      status = exit_status::notRead;
    }
  }
  if (status.value == exit_status::done.value && found) {
    status = exit_status::no;
  }
  return status.value;
}

}  // namespace ovxid::cli::command
