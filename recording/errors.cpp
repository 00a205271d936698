#include "recording/errors.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace ovxid::recording {

namespace {

struct NamedError {
  const char* name;
  int error;
};

// What opening, reading or asking the kernel may fail with.
constexpr NamedError errors[] = {
    {"E2BIG", E2BIG},           {"EACCES", EACCES},
    {"EAGAIN", EAGAIN},         {"EBADF", EBADF},
    {"EBUSY", EBUSY},           {"EFAULT", EFAULT},
    {"EFBIG", EFBIG},           {"EINTR", EINTR},
    {"EINVAL", EINVAL},         {"EIO", EIO},
    {"EISDIR", EISDIR},         {"ELOOP", ELOOP},
    {"EMFILE", EMFILE},         {"ENODATA", ENODATA},
    {"ENODEV", ENODEV},         {"ENAMETOOLONG", ENAMETOOLONG},
    {"ENFILE", ENFILE},         {"ENOENT", ENOENT},
    {"ENOMEM", ENOMEM},         {"ENOSYS", ENOSYS},
    {"ENOTDIR", ENOTDIR},       {"ENXIO", ENXIO},
    {"EOPNOTSUPP", EOPNOTSUPP}, {"EOVERFLOW", EOVERFLOW},
    {"EPERM", EPERM},           {"EROFS", EROFS},
    {"ESTALE", ESTALE},         {"ETXTBSY", ETXTBSY},
};

}  // namespace

// Of another, it is known that it was one.
std::string errorName(int error) {
  const auto* const found =
      std::find_if(std::begin(errors), std::end(errors),
                   [&](const NamedError& each) { return each.error == error; });
  return found == std::end(errors) ? "EIO" : found->name;
}

std::optional<int> errorNamed(std::string_view name) {
  const auto* const found = std::find_if(std::begin(errors), std::end(errors),
                                         [&](const NamedError& each) { return each.name == name; });
  return found == std::end(errors) ? std::nullopt : std::optional(found->error);
}

}  // namespace ovxid::recording
