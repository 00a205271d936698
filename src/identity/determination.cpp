#include <utility>

#include "OvxIdentifier.h"
#include "identity/sources.h"
#include "log/log.h"
#include "platform.h"

using log4cpp::Priority;

namespace {

template <typename Field>
void replaceByFound(Field& field, std::optional<Field>& found) {
  if (found) {
    field = *std::move(found);
  }
}

}  // namespace

bool OvxIdentifier::determineIdentity() {
  if (mDetermined) {
    ovxid::log(mLogger, Priority::WARN,
               {"Calling lib/program is trying to determine the identity"
                "...but it was already successfully determined"});
    mDetermined = false;
  }
  ovxid::Search search{mKnownIdentities, mLogger, std::nullopt};
  for (ovxid::Source* const identify : ovxid::sources) {
    ovxid::Finding finding = identify(search);
    replaceByFound(mHardwareName, finding.name);
    replaceByFound(mHardwareAliases, finding.aliases);
    replaceByFound(mHardwareNumber, finding.number);
    mDetermined = finding.identified;
    if (mDetermined) {
      return true;
    }
  }
  ovxid::log(mLogger, Priority::ERROR,
             {"Could not find hardware identity with uname or through ", ovxid::cpuinfoPath});
  mHardwareName = ovxid::unknownName;
  mHardwareNumber = ovxid::unknownNumber;
  return false;
}
