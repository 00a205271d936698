#ifndef OVXID_TESTS_EXHAUSTION_HOLDINGS_H
#define OVXID_TESTS_EXHAUSTION_HOLDINGS_H

#include <OvxIdentifier.h>

#include <string>
#include <vector>

using Names = std::vector<std::string>;
using Catalogue = std::vector<HardwareIdentity>;
using Params = std::vector<ovx_param>;

// What an identifier holds. It cannot be asked for it: a query determines the identity.
struct Holdings {
  bool determined = false;
  std::string name;
  Names aliases;
  std::int32_t number = 0;
  Catalogue catalogue;
  Params params;
};

Holdings holdingsOf(const OvxIdentifier& identifier);
const Params& paramsOf(const OvxIdentifier& identifier);

bool operator==(const HardwareIdentity& left, const HardwareIdentity& right);
bool operator==(const ovx_param& left, const ovx_param& right);
bool operator==(const Holdings& left, const Holdings& right);

bool sameIdentity(const Holdings& left, const Holdings& right);

#endif
