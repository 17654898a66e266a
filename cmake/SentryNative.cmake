# sentry-native with crashpad as the imported target Sentry::sentry, and its
# handler's file as DWG_CRASHPAD_HANDLER: C and C++ sources of the pinned crate,
# kept in the dependency cache.

include(CrateSource)
include(DependencyCache)
include(CrashReportingDefault)  # which release, and from where

if(DWG_SENTRY_SOURCE_DIR)
  set(sentry_source "${DWG_SENTRY_SOURCE_DIR}")
  dwg_check_manifest("${sentry_source}"
    "${PROJECT_SOURCE_DIR}/cmake/checksums/sentry-contrib-native-sys-${DWG_SENTRY_CRATE_VERSION}.sha256")
else()
  dwg_crate_source(sentry_source sentry-contrib-native-sys ${DWG_SENTRY_CRATE_VERSION})
endif()

set(sentry_key "sentry-contrib-native-sys ${DWG_SENTRY_CRATE_VERSION}")
foreach(file checksums/sentry-contrib-native-sys-${DWG_SENTRY_CRATE_VERSION}.sha256
             PatchTree.cmake sentry/CMakeLists.txt sentry/quiet_logging.h
             sentry/release_standard_streams.cpp windows/include/NTSecAPI.h)
  file(SHA256 "${PROJECT_SOURCE_DIR}/cmake/${file}" hash)
  list(APPEND sentry_key "${hash}")
endforeach()
file(GLOB sentry_patches CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/patches/sentry-native/*.patch")
list(SORT sentry_patches)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sentry_patches})
foreach(patch IN LISTS sentry_patches)
  file(SHA256 "${patch}" hash)
  list(APPEND sentry_key "${hash}")
endforeach()
string(REPLACE ";" "|" sentry_patches "${sentry_patches}")
set(sentry_args "")
foreach(variable ZLIB_ROOT CMAKE_PREFIX_PATH CMAKE_MSVC_RUNTIME_LIBRARY)
  if(${variable})
    list(APPEND sentry_args "-D${variable}=${${variable}}")
  endif()
endforeach()
string(REPLACE ";" "|" sentry_hardening "${DWG_HARDENING_FLAGS}")
list(APPEND sentry_args "-DSENTRY_HARDENING=${sentry_hardening}")
dwg_cached_build(sentry_install
  CXX
  NAME sentry-native
  SOURCE "${PROJECT_SOURCE_DIR}/cmake/sentry"
  KEY ${sentry_key}
  ARGS ${sentry_args}
  PATHS "-DSENTRY_SOURCE=${sentry_source}/sentry-native" "-DSENTRY_PATCHES=${sentry_patches}")

foreach(name sentry crashpad_client crashpad_util crashpad_compat mini_chromium)
  add_library(Sentry::${name} STATIC IMPORTED GLOBAL)
  set_target_properties(Sentry::${name} PROPERTIES IMPORTED_LOCATION
    "${sentry_install}/lib/${CMAKE_STATIC_LIBRARY_PREFIX}${name}${CMAKE_STATIC_LIBRARY_SUFFIX}")
endforeach()
set_target_properties(Sentry::sentry PROPERTIES
  INTERFACE_INCLUDE_DIRECTORIES "${sentry_install}/include"
  INTERFACE_COMPILE_DEFINITIONS SENTRY_BUILD_STATIC)
target_link_libraries(Sentry::sentry INTERFACE Sentry::crashpad_client)
target_link_libraries(Sentry::crashpad_client INTERFACE
  Sentry::crashpad_util Sentry::crashpad_compat Sentry::mini_chromium)
target_link_libraries(Sentry::crashpad_util INTERFACE Sentry::mini_chromium)
if(WIN32)
  target_link_libraries(Sentry::sentry INTERFACE
    dbghelp shlwapi version user32 winhttp powrprof rpcrt4 advapi32)
else()
  find_package(Threads REQUIRED)
  target_link_libraries(Sentry::sentry INTERFACE Threads::Threads ${CMAKE_DL_LIBS})
  # Reports name their modules by build identifier.
  target_link_options(Sentry::sentry INTERFACE -Wl,--build-id=sha1)
endif()

set(DWG_CRASHPAD_HANDLER "${sentry_install}/bin/crashpad_handler${CMAKE_EXECUTABLE_SUFFIX}")
file(COPY "${sentry_install}/licenses" DESTINATION "${CMAKE_BINARY_DIR}")
