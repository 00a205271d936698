// That the reference and the fuzzer know every word of the front end. What they do not know, they
// do not compare.
#include "reference/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "cli/front_end.h"
#include "cli/help_text.h"

using reference::Options;

namespace {

class Reference : public FrontEnd {
 protected:
  // As the help texts list them. That of the front end itself does not list `complete`.
  std::map<std::string, Options> optionsOfCommands() {
    HelpLists lists = listsOf(ovxid({"--help"}).out);
    std::map<std::string, Options> options{{"", optionsIn(lists)}};
    lists["Commands"].push_back({"complete", "", "", ""});
    for (const HelpEntry& command : lists["Commands"]) {
      options[command.word] = optionsIn(listsOf(ovxid({"help", command.word}).out));
    }
    return options;
  }

 private:
  static Options optionsIn(const HelpLists& lists) {
    Options options;
    for (const HelpEntry& option : lists.at("Options")) {
      options[option.word.substr(std::string("--").size())] = !option.argument.empty();
    }
    return options;
  }
};

TEST_F(Reference, KnowsTheCommandsAndTheirOptions) {
  EXPECT_THAT(reference::optionsOfCommands(), testing::ContainerEq(optionsOfCommands()));
}

TEST_F(Reference, IsGivenEveryCommandAndOptionByTheDictionaryOfTheFuzzer) {
  std::set<std::string> dictionary;
  std::ifstream file(OVXID_DICTIONARY);
  for (std::string line; std::getline(file, line);) {
    dictionary.insert(line);
  }
  for (const auto& [command, options] : optionsOfCommands()) {
    if (!command.empty()) {
      EXPECT_THAT(dictionary, testing::Contains("\"" + command + "\""));
    }
    for (const auto& [option, hasValue] : options) {
      EXPECT_THAT(dictionary, testing::Contains("\"--" + option + "\""));
    }
  }
}

}  // namespace
