#include "host/tree_walk.h"

#include <ftw.h>

#include <exception>
#include <utility>

namespace ovxid {

namespace {

constexpr int maxOpenDirectories = 10;

struct Walk {
  const TreeVisitor& visitor;
  std::exception_ptr thrown;
};

// The walk under way: nftw(3) gives what it calls no context.
Walk* walk = nullptr;

// nftw(3) is C: an exception would pass through it without closing its directories, or end the
// process. So the walk ends here, and the exception goes on when nftw(3) has returned.
int visit(const char* path, const struct stat* status, int type, FTW* position) noexcept {
  try {
    return walk->visitor(path, status, type, position);
  } catch (...) {
    walk->thrown = std::current_exception();
    return -1;
  }
}

}  // namespace

int walkTree(const char* directory, const TreeVisitor& visitor) {
  Walk thisWalk{visitor, nullptr};
  Walk* const outer = std::exchange(walk, &thisWalk);
  const int result = nftw(directory, visit, maxOpenDirectories, 0);
  walk = outer;
  if (thisWalk.thrown) {
    std::rethrow_exception(thisWalk.thrown);
  }
  return result;
}

}  // namespace ovxid
