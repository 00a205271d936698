#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "manuals/page.h"

using testing::HasSubstr;

namespace {

class ManualPage : public testing::TestWithParam<std::string> {};

std::vector<std::string> pages() {
  std::vector<std::string> names;
  for (const auto& page : std::filesystem::directory_iterator(OVXID_MANUAL_SOURCES)) {
    names.push_back(page.path().filename());
  }
  std::sort(names.begin(), names.end());
  return names;
}

TEST_P(ManualPage, IsOfThisVersion) {
  const std::string page = manualPage(GetParam());
  EXPECT_THAT(page.substr(0, page.find('\n')),
              HasSubstr(" " OVXID_DATE " \"ovxid " OVXID_VERSION "\" "));
}

INSTANTIATE_TEST_SUITE_P(Page, ManualPage, testing::ValuesIn(pages()), [](const auto& test) {
  std::string page = test.param;
  std::replace_if(
      page.begin(), page.end(), [](char byte) { return byte == '.' || byte == '-'; }, '_');
  return page;
});

}  // namespace
