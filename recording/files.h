#ifndef OVXID_RECORDING_FILES_H
#define OVXID_RECORDING_FILES_H

// The files of a recorded board.
namespace ovxid::recording::file {

// The kernel's release and machine, and what may not be read: a key=value a line.
constexpr const char* machine = "machine";
constexpr const char* cpuinfo = "cpuinfo";
constexpr const char* catalogue = "known_ovx_ids";
// The platform's node: a directory for each node and a file for each property.
constexpr const char* node = "device-tree";
// The entries of these directories in the order in which the kernel lists them, which is the order
// of the parameters: a path below the node a line.
constexpr const char* order = "device-tree.order";
// The kernel's list of IPv4 addresses: name or label, address and MAC address a line.
constexpr const char* interfaces = "interfaces";
// What the front end said there, as a session.
constexpr const char* said = "said";

}  // namespace ovxid::recording::file

#endif
