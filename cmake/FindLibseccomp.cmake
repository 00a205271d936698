# Finds libseccomp: Libseccomp::Libseccomp.
find_path(Libseccomp_INCLUDE_DIR seccomp.h)
find_library(Libseccomp_LIBRARY seccomp)
mark_as_advanced(Libseccomp_INCLUDE_DIR Libseccomp_LIBRARY)

if(Libseccomp_INCLUDE_DIR)
  file(STRINGS "${Libseccomp_INCLUDE_DIR}/seccomp.h" Libseccomp_version_lines REGEX "#define SCMP_VER_(MAJOR|MINOR|MICRO)")
  list(TRANSFORM Libseccomp_version_lines REPLACE "[^0-9]" "")
  list(JOIN Libseccomp_version_lines . Libseccomp_VERSION)
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Libseccomp
  REQUIRED_VARS Libseccomp_LIBRARY Libseccomp_INCLUDE_DIR
  VERSION_VAR Libseccomp_VERSION
  REASON_FAILURE_MESSAGE "install libseccomp-dev, or leave ovxid-replay out by OVXID_BUILD_REPLAY=OFF")

if(Libseccomp_FOUND AND NOT TARGET Libseccomp::Libseccomp)
  add_library(Libseccomp::Libseccomp UNKNOWN IMPORTED)
  set_target_properties(Libseccomp::Libseccomp PROPERTIES
    IMPORTED_LOCATION "${Libseccomp_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Libseccomp_INCLUDE_DIR}")
endif()
