#ifndef OVXID_RECORDING_MAC_H
#define OVXID_RECORDING_MAC_H

#include <optional>
#include <string>
#include <string_view>

#include "recording/recording.h"

// MAC addresses as people write them: 02:42:ac:11:00:02
namespace ovxid::recording {

std::string textOf(const MacAddress& mac);
// None if the text is no MAC address.
std::optional<MacAddress> macOf(std::string_view text);

}  // namespace ovxid::recording

#endif
