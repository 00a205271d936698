#include "cli/command_line/suggestion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <random>

using ovxid::cli::nearest;
using ovxid::cli::suggestion;

namespace {

bool isSame(char one, char other) { return std::tolower(one) == std::tolower(other); }

std::size_t least(std::size_t one, std::size_t other) { return std::min(one, other); }

// How many mistakes a typist has made, found by trying all of them.
std::size_t mistakes(std::string_view from, std::string_view to) {
  if (from.empty() || to.empty()) {
    return from.size() + to.size();
  }
  const std::string_view fromRest = from.substr(1);
  const std::string_view toRest = to.substr(1);
  if (isSame(from[0], to[0])) {
    return mistakes(fromRest, toRest);
  }
  std::size_t count =
      1 + least(mistakes(fromRest, toRest), least(mistakes(fromRest, to), mistakes(from, toRest)));
  if (from.size() > 1 && to.size() > 1 && isSame(from[0], to[1]) && isSame(from[1], to[0])) {
    count = least(count, 1 + mistakes(from.substr(2), to.substr(2)));
  }
  return count;
}

std::string randomWord(std::mt19937& random, std::size_t longest) {
  std::string word(random() % (longest + 1), ' ');
  std::generate(word.begin(), word.end(), [&] { return "abAB"[random() % 4]; });
  return word;
}

TEST(Suggestion, IsTheFirstOfTheNearestWordsIfAThirdOfTheLettersIsRight) {
  std::mt19937 random(1);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same words each time
  for (int attempt = 0; attempt < 20000; ++attempt) {
    const std::string word = randomWord(random, 8);
    std::vector<std::string> known(3);
    std::generate(known.begin(), known.end(), [&] { return randomWord(random, 8); });
    const auto best =
        std::min_element(known.begin(), known.end(), [&](const auto& one, const auto& other) {
          return mistakes(word, one) < mistakes(word, other);
        });
    const bool isNear = mistakes(word, *best) <= std::max<std::size_t>(word.size() / 3, 1);
    ASSERT_EQ(nearest(word, known), isNear ? *best : "")
        << "'" << word << "' of " << testing::PrintToString(known);
  }
}

TEST(Suggestion, LooksAtTheFirst64LettersOnly) {
  const std::string known(64, 'k');
  EXPECT_EQ(nearest(known + std::string(100, 'x'), {known}), known);
  EXPECT_EQ(nearest(std::string(43, 'k') + std::string(100, 'x'), {known}), known);
  EXPECT_EQ(nearest(std::string(42, 'k') + std::string(100, 'x'), {known}), "");
}

TEST(Suggestion, IsAQuestion) {
  EXPECT_EQ(suggestion("nme", {"list", "name"}), ", did you mean 'name'?");
  EXPECT_EQ(suggestion("nme", {"list"}), "");
}

}  // namespace
