#ifndef OVXID_TESTS_IDENTITY_DETERMINATION_MESSAGES_H
#define OVXID_TESTS_IDENTITY_DETERMINATION_MESSAGES_H

#include <gtest/gtest.h>

#include "simulation/board.h"

// The messages of a determination, in the order of its steps, and those of the report after it.

inline Messages missingNodeMessages() {
  return {debug("Attempting to find alias by DT"),
          debug("Could not open /proc/device-tree/orvanix/boardid "),
          debug("Could not open /proc/device-tree/orvanix/description ")};
}

inline Messages unameMessages(const std::string& release) {
  return missingNodeMessages() + debug("Attempting to find alias by uname") +
         debug("No problems with uname") + debug("uts.release= " + release);
}

inline const Message cpuinfoBegins = debug(
    "Finding the hardware idenitity with uname failed, attempting to find hardware identity with "
    "cpuinfo");
inline const Message cpuinfoMissing =
    error("Could not open the /proc/cpuinfo file, is the proc filesystem mounted");
inline const Message noMatch =
    error("The possible alias is not a real name or alias of any identity");
inline const Message failed =
    error("Could not find hardware identity with uname or through /proc/cpuinfo");

inline Messages determination(Board& board, OvxIdentifier& identifier, bool expected) {
  return board.messagesOf([&] { EXPECT_EQ(identifier.determineIdentity(), expected); });
}

inline Messages report(Board& board, OvxIdentifier& identifier) {
  return board.messagesOf([&] { identifier.logFullId(log4cpp::Priority::INFO); });
}

// `aliases` is the text of the report: a blank stands after each alias.
inline Messages reportOf(const std::string& name, int number, const std::string& aliases) {
  return {info("Full identity: "), info("Real name: " + name),
          info("Hardware number: " + std::to_string(number)), info("Aliases: " + aliases)};
}

inline Messages reportOfUnknown() {
  return {info("Identity is unknown: "), info("Real name: Unknown"), info("Hardware number: -1")};
}

#endif
