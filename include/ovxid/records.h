#ifndef OVXID_RECORDS_H
#define OVXID_RECORDS_H

#include <cstdint>
#include <string>
#include <vector>

/**
 * @file
 * @brief What OvxIdentifier takes and gives.
 */

/** The shell that OvxIdentifier::execute() runs when the variable SHELL is not set. */
constexpr const char* ovxDefaultShell = "/bin/bash";

/**
 * @brief One board that the library can recognise.
 *
 * A plain record with value semantics. The catalogue of known identities is an ordered list of
 * these; nothing ties one record to another, so names, aliases and numbers may repeat.
 */
struct HardwareIdentity {
  /** The board's canonical name. Any bytes. */
  std::string name;
  /** The other names under which the board's kernel may report itself, in the order of the line. */
  std::vector<std::string> aliases;
  /** The board number. Every value is allowed. It has no value until one is assigned. */
  std::int32_t number;
};

/**
 * @brief One board parameter: a name and its value.
 *
 * Neither is validated. Both may hold any bytes, and values read from the device tree keep their
 * NUL bytes.
 */
struct ovx_param {
  /** The name of the environment variable that OvxIdentifier::execute() exports. */
  std::string name;
  /** The value, not escaped, trimmed or cut. */
  std::string value;
};

#endif
