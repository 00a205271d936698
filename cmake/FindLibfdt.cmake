# Finds libfdt as a static library, so that boards need no more than before: Libfdt::Libfdt.
find_path(Libfdt_INCLUDE_DIR libfdt.h)
find_library(Libfdt_LIBRARY libfdt.a)
mark_as_advanced(Libfdt_INCLUDE_DIR Libfdt_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Libfdt
  REQUIRED_VARS Libfdt_LIBRARY Libfdt_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "install libfdt-dev")

if(Libfdt_FOUND AND NOT TARGET Libfdt::Libfdt)
  add_library(Libfdt::Libfdt STATIC IMPORTED)
  set_target_properties(Libfdt::Libfdt PROPERTIES
    IMPORTED_LOCATION "${Libfdt_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Libfdt_INCLUDE_DIR}")
endif()
