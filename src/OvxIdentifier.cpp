// The binary interface: each member asks the core and keeps what it finds.
#include "OvxIdentifier.h"

#include <ftw.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ostream>
#include <utility>

#include "catalogue/line.h"
#include "catalogue/loading.h"
#include "host/this_machine.h"
#include "host/tree_walk.h"
#include "identity/identification.h"
#include "identity/report.h"
#include "identity/well_known.h"
#include "launch/launch.h"
#include "log/cQlog.h"
#include "log/log.h"
#include "net/wan.h"
#include "params/collection.h"
#include "params/list.h"
#include "params/properties.h"
#include "text/lines.h"

using log4cpp::Priority;
using ovxid::Level;

namespace ovxid {

namespace {

// The message is the format, as board programs expect: the logger interprets a '%' in it.
void handOver(void* context, Level level, const char* message) {
  cQlog& logger = *static_cast<cQlog*>(context);
  switch (level) {
    case Level::fatal:
      logger.fatal(message);
      break;
    case Level::error:
      logger.error(message);
      break;
    case Level::warn:
      logger.warn(message);
      break;
    case Level::info:
      logger.info(message);
      break;
    default:
      logger.debug(message);
      break;
  }
}

Log logTo(cQlog* logger) { return logger == nullptr ? Log() : Log(handOver, logger); }

class IdentifierList : public Collector {
 public:
  IdentifierList(OvxIdentifier& identifier, const std::vector<ovx_param>& list)
      : mIdentifier(identifier), mList(list) {}

  const std::vector<ovx_param>& list() const override { return mList; }
  void add(std::string name, std::string value, const Origin& /*origin*/) override {
    mIdentifier.addParameter(std::move(name), std::move(value));
  }
  void fail(const char* call, int error) override {
    if (error == ENAMETOOLONG) {
      std::abort();
    }
    errno = error;
    std::perror(call);
  }

 private:
  OvxIdentifier& mIdentifier;
  const std::vector<ovx_param>& mList;
};

}  // namespace

}  // namespace ovxid

OvxIdentifier::OvxIdentifier(cQlog* logger)
    : mDetermined(false),
      mHardwareName(ovxid::unknownName),
      mHardwareNumber(ovxid::unknownNumber),
      mLogger(logger) {
  ovxid::reportCreation(ovxid::logTo(mLogger));
  findKnownIdentities();
}

void OvxIdentifier::findKnownIdentities() {
  ovxid::loadCatalogue(ovxid::ThisMachine(), mKnownIdentities, ovxid::logTo(mLogger));
}

bool OvxIdentifier::parseIdentityLine(HardwareIdentity& record, std::string line) {
  return ovxid::parseLine(record, line, ovxid::logTo(mLogger)) == nullptr;
}

bool OvxIdentifier::determineIdentity() {
  const ovxid::Log log = ovxid::logTo(mLogger);
  if (mDetermined) {
    log(Level::warn, {"Calling lib/program is trying to determine the identity"
                      "...but it was already successfully determined"});
    mDetermined = false;
  }
  ovxid::Identification found = identify(ovxid::ThisMachine(), mKnownIdentities, log);
  if (found.match != nullptr) {
    mHardwareAliases = std::vector<std::string>(found.match->aliases);
  }
  if (found.name) {
    mHardwareName = *std::move(found.name);
  }
  mHardwareNumber = found.number.value_or(mHardwareNumber);
  if (found.thrown) {
    std::rethrow_exception(found.thrown);
  }
  mDetermined = found.decidedBy != nullptr;
  return mDetermined;
}

std::string OvxIdentifier::getHardwareName() {
  getHardwareNumber();
  return mHardwareName;
}

std::int32_t OvxIdentifier::getHardwareNumber() {
  if (!mDetermined) {
    logFullId(determineIdentity() ? Priority::DEBUG : Priority::ERROR);
  }
  return mHardwareNumber;
}

void OvxIdentifier::logFullId(Priority::PriorityLevel level) {
  ovxid::report(ovxid::logTo(mLogger), static_cast<Level>(level), mHardwareName, mHardwareNumber,
                mDetermined ? &mHardwareAliases : nullptr);
}

void OvxIdentifier::tryLog(std::string message, Priority::PriorityLevel level) {
  ovxid::logTo(mLogger)(static_cast<Level>(level), {message});
}

void OvxIdentifier::tryLog(std::string message) { tryLog(std::move(message), Priority::DEBUG); }

void OvxIdentifier::loadParams() {
  getHardwareNumber();
  parse_params();
}

void OvxIdentifier::parse_params() {
  OvxDTParser::mOVxId = this;
  ovxid::IdentifierList list(*this, mParams);
  ovxid::collect(ovxid::ThisMachine(), mHardwareNumber, mHardwareName, list);
}

void OvxIdentifier::search_wan() {
  ovxid::IdentifierList list(*this, mParams);
  ovxid::searchWan(ovxid::ThisMachine(), list);
}

void OvxIdentifier::add_wan_mac() {
  ovxid::IdentifierList list(*this, mParams);
  ovxid::addWanMac(ovxid::ThisMachine(), list);
}

void OvxIdentifier::addParameter(std::string name, std::string value) {
  mParams.push_back({std::move(name), std::move(value)});
}

std::ostream& OvxIdentifier::listParams(std::ostream& out) {
  std::string line;
  for (const ovx_param& param : mParams) {
    line.clear();
    ovxid::appendLine(line, param);
    // Unformatted, so that a width set on the stream pads nothing.
    out.write(line.data(), static_cast<std::streamsize>(line.size())).flush();
  }
  return out;
}

int OvxIdentifier::execute(int argc, char** argv, bool useShell) {
  return ovxid::launch(mParams, argc, argv, useShell);
}

OvxIdentifier* OvxDTParser::mOVxId = nullptr;

int OvxDTParser::parse(OvxIdentifier* id, char* dir) {
  mOVxId = id;
  return ovxid::walkTree(dir, ftw_cb);
}

int OvxDTParser::ftw_cb(const char* fpath, const struct stat* /*sb*/, int typeflag,
                        struct FTW* ftwbuf) {
  const char* const property = fpath + ftwbuf->base;
  if (typeflag == FTW_F && ovxid::isParameter(property)) {
    std::string name = ovxid::parameterName(property);
    ovxid::InputFile file(fpath);
    mOVxId->addParameter(std::move(name), ovxid::firstLine(file).text);
  }
  return 0;
}
