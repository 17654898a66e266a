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
target_link_libraries(dwg_import PRIVATE Sentry::sentry)

# The handler stands beside the worker.
set(handler "${CMAKE_BINARY_DIR}/crashpad_handler${CMAKE_EXECUTABLE_SUFFIX}")
add_custom_command(OUTPUT "${handler}" DEPENDS "${DWG_CRASHPAD_HANDLER}"
  COMMAND "${CMAKE_COMMAND}" -E copy "${DWG_CRASHPAD_HANDLER}" "${handler}")
add_custom_target(handler_beside_worker ALL DEPENDS "${handler}")
