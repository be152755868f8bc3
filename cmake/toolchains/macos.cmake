# macOS on arm64. Nothing here runs what is built.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR arm64)
set(target aarch64-macos)
include(${CMAKE_CURRENT_LIST_DIR}/zig.cmake)
set(CMAKE_SIZEOF_VOID_P 8) # the check that would tell asks the linker for its version, which zig refuses
set(CMAKE_INSTALL_NAME_TOOL true) # nothing is installed here
