#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "manuals/page.h"

using testing::HasSubstr;

namespace {

class ManualPage : public testing::TestWithParam<const char*> {};

TEST_P(ManualPage, IsOfThisVersion) {
  const std::string page = manualPage(GetParam());
  EXPECT_THAT(page.substr(0, page.find('\n')),
              HasSubstr(" " OVXID_DATE " \"ovxid " OVXID_VERSION "\" "));
}

INSTANTIATE_TEST_SUITE_P(Page, ManualPage,
                         testing::Values("ovxid.1", "ovxid-replay.1", "libovxid.3",
                                         "known_ovx_ids.5", "ovxid.service.8"),
                         [](const auto& test) {
                           std::string page = test.param;
                           std::replace_if(
                               page.begin(), page.end(),
                               [](char byte) { return byte == '.' || byte == '-'; }, '_');
                           return page;
                         });

}  // namespace
