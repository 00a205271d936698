#include "command_line/options.h"

#include <algorithm>
#include <cstdlib>

#include "command_line/command_table.h"
#include "command_line/suggestion.h"
#include "encoding/ascii.h"
#include "output/diagnostics.h"

namespace ovxid::cli {

namespace {

bool has(const std::vector<Option>& options, std::string_view name) {
  return std::any_of(options.begin(), options.end(),
                     [&](const Option& each) { return name == each.name; });
}

// Where an option of this name may stand; empty if there is none.
std::string placeOfOption(std::string_view name) {
  if (has(generalOptions(), name)) {
    return "belongs before the command";
  }
  for (const Command& command : commandTable) {
    if (has(optionsOf(command), name)) {
      return std::string("belongs behind '") + command.name + "'";
    }
  }
  return "";
}

}  // namespace

Options::Options(std::vector<Option> options, Reach reach, std::string help)
    : mOptions(std::move(options)),
      mShort(reach == Reach::beforeOperands ? "+:" : ":"),
      mHelp(std::move(help)) {
  for (const Option& each : mOptions) {
    const int hasArgument = each.argument == nullptr ? no_argument : required_argument;
    mLong.push_back({each.name, hasArgument, nullptr, code(each)});
    if (each.letter != '\0') {
      mShort += each.letter;
    }
  }
  mLong.push_back({});
  if (reach == Reach::everywhere) {
    // It would end the options at the first operand. Nothing is launched that could miss it.
    unsetenv("POSIXLY_CORRECT");
  }
  // Makes getopt_long(3) begin anew.
  optind = 0;
  opterr = 0;
}

const Option* Options::next(int argc, char** argv) {
  const int read = getopt_long(argc, argv, mShort.c_str(), mLong.data(), nullptr);
  if (read == -1) {
    return nullptr;
  }
  const char* const word = argv[optind - 1];
  if (read == ':') {
    refuse(word, std::string("needs a ") + find(optopt)->argument);
  }
  if (read == '?' && find(optopt) != nullptr) {
    refuse(word, "takes no value");
  }
  if (read == '?') {
    refuseUnknown(word);
  }
  mArgument = optarg;
  return find(read);
}

// The word before the first is not one of ours, and an option may have had "--" as its argument.
bool Options::wereEndedByDashes(char** argv) const {
  const char* const before = argv[optind - 1];
  return optind > 1 && std::string_view(before) == "--" && before != mArgument;
}

void Options::refuse(const std::string& word, const std::string& why) const {
  throw Failure(exit_status::usage, word, why + " (see '" + mHelp + "')");
}

void Options::refuseUnknown(const std::string& word) const {
  if (optopt != 0) {
    refuse({'-', static_cast<char>(optopt)}, "no such option");
  }
  const std::string name = word.substr(0, word.find('='));
  std::vector<std::string> known;
  std::string meant;
  for (const Option& each : mOptions) {
    known.push_back(std::string("--") + each.name);
    if (beginsWith(known.back(), name)) {
      meant += (meant.empty() ? "" : " or ") + known.back();
    }
  }
  if (!meant.empty()) {
    refuse(name, "may be " + meant);
  }
  const std::string place = placeOfOption(name.substr(2));
  refuse(name, place.empty() ? "no such option" + suggestion(name, known) : place);
}

// Above all letters for options that have none.
int Options::code(const Option& option) const {
  return option.letter == '\0' ? 256 + static_cast<int>(&option - mOptions.data()) : option.letter;
}

const Option* Options::find(int wanted) const {
  const auto found = std::find_if(mOptions.begin(), mOptions.end(),
                                  [&](const Option& each) { return code(each) == wanted; });
  return found == mOptions.end() ? nullptr : &*found;
}

Options generalOptionReader() { return {generalOptions(), Reach::beforeOperands, "ovxid --help"}; }

// What is launched has options of its own.
Options optionReader(const Command& command) {
  const bool launches = command.launches != Launches::nothing;
  return {optionsOf(command), launches ? Reach::beforeOperands : Reach::everywhere,
          std::string("ovxid help ") + command.name};
}

}  // namespace ovxid::cli
