# Crash reporting: the real thing when asked for, else a variant that does
# nothing (tests, fuzzing and builds without the dependency).

if(NOT DWG_CRASH_REPORTING)
  target_sources(dwg_import PRIVATE worker/crash_reporting_none.cpp)
  return()
endif()

include(SentryNative)
target_sources(dwg_import PRIVATE
  worker/crash_reporting_sentry.cpp
  worker/crash_reporting_${DWG_PLATFORM}.cpp)
get_target_property(patch_level LibreDWG::libredwg DWG_PATCH_LEVEL)
set_property(SOURCE worker/crash_reporting_sentry.cpp APPEND PROPERTY COMPILE_DEFINITIONS
  "DWG_LIBREDWG_VERSION=\"${libredwg_version}\"" "DWG_LIBREDWG_PATCH_LEVEL=\"${patch_level}\"")
target_link_libraries(dwg_import PRIVATE Sentry::sentry)

# The handler stands beside the worker.
file(COPY "${DWG_CRASHPAD_HANDLER}" DESTINATION "${CMAKE_BINARY_DIR}")
