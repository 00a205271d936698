#include "fuzz/board.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "board/board.h"
#include "board/parameters.h"
#include "fuzz/compare.h"
#include "host/this_machine.h"
#include "output/diagnostics.h"
#include "output/output.h"
#include "params/list.h"
#include "simulation/kernel.h"

namespace {

std::optional<std::string> thrownBy(OvxIdentifier& identifier, bool& determined) {
  try {
    determined = identifier.determineIdentity();
  } catch (const std::out_of_range& exception) {
    return exception.what();
  }
  return std::nullopt;
}

// Where nothing is asked of the real machine's interfaces.
class MachineWithoutInterfaces : public ovxid::ThisMachine {
 public:
  ovxid::InterfaceList interfaces() const override { return {}; }
  int macAddress(const std::string& /*name*/, ovxid::MacAddress& /*mac*/) const override {
    return ENODEV;
  }
};

Messages messagesOfLibrary() {
  return board().messagesOf([] {
    OvxIdentifier identifier(board().logger());
    try {
      identifier.getHardwareNumber();
    } catch (const std::out_of_range&) {
    }
  });
}

std::string toldByFrontEnd() {
  std::string told;
  const ovxid::cli::KeptErrors kept(told);
  ovxid::cli::Board asked(std::make_shared<MachineWithoutInterfaces>(), true);
  try {
    asked.identify();
  } catch (const ovxid::cli::Failure&) {
  }
  return told;
}

}  // namespace

void giveUpSimulation(const std::string& why) { throw std::runtime_error(why); }

Board& board() {
  static auto* const board = new Board;
  return *board;
}

// A stream would take longer than what is to be tested.
void write(const std::string& path, const std::string& bytes) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  const ssize_t written = ::write(file, bytes.data(), bytes.size());
  if (written != static_cast<ssize_t>(bytes.size())) {
    throw std::system_error(errno, std::generic_category(), "write " + path);
  }
  close(file);
}

void beginInput(std::size_t size) {
  constexpr std::size_t fewBytes = 3;
  kernel.mostBytes = size % 8 == 7 ? fewBytes : SIZE_MAX;
  board().logger()->messages.clear();
}

void expectSameDetermination(OvxIdentifier identifier,
                             const std::vector<HardwareIdentity>& catalogue) {
  const reference::Determination reference = reference::determine(catalogue, {});
  bool determined = false;
  std::optional<std::string> thrown;
  const Messages messages = board().messagesOf([&] { thrown = thrownBy(identifier, determined); });
  const Messages report =
      board().messagesOf([&] { identifier.logFullId(log4cpp::Priority::DEBUG); });
  expectSame("messages of the determination", messages, reference.messages);
  expectSame("exception", thrown, reference.thrown);
  expectSame("result of the determination", determined, reference.identity.determined);
  expectSame("identity", report, reference::report(reference.identity));
}

void expectFrontEndToAgree() {
  std::string library;
  for (const Message& message : messagesOfLibrary()) {
    library += message.level + ": " + message.text + "\n";
  }
  expectSame("messages of the front end", library, toldByFrontEnd());
}

void expectFrontEndToList(const std::string& listing) {
  constexpr std::int32_t unknown = -1;
  const MachineWithoutInterfaces machine;
  std::string listed;
  for (const ovx_param& each : ovxid::cli::collectParameters(machine, unknown, "", nullptr).list) {
    ovxid::appendLine(listed, each);
  }
  expectSame("listing of the front end", listing, listed);
}
