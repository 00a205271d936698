# How our own code is compiled and linked. None of it applies to code that links the library.
include_guard()

get_property(ovxid_multi_config GLOBAL PROPERTY GENERATOR_IS_MULTI_CONFIG)
if(PROJECT_IS_TOP_LEVEL AND NOT ovxid_multi_config AND NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "The type of the build" FORCE)
endif()

set(ovxid_warnings
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wcast-align -Wcast-qual
  -Wformat=2 -Wnull-dereference -Wold-style-cast -Woverloaded-virtual -Wundef -Wunused)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  list(APPEND ovxid_warnings -Wduplicated-branches -Wduplicated-cond -Wlogical-op)
endif()

# On MIPS, a program lists all that is not hidden, too.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

function(ovxid_build_flags target)
  # 24 KiB that debuggers read on other systems than Linux, and that strip leaves.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_SYSTEM_PROCESSOR MATCHES "^mips")
    target_compile_options(${target} PRIVATE -Wa,-mno-pdr)
  endif()
  target_compile_options(${target} PRIVATE -fstack-protector-strong -fstack-clash-protection)
  target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now,--as-needed)
  # Else 32-bit programs could not look at files with large inode numbers or times after 2038.
  target_compile_definitions(${target} PRIVATE _FILE_OFFSET_BITS=64 _TIME_BITS=64)
  if(OVXID_STRICT)
    target_compile_options(${target} PRIVATE ${ovxid_warnings} -Werror)
  endif()
  if(OVXID_SANITIZE)
    # Without -z,defs, because clang links the sanitizer's functions into programs only, and without
    # fortified functions, because the sanitizer does not check their memory accesses.
    target_compile_options(${target} PRIVATE -fsanitize=${OVXID_SANITIZE} -fno-sanitize-recover=all)
    target_link_options(${target} PRIVATE -fsanitize=${OVXID_SANITIZE})
  else()
    target_link_options(${target} PRIVATE LINKER:-z,defs)
    target_compile_options(${target} PRIVATE
      $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
  endif()
endfunction()
