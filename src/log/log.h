#ifndef OVXID_LOG_LOG_H
#define OVXID_LOG_LOG_H

#include <initializer_list>
#include <string_view>

namespace ovxid {

// The levels that the messages have. A program may ask for a report at any other, too.
enum class Level : int { fatal = 0, error = 300, warn = 400, info = 600, debug = 700 };

// Where messages go: to a function and what it is given with each, or nowhere.
class Log {
 public:
  using Reader = void(void* context, Level level, const char* message);

  Log() = default;
  Log(Reader* reader, void* context) : mReader(reader), mContext(context) {}

  bool isRead() const { return mReader != nullptr; }

  // The message is composed of its parts only when somebody reads it.
  void operator()(Level level, std::initializer_list<std::string_view> parts) const;

 private:
  Reader* mReader = nullptr;
  void* mContext = nullptr;
};

}  // namespace ovxid

#endif
