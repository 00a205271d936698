#ifndef OVXID_CLI_OUTPUT_OUTPUT_FILE_H
#define OVXID_CLI_OUTPUT_OUTPUT_FILE_H

#include <sys/types.h>

#include <string>
#include <string_view>

namespace ovxid::cli {

// Gives the file this content, as a whole: a reader sees the old content or all of the new one.
// When it fails, which throws Failure, the old file stays and nothing else is left behind. What a
// run left behind that was killed meanwhile, the next one in that directory removes. The file has
// no more rights than `mode`.
void replaceFile(const std::string& path, std::string_view content, mode_t mode = 0666);

}  // namespace ovxid::cli

#endif
