#ifndef OVXID_HOST_QUERY_SOCKET_H
#define OVXID_HOST_QUERY_SOCKET_H

#include <sys/socket.h>
#include <unistd.h>

namespace ovxid {

// A socket through which the kernel answers questions about its interfaces, closed when it goes out
// of scope.
class QuerySocket {
 public:
  QuerySocket() : mDescriptor(socket(AF_INET, SOCK_DGRAM, 0)) {}
  ~QuerySocket() {
    if (mDescriptor >= 0) {
      close(mDescriptor);
    }
  }
  QuerySocket(const QuerySocket&) = delete;
  QuerySocket& operator=(const QuerySocket&) = delete;

  int descriptor() const { return mDescriptor; }

 private:
  int mDescriptor;
};

}  // namespace ovxid

#endif
