# The component `runtime` has what boards need, `development` what compiling programs needs as well, and
# `replay` what is for other machines.
include(CMakePackageConfigHelpers)

set(ovxid_manuals "${PROJECT_BINARY_DIR}/manuals")
file(GLOB ovxid_pages CONFIGURE_DEPENDS man/*)
foreach(page ${ovxid_pages})
  cmake_path(GET page FILENAME name)
  configure_file("${page}" "${ovxid_manuals}/${name}" @ONLY)
endforeach()

set(ovxid_cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ovxid")

install(TARGETS ovxid EXPORT ovxid
  LIBRARY COMPONENT runtime NAMELINK_COMPONENT development)
if(OVXID_BUILD_CLI)
  install(TARGETS ovxid_cli RUNTIME COMPONENT runtime)
  install(FILES "${ovxid_manuals}/ovxid.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT runtime)
  install(FILES cli/formats/ovxid.schema.json recording/recording.schema.json
    DESTINATION "${CMAKE_INSTALL_DATADIR}/ovxid" COMPONENT runtime)
  install(FILES "${ovxid_manuals}/ovxid.service.8"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man8" COMPONENT runtime)
  # A unit names its program by the absolute path, which is known when it is installed.
  install(CODE "
    set(ovxid_program \"${CMAKE_INSTALL_BINDIR}/$<TARGET_FILE_NAME:ovxid_cli>\")
    cmake_path(ABSOLUTE_PATH ovxid_program BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
    configure_file(\"${PROJECT_SOURCE_DIR}/systemd/ovxid.service.in\"
      \"${PROJECT_BINARY_DIR}/ovxid.service\" @ONLY)" COMPONENT runtime)
  install(FILES "${PROJECT_BINARY_DIR}/ovxid.service"
    DESTINATION lib/systemd/system COMPONENT runtime)
  # Where Debian's shells look. Those of bash and fish are found by the names of the commands. zsh looks
  # for those of packages in another folder, and fish below /usr/local only where XDG_DATA_DIRS says so.
  foreach(command ovxid ovxid-replay)
    install(FILES cli/completions/ovxid.bash RENAME ${command}
      DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" COMPONENT runtime)
    install(FILES cli/completions/ovxid.fish RENAME ${command}.fish
      DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d" COMPONENT runtime)
  endforeach()
  set(ovxid_zsh_folder site-functions)
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(ovxid_zsh_folder vendor-completions)
  endif()
  install(FILES cli/completions/_ovxid
    DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/${ovxid_zsh_folder}" COMPONENT runtime)
endif()
if(OVXID_BUILD_REPLAY)
  install(TARGETS ovxid_replay RUNTIME COMPONENT replay)
  install(FILES "${ovxid_manuals}/ovxid-replay.1"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT replay)
endif()
install(FILES "${ovxid_manuals}/known_ovx_ids.5"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man5" COMPONENT runtime)
install(FILES "${ovxid_manuals}/libovxid.3"
  DESTINATION "${CMAKE_INSTALL_MANDIR}/man3" COMPONENT development)

install(DIRECTORY include/
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

# ovxid.pc finds the prefix relative to itself, so that the installed tree can be moved, but not below
# /usr: there pkg-config omits the include folder, which compilers search anyway, only if its path has
# no "..", and compilers that are given it as -isystem do not find the C library's headers any more.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}" OR CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(ovxid_pc_prefix "${CMAKE_INSTALL_PREFIX}")
else()
  set(ovxid_pc_up "/")
  cmake_path(RELATIVE_PATH ovxid_pc_up BASE_DIRECTORY "/${CMAKE_INSTALL_LIBDIR}/pkgconfig")
  cmake_path(APPEND ovxid_pc_prefix "\${pcfiledir}" "${ovxid_pc_up}")
endif()
cmake_path(APPEND ovxid_pc_libdir "\${prefix}" "${CMAKE_INSTALL_LIBDIR}")
cmake_path(APPEND ovxid_pc_includedir "\${prefix}" "${CMAKE_INSTALL_INCLUDEDIR}")
configure_file(cmake/ovxid.pc.in ovxid.pc @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/ovxid.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
