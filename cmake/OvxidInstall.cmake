# What a board runs is the component `runtime`; what compiling against the library takes beyond
# that is `development`.
include(CMakePackageConfigHelpers)

set(ovxid_cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ovxid")

install(TARGETS ovxid EXPORT ovxid
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development)
if(OVXID_BUILD_CLI)
  install(TARGETS ovxid_cli RUNTIME COMPONENT runtime)
  install(FILES cli/ovxid.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT runtime)
endif()

install(FILES include/OvxIdentifier.h
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development)

configure_package_config_file(cmake/ovxid-config.cmake.in ovxid-config.cmake
  INSTALL_DESTINATION "${ovxid_cmake_dir}")
write_basic_package_version_file(ovxid-config-version.cmake COMPATIBILITY SameMajorVersion)
install(EXPORT ovxid NAMESPACE ovxid:: FILE ovxid-targets.cmake
  DESTINATION "${ovxid_cmake_dir}" COMPONENT development)
install(FILES
  "${PROJECT_BINARY_DIR}/ovxid-config.cmake"
  "${PROJECT_BINARY_DIR}/ovxid-config-version.cmake"
  cmake/FindLog4cpp.cmake
  DESTINATION "${ovxid_cmake_dir}" COMPONENT development)

# Below the prefix, unless the builder gave absolute folders, so that the file can be relocated.
cmake_path(APPEND ovxid_pc_libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND ovxid_pc_includedir "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
configure_file(cmake/ovxid.pc.in ovxid.pc @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/ovxid.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
