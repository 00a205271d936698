#ifndef OVXID_CLI_OUTPUT_EXIT_STATUS_H
#define OVXID_CLI_OUTPUT_EXIT_STATUS_H

namespace ovxid::cli {

struct ExitStatus {
  int value;
  const char* meaning;
};

namespace exit_status {
constexpr ExitStatus done = {0, "done"};
constexpr ExitStatus no = {
    1, "the board is not identified, has no such parameter, or check found something"};
constexpr ExitStatus usage = {2, "the command line is wrong"};
constexpr ExitStatus notWritten = {3, "the output could not be written"};
constexpr ExitStatus notRead = {
    4, "a catalogue, a recording or what is to be recorded could not be read"};
// The status that env(1) and timeout(1) have for a failure of their own.
constexpr ExitStatus ownFailure = {
    125, "ovxid itself failed: memory ran out, or an error that should not happen"};
constexpr ExitStatus cannotRun = {126, "the program of run or shell cannot be run"};
constexpr ExitStatus notFound = {127, "the program of run or shell was not found"};
// What a shell makes of SIGABRT, by which the library ends a program there.
constexpr ExitStatus aborted = {134, "the name of the WAN interface is too long"};
}  // namespace exit_status

constexpr ExitStatus exitStatuses[] = {
    exit_status::done,       exit_status::no,       exit_status::usage,
    exit_status::notWritten, exit_status::notRead,  exit_status::ownFailure,
    exit_status::cannotRun,  exit_status::notFound, exit_status::aborted,
};

}  // namespace ovxid::cli

#endif
