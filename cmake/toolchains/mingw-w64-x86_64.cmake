# Cross-compiles the Windows x86-64 plug-in with Debian's MinGW-w64, posix thread model (std::thread
# and std::mutex need it). The result runs under Wine for the tests.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(DRAV_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${DRAV_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${DRAV_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${DRAV_MINGW_PREFIX}-windres)
find_program(CMAKE_DLLTOOL ${DRAV_MINGW_PREFIX}-dlltool REQUIRED)
find_program(CMAKE_OBJDUMP ${DRAV_MINGW_PREFIX}-objdump)

set(CMAKE_FIND_ROOT_PATH /usr/${DRAV_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Test programs run under Wine; ctest and gtest_discover_tests go through this launcher.
find_program(DRAV_WINE NAMES wine64 wine PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(DRAV_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${DRAV_WINE})
endif()
