// That the front end says what a program says that is linked with the library.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <random>
#include <stdexcept>

#include "cli/front_end.h"

namespace {

using Texts = std::vector<std::string>;

// Boards of every kind, made from a number.
class Agreement : public FrontEnd, public testing::WithParamInterface<unsigned> {
 protected:
  Agreement() : mRandom(GetParam()) {
    const std::string release =
        oneOf({"5.10.0-fn1", "6.1.55-k2+", "5.10.0", "6.1-", "6.1-a:b", "-"});
    const std::string machine = oneOf({"armv7l", "x86_64", "aarch64"});
    mBoard.kernelRelease(release).machine(machine);
    kernelIs(release, machine);
    describe();
  }

  // The listing, and before it the messages of a query.
  Outcome listedByLinkedProgram() {
    return inChild([this] {
      OvxIdentifier identifier(mBoard.logger());
      const bool isFound = query(identifier);
      for (const Message& message : mBoard.messages()) {
        std::cerr << message.level << ": " << message.text << "\n";
      }
      if (!isFound) {
        std::cerr << "ovxid: /proc/cpuinfo: the Hardware line ends at its colon\n";
        return 1;
      }
      identifier.parse_params();
      identifier.listParams(std::cout);
      return 0;
    });
  }

  Outcome launchedByLinkedProgram(Texts words) {
    return inChild([words = std::move(words)]() mutable {
      OvxIdentifier identifier(nullptr);
      if (!query(identifier)) {
        std::cerr << "ovxid: /proc/cpuinfo: the Hardware line ends at its colon\n";
        return 1;
      }
      identifier.parse_params();
      return identifier.execute(static_cast<int>(words.size()), pointers(words).data(), false);
    });
  }

 private:
  // Whether the search came to a result.
  static bool query(OvxIdentifier& identifier) {
    try {
      identifier.getHardwareNumber();
      return true;
    } catch (const std::out_of_range&) {
      return false;
    }
  }

  bool isSo() { return mRandom() % 2 == 0; }

  std::string oneOf(const Texts& texts) { return texts[mRandom() % texts.size()]; }

  void describe() {
    if (isSo()) {
      mBoard.interface("eth0", "02:42:ac:11:00:0f").address("eth0", "10.0.0.1/8");
    }
    if (isSo()) {
      mBoard.cpuinfo(oneOf({"processor\t: 0\nHardware\t: Kestrel\n", "Hardware\t: fn1\n",
                            "Hardware\t:\n", "Hardware Kestrel\n", "Hardware: \xe4\n", ""}));
    }
    if (isSo()) {
      mBoard.catalogue(oneOf({"Kestrel:12:k2+\n", "#\n\nField Node:3:fn1:Kestrel\nMerlin:x\n",
                              "Field\xe4:-5:fn1\n", bytes("Nul\0:7:fn1\n"), ""}));
    }
    if (isSo()) {
      describeNode();
    }
  }

  void describeNode() {
    const Texts names = {"boardid", "description", "wan",    "wan_id", "id",   "a=b",
                         "site",    "n/site",      "n/name", "name",   "\xe4", "n/m/serial"};
    const Texts values = {bytes("12\0"),   " -7x",          "99999999999", "",
                          bytes("eth0\0"), "eth0",          "nothing",     bytes("\0\0\0\x0c"),
                          "two\nlines",    "K\xe4strel\r\n"};
    mBoard.node();
    for (const std::string& name : names) {
      if (isSo()) {
        mBoard.property(name, oneOf(values));
      }
    }
  }

  std::mt19937 mRandom;
};

TEST_P(Agreement, IsOnTheListingAndTheMessages) {
  EXPECT_EQ(ovxid({"-v", "list"}), listedByLinkedProgram());
}

TEST_P(Agreement, IsOnTheEnvironmentOfAProgram) {
  const Texts command = {"sh", "-c", "env -0 | grep -z ^OVX_ | sort -z"};
  Texts words = {"run"};
  words.insert(words.end(), command.begin(), command.end());
  EXPECT_EQ(ovxid(words), launchedByLinkedProgram(command));
}

INSTANTIATE_TEST_SUITE_P(OfBoard, Agreement, testing::Range(1U, 31U));

}  // namespace
