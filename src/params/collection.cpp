#include "OvxIdentifier.h"
#include "identity/pc.h"

void OvxIdentifier::parse_params() {
  if (mHardwareNumber >= 0) {
    addParameter("OVX_ID", std::to_string(mHardwareNumber));
    addParameter("OVX_DESC", mHardwareName);
  }
  char node[] = "/proc/device-tree/orvanix";
  if (OvxDTParser::parse(this, node) < 0 && mHardwareNumber == pcNumber) {
    search_wan();
  }
  add_wan_mac();
}
