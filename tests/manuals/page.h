#ifndef OVXID_TESTS_MANUALS_PAGE_H
#define OVXID_TESTS_MANUALS_PAGE_H

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

// The source of a manual page, such as "ovxid.1".
inline std::string manualPage(const std::string& name) {
  std::ostringstream source;
  source << std::ifstream(OVXID_MANUALS "/" + name).rdbuf();
  if (!source) {
    throw std::runtime_error("there is no manual page " + name);
  }
  return source.str();
}

// What a reader sees of it: without changes of the font, and with plain hyphens.
inline std::string shown(const std::string& source) {
  constexpr const char* font = "\\f";
  std::string text = source;
  for (auto at = text.find(font); at != std::string::npos; at = text.find(font, at)) {
    text.erase(at, std::string("\\fB").size());
  }
  constexpr const char* hyphen = "\\-";
  for (auto at = text.find(hyphen); at != std::string::npos; at = text.find(hyphen, at)) {
    text.erase(at, 1);
  }
  return text;
}

// The example of the page that has these words in it, as a reader sees it.
inline std::string exampleWith(const std::string& words, const std::string& page) {
  const std::string begin = "\n.EX\n";
  for (auto at = page.find(begin); at != std::string::npos; at = page.find(begin, at + 1)) {
    const auto start = at + begin.size();
    std::string example = shown(page.substr(start, page.find(".EE\n", start) - start));
    if (example.find(words) != std::string::npos) {
      return example;
    }
  }
  throw std::runtime_error("the manual page has no example with " + words);
}

#endif
