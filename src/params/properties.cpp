#include "params/properties.h"

#include <locale>
#include <utility>

#include "params/names.h"
#include "text/lines.h"

namespace ovxid {

namespace {

constexpr std::string_view nodesOwnName = "name";

// A newline that ends a text takes nothing away. In cells there are NUL bytes.
bool isCut(const FirstLine& line) {
  const bool isText = !line.text.empty() && line.text.find('\0') == std::string::npos;
  return line.endsInNewline && (line.hasMoreBehind || !isText);
}

void collectProperty(const NodeEntry& property, Collector& collector) {
  std::string name = parameterName(property.name());
  InputFile file = property.open();
  FirstLine line = firstLine(file);
  const Origin origin{Origin::Kind::property, property.path(), file.error(), isCut(line)};
  collector.add(std::move(name), std::move(line.text), origin);
}

}  // namespace

bool isParameter(std::string_view property) { return property != nodesOwnName; }

std::string parameterName(std::string_view property) {
  const std::locale locale;
  const auto& letters = std::use_facet<std::ctype<char>>(locale);
  std::string name = parameter::prefix;
  for (const char byte : property) {
    name += letters.toupper(byte);
  }
  return name;
}

bool collectProperties(const Host& host, Collector& collector) {
  return host.walkNode([&](const NodeEntry& entry) {
    if (!entry.isProperty()) {
      collector.leaveOut(entry.path());
    } else if (isParameter(entry.name())) {
      collectProperty(entry, collector);
    }
  }) == 0;
}

}  // namespace ovxid
