// Prints every message of an identification, by log4cpp.
//
//   c++ -o log4cpp log4cpp_*.cpp $(pkg-config --cflags --libs ovxid log4cpp)
#include <OvxIdentifier.h>

#include <iostream>
#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>
#include <log4cpp/PatternLayout.hh>

#include "log4cpp_logger.h"

int main() {
  auto* const layout = new log4cpp::PatternLayout;
  layout->setConversionPattern("%p: %m%n");
  auto* const appender = new log4cpp::OstreamAppender("standard output", &std::cout);
  appender->setLayout(layout);
  log4cpp::Category& category = log4cpp::Category::getInstance("ovxid");
  category.setPriority(log4cpp::Priority::DEBUG);
  category.setAppender(appender);

  cQlog logger(category);
  OvxIdentifier board(&logger);
  board.getHardwareNumber();
  log4cpp::Category::shutdown();
  return 0;
}
