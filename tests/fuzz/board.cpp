#include "fuzz/board.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <system_error>

#include "fuzz/compare.h"
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
