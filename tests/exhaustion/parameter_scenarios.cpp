#include <unistd.h>

#include <cerrno>
#include <ostream>
#include <streambuf>

#include "exhaustion/scenarios.h"

namespace {

constexpr const char* card = "lo:1";
const ovx_param cardFound{"OVX_WAN", card};
const ovx_param cardAddress{"OVX_WAN_ID", "ffffffffffffffffffffffff"};

// Takes no memory, so that what the listing takes is the library's.
class StandardError : public std::streambuf {
 private:
  std::streamsize xsputn(const char* bytes, std::streamsize size) override {
    return ::write(STDERR_FILENO, bytes, static_cast<std::size_t>(size));
  }
  int_type overflow(int_type byte) override {
    const char character = traits_type::to_char_type(byte);
    return xsputn(&character, 1) == 1 ? byte : traits_type::eof();
  }
};

void walk(Subject& subject) {
  char node[] = "/proc/device-tree/orvanix";
  if (OvxDTParser::parse(&*subject.identifier, node) == 0) {
    subject.answer = "complete";
  } else {
    subject.answer = errno == ENOMEM ? "out of memory" : "failed";
  }
}

void add(Subject& subject) {
  subject.identifier->addParameter("OVX_A_PARAMETER_OF_THE_PROGRAM",
                                   "whose value is the program's own business");
  subject.answer = "done";
}

void parseParams(Subject& subject) {
  subject.identifier->parse_params();
  subject.answer = "done";
}

void loadParams(Subject& subject) {
  subject.identifier->loadParams();
  subject.answer = "done";
}

void searchWan(Subject& subject) {
  subject.identifier->search_wan();
  subject.answer = "done";
}

void addWanMac(Subject& subject) {
  subject.identifier->add_wan_mac();
  subject.answer = "done";
}

void list(Subject& subject) {
  StandardError buffer;
  std::ostream out(&buffer);
  subject.answer = subject.identifier->listParams(out) ? "listed" : "failed";
}

void constructAndDetermine(Subject& subject) {
  construct(subject);
  subject.identifier->determineIdentity();
}

void constructAndLoad(Subject& subject) {
  construct(subject);
  subject.identifier->loadParams();
}

void constructWithWan(Subject& subject) {
  construct(subject);
  subject.identifier->addParameter("OVX_WAN", card);
}

void network(Board& board) {
  board.labelledAddress(card, "192.0.2.1/24").kernelAnswersMac({255, 255, 255, 255, 255, 255});
}

// Properties in the node and in a child of it.
void node(Board& board) {
  board.property("a-property-of-some-length", bytes("a value of some length as well\0"));
  board.property("child-node/a-property-of-several-parts", std::string(9000, 'v'));
  board.property("wan", bytes("lo\0"));
  board.property("name", bytes("orvanix\0"));
}

// Deeper than nftw(3) keeps directories open, so that it has to remember the rest of those that it
// closes.
void deepNode(Board& board) {
  std::string child;
  for (int depth = 0; depth < 12; ++depth) {
    board.property(child + "a-property-of-some-length", bytes("a value of some length as well\0"));
    child += "child-node/";
    board.childNode(child);
  }
}

void boardWithNode(Board& board) {
  knowBoards(board);
  network(board);
  node(board);
  board.property("boardid", bytes("7\0"));
  board.property("description", bytes("a board that its device tree describes\0"));
}

// Its node does not identify it, so that the walk alone decides whether the card is searched.
void pcWithNode(Board& board) {
  knowBoards(board);
  network(board);
  node(board);
  board.machine("x86_64");
}

void pc(Board& board) {
  knowBoards(board);
  network(board);
  board.machine("x86_64");
}

void brokenNetwork(Board& board) { board.socketFails(EMFILE); }

bool namesCard(const Params& params) {
  for (const ovx_param& param : params) {
    if (param.name == "OVX_WAN") {
      return true;
    }
  }
  return false;
}

Params nothingNext(const Params& /*params*/) { return {}; }

Params addressNext(const Params& params) {
  return namesCard(params) ? Params{cardAddress} : Params{};
}

Params cardAndAddressNext(const Params& /*params*/) { return {cardFound, cardAddress}; }

Scenario walking(FailedWalk failed, Scenario scenario) {
  scenario.failedWalk = std::move(failed);
  return scenario;
}

// perror(3) takes a stream of its own each time, until it has no memory for one.
Scenario complaining(Scenario scenario) {
  scenario.inOwnProcess = true;
  return scenario;
}

}  // namespace

std::vector<Scenario> parameterScenarios() {
  const FailedWalk outOfMemory{"out of memory", nothingNext};
  const FailedWalk address{"done", addressNext};
  const FailedWalk cardAndAddress{"done", cardAndAddressNext};
  return {
      {"parameter", "done", knowBoards, construct, add},
      walking(outOfMemory, {"walk", "complete", deepNode, construct, walk}),
      walking(address,
              {"params_of_node", "done", boardWithNode, constructAndDetermine, parseParams}),
      walking(cardAndAddress,
              {"params_of_pc_with_node", "done", pcWithNode, constructAndDetermine, parseParams}),
      walking(cardAndAddress, {"params_of_pc", "done", pc, constructAndDetermine, parseParams}),
      walking(address, {"loading_of_node", "done", boardWithNode, construct, loadParams}),
      walking(cardAndAddress, {"loading_of_pc", "done", pc, construct, loadParams}),
      {"wan_search", "done", network, construct, searchWan},
      complaining({"wan_search_without_socket", "done", brokenNetwork, construct, searchWan}),
      {"wan_mac", "done", network, constructWithWan, addWanMac},
      complaining({"wan_mac_without_socket", "done", brokenNetwork, constructWithWan, addWanMac}),
      {"listing", "listed", boardWithNode, constructAndLoad, list},
  };
}
