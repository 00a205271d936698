#include "board/parameters.h"

#include <cerrno>
#include <utility>

namespace ovxid::cli {

namespace {

class ParameterCollector : public Collector {
 public:
  using Tell = void (*)(const char* call, int error);

  ParameterCollector(Parameters& parameters, Tell tellOfFailure)
      : mParameters(parameters), mTellOfFailure(tellOfFailure) {}

  const std::vector<ovx_param>& list() const override { return mParameters.list; }

  void add(std::string name, std::string value, const Origin& origin) override {
    if (origin.kind == Origin::Kind::property) {
      mParameters.properties.push_back(
          {std::string(origin.path), mParameters.list.size(), origin.error, origin.isCut});
    }
    mParameters.list.push_back({std::move(name), std::move(value)});
  }

  void leaveOut(std::string_view path) override { mParameters.leftOut.emplace_back(path); }

  // A name that is too long is told of in other words.
  void fail(const char* call, int error) override {
    if (mTellOfFailure != nullptr && error != ENAMETOOLONG) {
      mTellOfFailure(call, error);
    }
  }

 private:
  Parameters& mParameters;
  Tell mTellOfFailure;
};

}  // namespace

Parameters collectParameters(const Host& host, std::int32_t number, const std::string& name,
                             void (*tellOfFailure)(const char* call, int error)) {
  Parameters parameters;
  ParameterCollector collector(parameters, tellOfFailure);
  const Collection collection = collect(host, number, name, collector);
  parameters.hasNode = collection.hasNode;
  parameters.wanError = collection.wanError;
  return parameters;
}

}  // namespace ovxid::cli
