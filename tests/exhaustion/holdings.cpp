#include "exhaustion/holdings.h"

#include <tuple>

namespace {

bool OvxIdentifier::*determined = nullptr;
std::string OvxIdentifier::*name = nullptr;
Names OvxIdentifier::*aliases = nullptr;
std::int32_t OvxIdentifier::*number = nullptr;
Catalogue OvxIdentifier::*catalogue = nullptr;
Params OvxIdentifier::*params = nullptr;

// Access control does not apply to the arguments of an explicit instantiation, so that one may hand
// out what is private.
template <auto field, auto& pointer>
struct Opened {
  inline static const auto done = pointer = field;
};

template struct Opened<&OvxIdentifier::mDetermined, determined>;
template struct Opened<&OvxIdentifier::mHardwareName, name>;
template struct Opened<&OvxIdentifier::mHardwareAliases, aliases>;
template struct Opened<&OvxIdentifier::mHardwareNumber, number>;
template struct Opened<&OvxIdentifier::mKnownIdentities, catalogue>;
template struct Opened<&OvxIdentifier::mParams, params>;

auto identityOf(const Holdings& holdings) {
  return std::tie(holdings.determined, holdings.name, holdings.aliases, holdings.number);
}

}  // namespace

Holdings holdingsOf(const OvxIdentifier& identifier) {
  return {identifier.*determined, identifier.*name,      identifier.*aliases,
          identifier.*number,     identifier.*catalogue, identifier.*params};
}

const Params& paramsOf(const OvxIdentifier& identifier) { return identifier.*params; }

bool operator==(const HardwareIdentity& left, const HardwareIdentity& right) {
  return std::tie(left.name, left.aliases, left.number) ==
         std::tie(right.name, right.aliases, right.number);
}

bool operator==(const ovx_param& left, const ovx_param& right) {
  return std::tie(left.name, left.value) == std::tie(right.name, right.value);
}

bool operator==(const Holdings& left, const Holdings& right) {
  return sameIdentity(left, right) && left.catalogue == right.catalogue &&
         left.params == right.params;
}

bool sameIdentity(const Holdings& left, const Holdings& right) {
  return identityOf(left) == identityOf(right);
}
