#ifndef OVXID_HOST_TREE_WALK_H
#define OVXID_HOST_TREE_WALK_H

#include <sys/stat.h>

#include <functional>

struct FTW;

namespace ovxid {

using TreeVisitor =
    std::function<int(const char* path, const struct stat* status, int type, FTW* position)>;

// Walks over a directory by nftw(3), which follows links, and returns what that returns.
int walkTree(const char* directory, const TreeVisitor& visit);

}  // namespace ovxid

#endif
