# The preset `coverage` includes this: all that is linked gets counts.cpp, which is not counted itself.
add_library(ovxid_counts OBJECT "${CMAKE_CURRENT_LIST_DIR}/counts.cpp")
target_compile_options(ovxid_counts PRIVATE -fno-profile-arcs -fno-test-coverage)
set_target_properties(ovxid_counts PROPERTIES POSITION_INDEPENDENT_CODE ON)
link_libraries($<BUILD_INTERFACE:ovxid_counts>)
add_link_options(LINKER:--wrap=_exit,--wrap=_Exit,--wrap=abort,--wrap=raise)
