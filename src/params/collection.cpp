#include "OvxIdentifier.h"
#include "params/names.h"
#include "platform.h"

void OvxIdentifier::parse_params() {
  namespace parameter = ovxid::parameter;
  if (mHardwareNumber >= 0) {
    addParameter(parameter::id, std::to_string(mHardwareNumber));
    addParameter(parameter::description, mHardwareName);
  }
  std::string node(ovxid::nodePath);
  if (OvxDTParser::parse(this, node.data()) < 0 && mHardwareNumber == ovxid::pcNumber) {
    search_wan();
  }
  add_wan_mac();
}
