#include <OvxIdentifier.h>

#include <iostream>
#include <log4cpp/Category.hh>
#include <log4cpp/OstreamAppender.hh>
#include <log4cpp/PatternLayout.hh>

#include "log4cpp_logger.h"

using log4cpp::Priority;

// Logs a text with percent signs at each level that has a method of its own.
int main() {
  log4cpp::Category& category = log4cpp::Category::getInstance("messages");
  category.setPriority(Priority::DEBUG);
  cQlog logger(category);
  OvxIdentifier board(&logger);

  // Only now, so that nothing else is printed.
  auto* const layout = new log4cpp::PatternLayout;
  layout->setConversionPattern("%p: %m%n");
  auto* const appender = new log4cpp::OstreamAppender("standard output", &std::cout);
  appender->setLayout(layout);
  category.setAppender(appender);
  for (const auto level :
       {Priority::DEBUG, Priority::INFO, Priority::WARN, Priority::ERROR, Priority::FATAL}) {
    board.tryLog("100 %s of %n %%", level);
  }
  return 0;
}
