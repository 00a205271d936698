#include <ovxid/environment.h>

#include <nlohmann/json.hpp>

#include "encoding/ascii.h"
#include "encoding/hexadecimal.h"
#include "encoding/utf8.h"
#include "encoding/visible.h"
#include "formats/format.h"

namespace ovxid::cli::format {

namespace {

// Each object and each array begins as one: a null that becomes one when it is filled crashes this
// library when there is no memory for that.
using Json = nlohmann::ordered_json;

// Gives the object the text, or its bytes in hexadecimal where JSON cannot hold it as text.
void setText(Json& object, const std::string& key, const std::string& text) {
  if (isUtf8(text)) {
    object[key] = text;
  } else {
    object[key + "_hex"] = hexadecimal(text);
  }
}

// The strings of a list such as `compatible`. A single string is no list. Cells may look like short
// strings.
Json strings(std::string_view value) {
  Json list = Json::array();
  while (!value.empty()) {
    const auto end = value.find('\0');
    const std::string_view text = value.substr(0, end);
    if (end == std::string_view::npos || text.empty() || !isPrintable(text)) {
      return Json::array();
    }
    list.push_back(text);
    value.remove_prefix(end + 1);
  }
  return list.size() > 1 ? list : Json::array();
}

Json toJson(const ovx_param& parameter) {
  Json object = Json::object();
  setText(object, "name", parameter.name);
  const std::string& value = parameter.value;
  if (!isUtf8(value)) {
    object["value_hex"] = hexadecimal(value);
    return object;
  }
  const std::string_view text = withoutLastNul(value);
  object["value"] = text;
  if (Json list = strings(value); !list.empty()) {
    object["strings"] = std::move(list);
  }
  if (text.size() != value.size()) {
    object["value_hex"] = hexadecimal(value);
  }
  return object;
}

// Where one of them is no text, all stand in hexadecimal as well, in their order.
void setAliases(Json& object, const Board& board) {
  object["aliases"] = Json::array();
  Json bytes = Json::array();
  for (const std::string& alias : board.aliases()) {
    if (isUtf8(alias)) {
      object["aliases"].push_back(alias);
    }
    bytes.push_back(hexadecimal(alias));
  }
  if (object["aliases"].size() < bytes.size()) {
    object["aliases_hex"] = std::move(bytes);
  }
}

void setEnvironment(Json& object, const std::vector<ovx_param>& variables) {
  object["environment"] = Json::object();
  Json bytes = Json::object();
  for (const ovx_param& variable : variables) {
    if (isUtf8(variable.name) && isUtf8(variable.value)) {
      object["environment"][variable.name] = variable.value;
    } else {
      bytes[hexadecimal(variable.name)] = hexadecimal(variable.value);
    }
  }
  if (!bytes.empty()) {
    object["environment_hex"] = std::move(bytes);
  }
}

}  // namespace

std::string json(const Board& board) {
  Json object = Json::object();
  object["identified"] = board.isIdentified();
  setText(object, "name", board.name());
  object["number"] = board.number();
  const Source* const source = board.decidedBy();
  object["source"] = source == nullptr ? Json() : Json(source->name);
  setAliases(object, board);
  const std::vector<ovx_param>& list = board.parameters();
  object["parameters"] = Json::array();
  for (const ovx_param& parameter : list) {
    object["parameters"].push_back(toJson(parameter));
  }
  setEnvironment(object, environment(list));
  return object.dump(2) + "\n";
}

}  // namespace ovxid::cli::format
