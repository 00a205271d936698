#include "exhaustion/launch.h"

#include <cerrno>
#include <cstdlib>
#include <functional>
#include <stdexcept>

#include "exhaustion/heap.h"
#include "exhaustion/holdings.h"
#include "exhaustion/require.h"
#include "simulation/child.h"
#include "simulation/descriptors.h"

namespace {

constexpr const char* missing = "/nowhere/a-program-that-is-not-there";
constexpr int argumentCount = 200;
// What a child tells with its exit status.
constexpr int refused = 10;
constexpr int notRefused = 11;

const Params params{{"OVX_ID", "7"},
                    {"OVX_DESC", "a board whose description does not fit into a short string"},
                    {"OVX_A_PROPERTY_OF_SOME_LENGTH", "a value of some length as well"},
                    {"=", "what the environment refuses"},
                    {"OVX_WAN", "eth0"},
                    {"OVX_WAN_ID", "ffffffffffffffffffffffff"}};

bool isExported(const ovx_param& param) {
  const char* const value = std::getenv(param.name.c_str());
  return value != nullptr && param.value == value;
}

bool isAbsent(const ovx_param& param) { return std::getenv(param.name.c_str()) == nullptr; }

void requireNothingCut() {
  for (const ovx_param& param : params) {
    require(isExported(param) || isAbsent(param), "a value is cut in the environment");
  }
}

void requireAllExported() {
  for (const ovx_param& param : params) {
    require(isExported(param) || param.name == "=", "a parameter is not exported");
  }
}

struct Launch {
  OvxIdentifier& identifier;
  std::vector<char*> argv;
  bool useShell;
  int result = 0;
  int error = 0;

  void operator()() {
    errno = 0;
    result = identifier.execute(static_cast<int>(argv.size()) - 1, argv.data(), useShell);
    error = errno;
  }
  bool isRefusedByKernel() const { return result == -1 && error == ENOENT; }
};

// The C library keeps what an environment takes, so only the objects have to be given back.
void tryLaunch(OvxIdentifier& identifier, bool useShell, int number, heap::Shortage shortage,
               heap::Attempt& attempt) {
  std::vector<std::string> arguments(argumentCount, missing);
  Launch launch{identifier, pointers(arguments), useShell};
  const std::ptrdiff_t objects = heap::use().objects;
  attempt = heap::attempt(std::ref(launch), number, shortage);
  require(heap::use().objects == objects, "memory is not given back");
  const bool told = attempt.ending == heap::Ending::badAlloc;
  require(told == attempt.refusedObject, "std::bad_alloc does not reach the caller");
  require(told || launch.isRefusedByKernel(), "the launch fails in another way");
  require(paramsOf(identifier) == params, "the list is changed");
  requireNothingCut();
  launch();
  require(launch.isRefusedByKernel(), "the next launch fails in another way");
  requireAllExported();
}

int launchWithRefusal(bool useShell, int number, heap::Shortage shortage) {
  setenv("SHELL", missing, 1);
  OvxIdentifier identifier(nullptr);
  for (const ovx_param& param : params) {
    identifier.addParameter(param.name, param.value);
  }
  heap::Attempt attempt{};
  const std::ptrdiff_t descriptors = openDescriptors();
  tryLaunch(identifier, useShell, number, shortage, attempt);
  require(openDescriptors() == descriptors, "a descriptor is left open");
  return attempt.refusedObject || attempt.refusedLibrary ? refused : notRefused;
}

// Each launch has a process of its own, whose environment nobody has changed yet.
bool isRefused(bool useShell, int number, heap::Shortage shortage) {
  const Outcome outcome = inChild([&] { return launchWithRefusal(useShell, number, shortage); });
  if (outcome.status != refused && outcome.status != notRefused) {
    throw std::runtime_error("allocation " + std::to_string(number) + ": status " +
                             std::to_string(outcome.status) + ", " + outcome.err);
  }
  return outcome.status == refused;
}

}  // namespace

int sweepLaunch(bool useShell) {
  int number = 1;
  for (const heap::Shortage shortage : {heap::Shortage::once, heap::Shortage::lasting}) {
    for (number = 1; isRefused(useShell, number, shortage); ++number) {
    }
  }
  require(number > 1, "the launch takes no memory");
  return number - 1;
}
