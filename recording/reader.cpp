#include "recording/reader.h"

#include <arpa/inet.h>

#include <algorithm>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

#include "encoding/ascii.h"
#include "encoding/hexadecimal.h"
#include "recording/errors.h"
#include "recording/format.h"
#include "recording/limits.h"
#include "recording/mac.h"

namespace ovxid::recording {

namespace {

using Json = nlohmann::ordered_json;

// A value of the document, and how to get there.
class Value {
 public:
  Value(const Json& json, std::string place) : mJson(json), mPlace(std::move(place)) {}

  [[noreturn]] void refuse(const std::string& why) const {
    const char* const root = mPlace.empty() ? "/" : "";
    throw Unreadable(root + mPlace + ": " + why);
  }

  bool isText() const { return mJson.is_string(); }
  bool isArray() const { return mJson.is_array(); }
  bool isObject() const { return mJson.is_object(); }
  std::size_t size() const { return mJson.size(); }
  bool has(const char* key) const { return mJson.contains(key); }

  Value at(const char* key) const {
    if (!has(key)) {
      refuse(std::string("has no '") + key + "'");
    }
    return {mJson[key], mPlace + "/" + key};
  }
  Value at(std::size_t index) const { return {mJson[index], mPlace + "/" + std::to_string(index)}; }

  const std::string& text() const {
    if (!isText()) {
      refuse("is no text");
    }
    return mJson.get_ref<const std::string&>();
  }
  bool truth() const {
    if (!mJson.is_boolean()) {
      refuse("is neither true nor false");
    }
    return mJson.get<bool>();
  }
  std::uint64_t number(std::uint64_t largest) const {
    if (!mJson.is_number_unsigned() || mJson.get<std::uint64_t>() > largest) {
      refuse("is no number from 0 to " + std::to_string(largest));
    }
    return mJson.get<std::uint64_t>();
  }

  const Value& requireArray(std::size_t mostElements) const {
    if (!isArray()) {
      refuse("is no array");
    }
    if (size() > mostElements) {
      refuse("has more than " + std::to_string(mostElements) + " elements");
    }
    return *this;
  }
  const Value& requireObject(std::initializer_list<const char*> keys) const {
    if (!isObject()) {
      refuse("is no object");
    }
    for (const auto& [name, value] : mJson.items()) {
      if (std::find(keys.begin(), keys.end(), name) == keys.end()) {
        refuse("has a key that is not known");
      }
    }
    return *this;
  }

 private:
  const Json& mJson;
  std::string mPlace;
};

std::string part(const Value& value) {
  if (value.isText()) {
    return value.text();
  }
  if (!value.isObject()) {
    value.refuse("is no text");
  }
  value.requireObject({key::hexadecimal});
  std::optional<std::string> decoded = bytesOfHexadecimal(value.at(key::hexadecimal).text());
  if (!decoded) {
    value.at(key::hexadecimal).refuse("is not of pairs of the digits 0 to 9 and a to f");
  }
  return *std::move(decoded);
}

// A text, or the parts of one.
std::string bytes(const Value& value, std::size_t most) {
  std::string joined;
  if (!value.isArray()) {
    joined = part(value);
  } else {
    for (std::size_t i = 0; i < value.size() && joined.size() <= most; ++i) {
      joined += part(value.at(i));
    }
  }
  if (joined.size() > most) {
    value.refuse("has more than " + std::to_string(most) + " bytes");
  }
  return joined;
}

int errorIn(const Value& value) {
  const std::optional<int> number = errorNamed(value.text());
  if (!number) {
    value.refuse("is no error that is known");
  }
  return *number;
}

bool isError(const Value& value) {
  return value.isObject() && (value.has(key::openError) || value.has(key::readError));
}

Content content(const Value& value, std::size_t most) {
  if (!isError(value)) {
    return {bytes(value, most), 0, 0};
  }
  if (value.has(key::openError)) {
    value.requireObject({key::openError});
    return {{}, errorIn(value.at(key::openError)), 0};
  }
  value.requireObject({key::readError});
  return {{}, 0, errorIn(value.at(key::readError))};
}

// What is below the node stays there: no file system may be led to another place.
std::string entryName(const Value& value) {
  std::string name = bytes(value, limit::nameLength);
  if (name.empty() || name == "." || name == ".." || name.find('/') != std::string::npos ||
      name.find('\0') != std::string::npos) {
    value.refuse("is no name of a property or a node");
  }
  return name;
}

// Counts what it reads: no property is taken that is too many.
class NodeReader {
 public:
  Entry node(const Value& content, std::string name, std::size_t depth) {
    Entry node;
    node.name = std::move(name);
    node.isNode = true;
    if (isError(content)) {
      content.requireObject({key::openError});
      node.value.openError = errorIn(content.at(key::openError));
      return node;
    }
    content.requireArray(limit::properties);
    if (depth > limit::depth) {
      content.refuse("is deeper than " + std::to_string(limit::depth) + " nodes");
    }
    std::set<std::string> names;
    for (std::size_t i = 0; i < content.size(); ++i) {
      node.content.push_back(entry(content.at(i), depth));
      if (!names.insert(node.content.back().name).second) {
        content.at(i).at(key::name).refuse("is that of an entry before it");
      }
    }
    return node;
  }

 private:
  Entry entry(const Value& value, std::size_t depth) {
    value.requireObject({key::name, key::value, key::content});
    if (++mCount > limit::properties) {
      value.refuse("is one of more than " + std::to_string(limit::properties) + " properties");
    }
    std::string name = entryName(value.at(key::name));
    if (!value.has(key::value)) {
      return node(value.at(key::content), std::move(name), depth + 1);
    }
    value.requireObject({key::name, key::value});
    Entry property;
    property.name = std::move(name);
    property.value = content(value.at(key::value), limit::value);
    return property;
  }

  std::size_t mCount = 0;
};

// In the kernel's list, a name has 15 bytes at most.
std::string interfaceName(const Value& value) {
  constexpr std::size_t longest = 15;
  std::string name = bytes(value, longest);
  if (name.empty() || name.find('\0') != std::string::npos) {
    value.refuse("is no name of an interface");
  }
  return name;
}

bool isAddress(const std::string& text) {
  in_addr address{};
  return text.find('\0') == std::string::npos && inet_pton(AF_INET, text.c_str(), &address) == 1;
}

Interface interface(const Value& value) {
  value.requireObject({key::name, key::address, key::mac});
  Interface result;
  result.name = interfaceName(value.at(key::name));
  if (value.has(key::address)) {
    result.address = value.at(key::address).text();
    if (!isAddress(*result.address)) {
      value.at(key::address).refuse("is no IPv4 address");
    }
  }
  if (value.has(key::mac)) {
    result.mac = macOf(value.at(key::mac).text());
    if (!result.mac) {
      value.at(key::mac).refuse("is no MAC address of small digits");
    }
  }
  return result;
}

Said said(const Value& value) {
  constexpr std::uint64_t largestStatus = 255;
  value.requireObject({key::out, key::err, key::status});
  return {static_cast<int>(value.at(key::status).number(largestStatus)),
          bytes(value.at(key::out), limit::document), bytes(value.at(key::err), limit::document)};
}

// What uname(2) has room for.
std::string kernelName(const Value& value) {
  constexpr std::size_t longest = 64;
  std::string name = bytes(value, longest);
  if (name.find('\0') != std::string::npos) {
    value.refuse("has a NUL byte");
  }
  return name;
}

void readKernel(const Value& document, Recording& recording) {
  if (document.has(key::uname)) {
    const Value uname = document.at(key::uname);
    recording.unameError = errorIn(uname.requireObject({key::error}).at(key::error));
    return;
  }
  recording.release = kernelName(document.at(key::release));
  recording.machine = kernelName(document.at(key::machine));
}

void readTree(const Value& document, Recording& recording) {
  recording.hasDeviceTree = document.at(key::deviceTree).truth();
  if (document.has(key::node)) {
    const Value node = document.at(key::node);
    if (!recording.hasDeviceTree) {
      node.refuse("is in no device tree");
    }
    recording.node = NodeReader().node(node, "", 1);
  }
  if (document.has(key::model)) {
    recording.model = bytes(document.at(key::model), limit::value);
  }
  if (document.has(key::compatible)) {
    const Value compatible = document.at(key::compatible);
    compatible.requireArray(limit::interfaces);
    for (std::size_t i = 0; i < compatible.size(); ++i) {
      recording.compatible.push_back(bytes(compatible.at(i), limit::value));
    }
  }
}

void readInterfaces(const Value& document, Recording& recording) {
  const Value interfaces = document.at(key::interfaces);
  interfaces.requireArray(limit::interfaces);
  for (std::size_t i = 0; i < interfaces.size(); ++i) {
    recording.interfaces.push_back(interface(interfaces.at(i)));
  }
  recording.interfaceRoom = document.at(key::interfaceRoom).number(limit::interfaces);
}

void requireFormat(const Value& document) {
  if (!document.isObject() || !document.has(key::format)) {
    document.refuse("no recording: there is no 'format'");
  }
  if (document.at(key::format).number(UINT32_MAX) != thisFormat) {
    document.at(key::format)
        .refuse("is not " + std::to_string(thisFormat) +
                ", the only format that this version of ovxid reads");
  }
}

std::string placeOfByte(std::string_view document, std::size_t byte) {
  const std::string_view before = document.substr(0, std::min(byte, document.size()));
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t column = before.size() - (before.rfind('\n') + 1);
  return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

// Makes the values of a document and stops at its limits. The JSON library's own way cannot stop
// without looking at a whole array again for each value in it, and takes the last of equal keys.
class DocumentParser : public nlohmann::json_sax<Json> {
 public:
  explicit DocumentParser(std::string_view document) : mDocument(document) {}

  Json take() { return std::move(mRoot); }

  bool null() override { return add(nullptr); }
  bool boolean(bool value) override { return add(value); }
  bool number_integer(number_integer_t value) override { return add(value); }
  bool number_unsigned(number_unsigned_t value) override { return add(value); }
  bool number_float(number_float_t value, const string_t& /*text*/) override { return add(value); }
  bool string(string_t& value) override { return add(std::move(value)); }
  // Only of formats that are no text.
  bool binary(binary_t& /*value*/) override { return false; }  // GCOVR_EXCL_LINE

  bool start_object(std::size_t /*elements*/) override { return begin(Json::object()); }
  bool key(string_t& name) override {
    if (!mKeys.back().insert(name).second) {
      throw Unreadable("has a key twice in an object");
    }
    mKey = std::move(name);
    return true;
  }
  bool end_object() override { return end(); }
  bool start_array(std::size_t /*elements*/) override { return begin(Json::array()); }
  bool end_array() override { return end(); }

  bool parse_error(std::size_t byte, const std::string& /*token*/,
                   const nlohmann::detail::exception& error) override {
    constexpr int numberOverflow = 406;
    const char* const why = error.id == numberOverflow ? "a number that is too large" : "no JSON";
    throw Unreadable(placeOfByte(mDocument, byte) + ": " + why);
  }

 private:
  Json& place(Json value) {
    if (++mValues > limit::jsonValues) {
      throw Unreadable("has more than " + std::to_string(limit::jsonValues) + " values");
    }
    if (mOpen.empty()) {
      return mRoot = std::move(value);
    }
    Json& parent = *mOpen.back();
    if (parent.is_array()) {
      return parent.emplace_back(std::move(value));
    }
    // Without a search for the key: it is none of those before.
    return parent.get_ref<Json::object_t&>()
        .Container::emplace_back(std::move(mKey), std::move(value))
        .second;
  }
  bool add(Json value) {
    place(std::move(value));
    return true;
  }
  bool begin(Json value) {
    // Arrays and objects of the document, of each node, and of each text.
    constexpr std::size_t deepest = 2 * limit::depth + 8;
    mOpen.push_back(&place(std::move(value)));
    mKeys.emplace_back();
    if (mOpen.size() > deepest) {
      throw Unreadable("is deeper than " + std::to_string(deepest) + " arrays and objects");
    }
    return true;
  }
  bool end() {
    mOpen.pop_back();
    mKeys.pop_back();
    return true;
  }

  std::string_view mDocument;
  Json mRoot;
  std::size_t mValues = 0;
  // The arrays and objects that have not ended, and their keys. An array has none.
  std::vector<Json*> mOpen;
  std::vector<std::set<std::string>> mKeys;
  std::string mKey;
};

Json parse(std::string_view document) {
  DocumentParser parser(document);
  Json::sax_parse(document.begin(), document.end(), &parser);
  return parser.take();
}

// What people give by mistake.
void requireNoArchive(std::string_view document) {
  constexpr std::string_view gzip("\x1f\x8b");
  constexpr std::string_view xz(
      "\xfd"
      "7zXZ");
  constexpr std::string_view zstd("\x28\xb5\x2f\xfd");
  constexpr std::size_t markOfTar = 257;
  const bool isTar = document.size() > markOfTar && beginsWith(document.substr(markOfTar), "ustar");
  if (isTar || beginsWith(document, gzip) || beginsWith(document, xz) ||
      beginsWith(document, zstd) || beginsWith(document, "PK") || beginsWith(document, "BZh")) {
    throw Unreadable("an archive, and no recording: unpack it first");
  }
}

}  // namespace

Recording readDocument(std::string_view document) {
  requireNoArchive(document);
  if (document.size() > limit::document) {
    throw Unreadable("is larger than " + std::to_string(limit::document) + " bytes");
  }
  const Json json = parse(document);
  const Value root(json, "");
  requireFormat(root);
  root.requireObject({key::format, key::version, key::release, key::machine, key::uname, key::model,
                      key::compatible, key::deviceTree, key::node, key::cpuinfo, key::catalogue,
                      key::interfaces, key::interfaceRoom, key::said});
  Recording recording;
  recording.version = root.at(key::version).text();
  readKernel(root, recording);
  readTree(root, recording);
  if (root.has(key::cpuinfo)) {
    recording.cpuinfo = content(root.at(key::cpuinfo), limit::document);
  }
  if (root.has(key::catalogue)) {
    recording.catalogue = content(root.at(key::catalogue), limit::document);
  }
  readInterfaces(root, recording);
  if (root.has(key::said)) {
    recording.said = said(root.at(key::said));
  }
  return recording;
}

}  // namespace ovxid::recording
