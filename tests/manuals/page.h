#ifndef OVXID_TESTS_MANUALS_PAGE_H
#define OVXID_TESTS_MANUALS_PAGE_H

#include <fstream>
#include <regex>
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

// The example of the page that has these words in it, as a reader sees it.
inline std::string exampleWith(const std::string& words, const std::string& page) {
  const std::string begin = "\n.EX\n";
  for (auto at = page.find(begin); at != std::string::npos; at = page.find(begin, at + 1)) {
    const auto start = at + begin.size();
    const std::string source = page.substr(start, page.find(".EE\n", start) - start);
    std::string example = std::regex_replace(source, std::regex(R"(\\f[A-Z])"), "");
    example = std::regex_replace(example, std::regex(R"(\\-)"), "-");
    if (example.find(words) != std::string::npos) {
      return example;
    }
  }
  throw std::runtime_error("the manual page has no example with " + words);
}

#endif
