#ifndef OVXID_REPLAY_CHANNEL_H
#define OVXID_REPLAY_CHANNEL_H

namespace ovxid::replay {

// Takes a descriptor from one process to another.
class Channel {
 public:
  // Throws Failure.
  Channel();

  // Throws Failure.
  void send(int descriptor);
  // -1 when the process that should send has ended without sending.
  int receive();

 private:
  int mEnds[2];
};

}  // namespace ovxid::replay

#endif
