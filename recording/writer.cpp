#include "recording/writer.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

#include "encoding/hexadecimal.h"
#include "encoding/utf8.h"
#include "recording/errors.h"
#include "recording/format.h"
#include "recording/mac.h"

namespace ovxid::recording {

namespace {

// Each object and each array begins as one: a null that becomes one when it is filled crashes this
// library when there is no memory for that.
using Json = nlohmann::ordered_json;

// What is no UTF-8 is no text for JSON.
Json text(std::string_view bytes) {
  if (isUtf8(bytes)) {
    return bytes;
  }
  Json object = Json::object();
  object[key::hexadecimal] = hexadecimal(bytes);
  return object;
}

// A line each, for people who read and compare them.
Json lines(std::string_view bytes) {
  Json parts = Json::array();
  while (!bytes.empty()) {
    const std::string_view line = bytes.substr(0, std::min(bytes.find('\n'), bytes.size() - 1) + 1);
    parts.push_back(text(line));
    bytes.remove_prefix(line.size());
  }
  return parts;
}

Json error(const char* kind, int number) {
  Json object = Json::object();
  object[kind] = errorName(number);
  return object;
}

// A content that cannot be read to its end has no bytes worth keeping.
Json content(const Content& content, Json (*write)(std::string_view)) {
  if (content.openError != 0) {
    return error(key::openError, content.openError);
  }
  if (content.readError != 0) {
    return error(key::readError, content.readError);
  }
  return write(content.bytes);
}

void setFile(Json& object, const char* name, const Content& file) {
  if (file.openError != ENOENT) {
    object[name] = content(file, lines);
  }
}

Json nodeContent(const Entry& node);

Json entry(const Entry& entry) {
  Json object = Json::object();
  object[key::name] = text(entry.name);
  if (entry.isNode) {
    object[key::content] = nodeContent(entry);
  } else {
    object[key::value] = content(entry.value, text);
  }
  return object;
}

Json nodeContent(const Entry& node) {
  if (node.value.openError != 0) {
    return error(key::openError, node.value.openError);
  }
  Json entries = Json::array();
  for (const Entry& each : node.content) {
    entries.push_back(entry(each));
  }
  return entries;
}

Json interface(const Interface& interface) {
  Json object = Json::object();
  object[key::name] = text(interface.name);
  if (interface.address) {
    object[key::address] = *interface.address;
  }
  if (interface.mac) {
    object[key::mac] = textOf(*interface.mac);
  }
  return object;
}

void setKernel(Json& object, const Recording& recording) {
  if (recording.unameError != 0) {
    object[key::uname] = error(key::error, recording.unameError);
    return;
  }
  object[key::release] = text(recording.release);
  object[key::machine] = text(recording.machine);
}

void setTree(Json& object, const Recording& recording) {
  if (!recording.model.empty()) {
    object[key::model] = text(recording.model);
  }
  if (!recording.compatible.empty()) {
    object[key::compatible] = Json::array();
    for (const std::string& each : recording.compatible) {
      object[key::compatible].push_back(text(each));
    }
  }
  object[key::deviceTree] = recording.hasDeviceTree;
  if (recording.node) {
    object[key::node] = nodeContent(*recording.node);
  }
}

Json said(const Said& said) {
  Json object = Json::object();
  object[key::out] = lines(said.out);
  object[key::err] = lines(said.err);
  object[key::status] = said.status;
  return object;
}

}  // namespace

std::string documentOf(const Recording& recording) {
  Json object = Json::object();
  object[key::format] = thisFormat;
  object[key::version] = recording.version;
  setKernel(object, recording);
  setTree(object, recording);
  setFile(object, key::cpuinfo, recording.cpuinfo);
  setFile(object, key::catalogue, recording.catalogue);
  object[key::interfaces] = Json::array();
  for (const Interface& each : recording.interfaces) {
    object[key::interfaces].push_back(interface(each));
  }
  object[key::interfaceRoom] = recording.interfaceRoom;
  if (recording.said) {
    object[key::said] = said(*recording.said);
  }
  return object.dump(1) + "\n";
}

}  // namespace ovxid::recording
