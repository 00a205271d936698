#ifndef OVXID_RECORDING_FORMAT_H
#define OVXID_RECORDING_FORMAT_H

// The words of the document that has a recording.
namespace ovxid::recording {

constexpr int thisFormat = 1;

namespace key {
constexpr const char* format = "format";
constexpr const char* version = "ovxid";
constexpr const char* release = "release";
constexpr const char* machine = "machine";
constexpr const char* uname = "uname";
constexpr const char* model = "model";
constexpr const char* compatible = "compatible";
constexpr const char* deviceTree = "device_tree";
constexpr const char* node = "node";
constexpr const char* cpuinfo = "cpuinfo";
constexpr const char* catalogue = "catalogue";
constexpr const char* interfaces = "interfaces";
constexpr const char* interfaceRoom = "interface_room";
constexpr const char* said = "said";

constexpr const char* name = "name";
constexpr const char* value = "value";
constexpr const char* content = "content";
constexpr const char* address = "address";
constexpr const char* mac = "mac";
constexpr const char* out = "out";
constexpr const char* err = "err";
constexpr const char* status = "status";

constexpr const char* hexadecimal = "hex";
constexpr const char* error = "error";
constexpr const char* openError = "open_error";
constexpr const char* readError = "read_error";
}  // namespace key

}  // namespace ovxid::recording

#endif
