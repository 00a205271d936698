#ifndef OVXID_REPLAY_FILES_H
#define OVXID_REPLAY_FILES_H

#include <string>
#include <string_view>

#include "recording/recording.h"

namespace ovxid::replay {

// The names are those below an open directory, or whole paths. All of these throw Failure.

void makeFile(int directory, const std::string& name, std::string_view bytes);

// A device that not even root can open, in a file system that allows no devices.
void makeClosedFile(int directory, const std::string& name);

void makeDirectory(int directory, const std::string& name);

// What reads as the content, in a file system as above.
void makeContent(int directory, const std::string& name, const recording::Content& content);

}  // namespace ovxid::replay

#endif
