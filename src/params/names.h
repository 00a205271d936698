#ifndef OVXID_PARAMS_NAMES_H
#define OVXID_PARAMS_NAMES_H

// The names of the parameters.
namespace ovxid::parameter {

// Stands before the name of a device-tree property.
constexpr const char* prefix = "OVX_";

constexpr const char* id = "OVX_ID";
constexpr const char* description = "OVX_DESC";
// What the identity gives, if there is one.
constexpr const char* ofIdentity[] = {id, description};
constexpr const char* wan = "OVX_WAN";
constexpr const char* wanMac = "OVX_WAN_ID";

}  // namespace ovxid::parameter

#endif
