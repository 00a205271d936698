#ifndef OVXID_PARAMS_COLLECTION_H
#define OVXID_PARAMS_COLLECTION_H

#include <ovxid/records.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/host.h"

namespace ovxid {

// Where a parameter comes from.
struct Origin {
  enum class Kind { identity, property, interface };
  Kind kind;
  // Of a property: its path below the node, and why it cannot be read, as in errno.
  std::string_view path{};
  int error = 0;
  // Of a property: whether its value ends at a newline before the property ends.
  bool isCut = false;
};

// Takes the parameters one after the other.
class Collector {
 public:
  Collector() = default;
  virtual ~Collector() = default;
  Collector(const Collector&) = delete;
  Collector& operator=(const Collector&) = delete;

  // The list to which they are appended, with what it had before.
  virtual const std::vector<ovx_param>& list() const = 0;
  virtual void add(std::string name, std::string value, const Origin& origin) = 0;
  // A node that cannot be read, which gives no parameters.
  virtual void leaveOut(std::string_view /*path*/) {}
  // A call that failed, and its error, as in errno.
  virtual void fail(const char* call, int error) = 0;
};

// What a collection came to.
struct Collection {
  // Whether there was a node to walk over.
  bool hasNode;
  // Why there is no address of the WAN interface, as in errno; 0 if there is one or no interface.
  // The name of an interface is never cut: one that is too long gives ENAMETOOLONG.
  int wanError;
};

// Gives the collector the parameters of a board in their order.
Collection collect(const Host& host, std::int32_t number, const std::string& name,
                   Collector& collector);

}  // namespace ovxid

#endif
