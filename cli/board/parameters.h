#ifndef OVXID_CLI_BOARD_PARAMETERS_H
#define OVXID_CLI_BOARD_PARAMETERS_H

#include <string>
#include <vector>

#include "params/collection.h"

namespace ovxid::cli {

// A property that became a parameter.
struct Property {
  // Below the node.
  std::string path;
  // The position of the parameter in the list.
  std::size_t parameter;
  // Why it cannot be read, as in errno; 0 if it can.
  int error;
  // Whether its value ends at a newline before the property ends.
  bool isCut;
};

// The parameters of a board, and where they come from.
struct Parameters {
  std::vector<ovx_param> list;
  std::vector<Property> properties;
  // The nodes that cannot be read, by their paths below the node.
  std::vector<std::string> leftOut;
  // Whether there was a node to walk over.
  bool hasNode = false;
  // Why there is no address of the WAN interface, as in errno; 0 if there is one or no interface.
  int wanError = 0;
};

// Without a function to tell of failures, nobody is told.
Parameters collectParameters(const Host& host, std::int32_t number, const std::string& name,
                             void (*tellOfFailure)(const char* call, int error));

}  // namespace ovxid::cli

#endif
