# Finds log4cpp, which brings no package file for CMake of its own.
#
# Log4cpp::Headers  the headers alone, for who only needs its types
# Log4cpp::Log4cpp  the headers and the library
find_path(Log4cpp_INCLUDE_DIR log4cpp/Priority.hh)
find_library(Log4cpp_LIBRARY log4cpp)
mark_as_advanced(Log4cpp_INCLUDE_DIR Log4cpp_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Log4cpp REQUIRED_VARS Log4cpp_LIBRARY Log4cpp_INCLUDE_DIR)

if(Log4cpp_FOUND AND NOT TARGET Log4cpp::Headers)
  add_library(Log4cpp::Headers INTERFACE IMPORTED)
  target_include_directories(Log4cpp::Headers INTERFACE "${Log4cpp_INCLUDE_DIR}")
endif()
if(Log4cpp_FOUND AND NOT TARGET Log4cpp::Log4cpp)
  add_library(Log4cpp::Log4cpp UNKNOWN IMPORTED)
  set_target_properties(Log4cpp::Log4cpp PROPERTIES IMPORTED_LOCATION "${Log4cpp_LIBRARY}")
  target_link_libraries(Log4cpp::Log4cpp INTERFACE Log4cpp::Headers)
endif()
