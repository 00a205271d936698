#ifndef OVXID_CLI_RECORD_SAID_H
#define OVXID_CLI_RECORD_SAID_H

#include <memory>
#include <vector>

#include "host/host.h"
#include "params/collection.h"
#include "recording/recording.h"

namespace ovxid::cli {

// What `ovxid -v list` does here, and the parameters that it lists.
struct WhatIsSaid {
  recording::Said said;
  std::vector<ovx_param> parameters;
};

WhatIsSaid sayListing(std::shared_ptr<const Host> host);

}  // namespace ovxid::cli

#endif
