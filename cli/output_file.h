#ifndef OVXID_CLI_OUTPUT_FILE_H
#define OVXID_CLI_OUTPUT_FILE_H

#include <string>
#include <string_view>

namespace ovxid::cli {

// Makes a file of this content, which must not be there yet. Throws Failure.
void createFile(const std::string& path, std::string_view content);

// Gives the file this content, as a whole: a reader sees the old content or all of the new one.
// When it fails, which throws Failure, the old file stays and nothing else is left behind. What a
// run left behind that was killed meanwhile, the next one in that directory removes.
void replaceFile(const std::string& path, std::string_view content);

}  // namespace ovxid::cli

#endif
