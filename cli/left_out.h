#ifndef OVXID_CLI_LEFT_OUT_H
#define OVXID_CLI_LEFT_OUT_H

#include <string>

namespace ovxid::cli {

// A line of comment that tells why a listing leaves out a variable. The name does not end it: a
// backslash there would make systemd take the next line for a part of the comment.
std::string leftOut(const std::string& name, const std::string& why);

}  // namespace ovxid::cli

#endif
