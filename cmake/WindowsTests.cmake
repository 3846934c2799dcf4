# The tests of the Windows build (included from tests/CMakeLists.txt): the unit tests that need no
# device, and every scenario through dravsim, run as Windows programs under Wine.
#
# GoogleTest is built here from its sources with the cross compiler (Debian's googletest package);
# nothing is downloaded.
set(DRAV_GOOGLETEST_SOURCE "/usr/src/googletest" CACHE PATH "GoogleTest sources to build for Windows")
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
add_subdirectory("${DRAV_GOOGLETEST_SOURCE}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)

file(GLOB_RECURSE DRAV_UNIT_TEST_SOURCES CONFIGURE_DEPENDS unit/*.cpp)
add_executable(drav_tests ${DRAV_UNIT_TEST_SOURCES})
target_link_libraries(drav_tests PRIVATE dravsim_lib drav_core drav_simhost GTest::gtest GTest::gtest_main
                      drav_warnings)
drav_link_simhost_imports(drav_tests)

# Each Wine process costs a second or two to start, so the unit tests run as a few large shards
# (one process each) rather than one process per test. A fresh Wine prefix under the build folder
# keeps the runs away from the user's own; no display, so nothing tries to open a window on one
# (the device layer's notification window then cannot be made, and hot-plug is off).
set(DRAV_WINEPREFIX "${CMAKE_BINARY_DIR}/wineprefix")
set(DRAV_WINE_ENV "WINEPREFIX=${DRAV_WINEPREFIX}" "WINEDEBUG=-all" "WINEDLLOVERRIDES=mscoree,mshtml="
    "DISPLAY=")

# Tests left out of the Windows run, if ever one has to be (none now).
set(DRAV_WINDOWS_EXCLUDED_TESTS "")
list(JOIN DRAV_WINDOWS_EXCLUDED_TESTS ":" excluded)
set(DRAV_WINDOWS_FILTER "*")
if(excluded)
  set(DRAV_WINDOWS_FILTER "*-${excluded}")
endif()

set(DRAV_WINDOWS_SHARDS 2)
math(EXPR last_shard "${DRAV_WINDOWS_SHARDS} - 1")
foreach(shard RANGE ${last_shard})
  add_test(NAME windows.unit.${shard} COMMAND drav_tests --gtest_brief=1 "--gtest_filter=${DRAV_WINDOWS_FILTER}")
  set_tests_properties(windows.unit.${shard} PROPERTIES
    ENVIRONMENT "${DRAV_WINE_ENV};GTEST_TOTAL_SHARDS=${DRAV_WINDOWS_SHARDS};GTEST_SHARD_INDEX=${shard}"
    TIMEOUT 900 FIXTURES_REQUIRED wine_prefix)
endforeach()

# Creating a prefix takes a while; done once, before the tests that share it.
add_test(NAME windows.wine_prefix COMMAND ${CMAKE_COMMAND} -E env ${DRAV_WINE_ENV} ${DRAV_WINE} wineboot --init)
set_tests_properties(windows.wine_prefix PROPERTIES FIXTURES_SETUP wine_prefix TIMEOUT 300)

file(GLOB DRAV_SCENARIOS CONFIGURE_DEPENDS scenarios/*.scn)
foreach(scn IN LISTS DRAV_SCENARIOS)
  get_filename_component(name "${scn}" NAME_WE)
  add_test(NAME windows.scenario.${name} COMMAND dravsim --quiet "${scn}")
  set_tests_properties(windows.scenario.${name} PROPERTIES
    ENVIRONMENT "${DRAV_WINE_ENV}" TIMEOUT 300 FIXTURES_REQUIRED wine_prefix)
endforeach()

# The DLL as the simulator's loader meets it: format, exports, imports (scripts/check-windows-dll.sh).
add_test(NAME windows.dll_check
         COMMAND ${CMAKE_COMMAND} -E env OBJDUMP=${CMAKE_OBJDUMP}
                 "${PROJECT_SOURCE_DIR}/scripts/check-windows-dll.sh" $<TARGET_FILE:DRAV>)
