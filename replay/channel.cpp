#include "replay/channel.h"

#include <sys/socket.h>
#include <unistd.h>

#include <cstring>

#include "replay/failure.h"

namespace ovxid::replay {

namespace {

// A message of one byte and a descriptor.
struct Parcel {
  char byte = 0;
  iovec data{&byte, 1};
  alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
  msghdr header{};

  Parcel() {
    header.msg_iov = &data;
    header.msg_iovlen = 1;
    header.msg_control = control;
    header.msg_controllen = sizeof control;
  }
};

}  // namespace

Channel::Channel() {
  require(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, mEnds) == 0, "socketpair");
}

void Channel::send(int descriptor) {
  Parcel parcel;
  cmsghdr* const content = CMSG_FIRSTHDR(&parcel.header);
  require(content != nullptr, "send a descriptor");
  content->cmsg_level = SOL_SOCKET;
  content->cmsg_type = SCM_RIGHTS;
  content->cmsg_len = CMSG_LEN(sizeof descriptor);
  std::memcpy(CMSG_DATA(content), &descriptor, sizeof descriptor);
  require(sendmsg(mEnds[0], &parcel.header, 0) == 1, "send a descriptor");
  close(mEnds[0]);
}

int Channel::receive() {
  close(mEnds[0]);
  Parcel parcel;
  int descriptor = -1;
  const bool received = recvmsg(mEnds[1], &parcel.header, MSG_CMSG_CLOEXEC) == 1;
  const cmsghdr* const content = CMSG_FIRSTHDR(&parcel.header);
  if (received && content != nullptr) {
    std::memcpy(&descriptor, CMSG_DATA(content), sizeof descriptor);
  }
  close(mEnds[1]);
  return descriptor;
}

}  // namespace ovxid::replay
