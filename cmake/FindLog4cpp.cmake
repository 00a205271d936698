# Finds log4cpp, which has no package file for CMake.
#
# Log4cpp::Headers  the headers alone, for code that uses only its types
# Log4cpp::Log4cpp  the headers and the library
find_path(Log4cpp_INCLUDE_DIR log4cpp/Priority.hh)
# For a foreign architecture, Debian installs the library under the second name only.
find_library(Log4cpp_LIBRARY NAMES log4cpp liblog4cpp.so.5 NAMES_PER_DIR)
mark_as_advanced(Log4cpp_INCLUDE_DIR Log4cpp_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Log4cpp
  REQUIRED_VARS Log4cpp_LIBRARY Log4cpp_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "Pass what is missing:
    -DLog4cpp_LIBRARY=PATH      of liblog4cpp.so or liblog4cpp.so.5
    -DLog4cpp_INCLUDE_DIR=PATH  of the folder that has log4cpp/Priority.hh")

if(Log4cpp_FOUND AND NOT TARGET Log4cpp::Headers)
  add_library(Log4cpp::Headers INTERFACE IMPORTED)
  target_include_directories(Log4cpp::Headers INTERFACE "${Log4cpp_INCLUDE_DIR}")
endif()
if(Log4cpp_FOUND AND NOT TARGET Log4cpp::Log4cpp)
  add_library(Log4cpp::Log4cpp UNKNOWN IMPORTED)
  set_target_properties(Log4cpp::Log4cpp PROPERTIES IMPORTED_LOCATION "${Log4cpp_LIBRARY}")
  target_link_libraries(Log4cpp::Log4cpp INTERFACE Log4cpp::Headers)
endif()
