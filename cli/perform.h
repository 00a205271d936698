#ifndef OVXID_CLI_PERFORM_H
#define OVXID_CLI_PERFORM_H

namespace ovxid::cli {

// Does what the command line asks for, or complains. Returns the exit status.
int perform(int argc, char** argv);

}  // namespace ovxid::cli

#endif
