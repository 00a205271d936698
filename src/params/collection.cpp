#include "params/collection.h"

#include "identity/well_known.h"
#include "net/wan.h"
#include "params/names.h"
#include "params/properties.h"

namespace ovxid {

Collection collect(const Host& host, std::int32_t number, const std::string& name,
                   Collector& collector) {
  if (number >= 0) {
    const Origin identity{Origin::Kind::identity};
    collector.add(parameter::id, std::to_string(number), identity);
    collector.add(parameter::description, name, identity);
  }
  const bool hasNode = collectProperties(host, collector);
  if (!hasNode && number == pcNumber) {
    searchWan(host, collector);
  }
  return {hasNode, addWanMac(host, collector)};
}

}  // namespace ovxid
