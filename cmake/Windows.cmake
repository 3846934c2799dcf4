# Windows x86-64 specifics of the build (MinGW-w64, cross-compiled; see toolchains/).
#
# - The plug-in links against import libraries made at build time from our own .def files in
#   sdk/win/, so no SDK library is needed here. A function the plug-in calls that is missing from
#   them is a link error, which keeps the lists honest.
# - Everything the compiler's runtime needs (libgcc, libstdc++, winpthread) is linked statically:
#   DRAV.xpl and the test programs need no DLL beside the system's own.

# windows.h comes with the SDK headers: keep it from defining min/max over std::min/std::max and
# from pulling in the sockets, OLE and crypto headers.
add_compile_definitions(WIN32_LEAN_AND_MEAN NOMINMAX)
add_link_options(-static)

set(DRAV_WIN_DEF_DIR "${CMAKE_CURRENT_SOURCE_DIR}/sdk/win")
set(DRAV_IMPORT_LIB_DIR "${CMAKE_BINARY_DIR}/sdk-import")

# drav_import_library(<target> <dll name>): an imported library for <dll name> made with dlltool
# from sdk/win/<dll base name>.def.
function(drav_import_library target dll)
  get_filename_component(base "${dll}" NAME_WE)
  set(def "${DRAV_WIN_DEF_DIR}/${base}.def")
  set(lib "${DRAV_IMPORT_LIB_DIR}/lib${base}.a")
  add_custom_command(OUTPUT "${lib}"
                     COMMAND ${CMAKE_COMMAND} -E make_directory "${DRAV_IMPORT_LIB_DIR}"
                     COMMAND "${CMAKE_DLLTOOL}" --input-def "${def}" --dllname "${dll}"
                             --output-lib "${lib}"
                     DEPENDS "${def}"
                     COMMENT "Import library for ${dll}" VERBATIM)
  add_custom_target(${target}_build DEPENDS "${lib}")
  add_library(${target} STATIC IMPORTED GLOBAL)
  set_target_properties(${target} PROPERTIES IMPORTED_LOCATION "${lib}")
  add_dependencies(${target} ${target}_build)
endfunction()

drav_import_library(drav_xplm_import XPLM_64.dll)
drav_import_library(drav_xpwidgets_import XPWidgets_64.dll)

# The plug-in DLL: the simulator's two libraries, and exactly the five entry points exported.
function(drav_link_windows_plugin target)
  target_sources(${target} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/src/plugin/exports.def")
  target_link_libraries(${target} PRIVATE drav_xplm_import drav_xpwidgets_import opengl32)
  # No stray export from a static library's dllexport: only what exports.def names.
  target_link_options(${target} PRIVATE -Wl,--exclude-all-symbols)
endfunction()

# The simulator host stands in for the SDK's DLLs in dravsim and the tests: give its functions the
# import pointers that dllimport calls go through (see SimHostImports.cmake). Call once the host
# library exists; links the pointers into each target named.
function(drav_link_simhost_imports)
  set(source "${CMAKE_BINARY_DIR}/generated/SimHostImports.cpp")
  if(NOT TARGET drav_simhost_imports)
    add_custom_command(OUTPUT "${source}"
                       COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} -DARCHIVE=$<TARGET_FILE:drav_simhost>
                               -DOUTPUT=${source} -P "${PROJECT_SOURCE_DIR}/cmake/SimHostImports.cmake"
                       DEPENDS drav_simhost "${PROJECT_SOURCE_DIR}/cmake/SimHostImports.cmake"
                       COMMENT "Import pointers of the simulator host" VERBATIM)
    add_library(drav_simhost_imports OBJECT "${source}")
  endif()
  # The host's stand-in for the simulator's XPLM_64.DLL, beside each program (SimHost::Reset copies
  # it into the simulated X-Plane folder), and the export it forwards to.
  if(NOT TARGET drav_xplm_stand_in)
    add_library(drav_xplm_stand_in MODULE "${PROJECT_SOURCE_DIR}/tests/windows/XplmStandInDll.cpp")
    set_target_properties(drav_xplm_stand_in PROPERTIES PREFIX "" OUTPUT_NAME "XPLM_64" SUFFIX ".DLL")
  endif()
  foreach(target IN LISTS ARGN)
    target_sources(${target} PRIVATE $<TARGET_OBJECTS:drav_simhost_imports>)
    target_link_options(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests/windows/SimHostExports.def")
    add_dependencies(${target} drav_xplm_stand_in)
    add_custom_command(TARGET ${target} POST_BUILD
                       COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:drav_xplm_stand_in>
                               $<TARGET_FILE_DIR:${target}>/XPLM_64.DLL VERBATIM)
  endforeach()
endfunction()
