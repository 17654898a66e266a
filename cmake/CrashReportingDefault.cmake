# Declares DWG_CRASH_REPORTING, on where what sentry-native needs can be had.

include_guard()
include(CrateSource)

set(DWG_SENTRY_CRATE_VERSION 0.3.1)
set(DWG_SENTRY_SOURCE_DIR "" CACHE PATH
    "Unpacked source tree of the sentry-native crate, for builds without network (checked like the fetched one)")

# dwg_missing_for_crash_reporting(<out-var>)
# Sets <out-var> to the names of what is not there.
function(dwg_missing_for_crash_reporting out)
  set(missing "")
  dwg_find_crate(crate sentry-contrib-native-sys ${DWG_SENTRY_CRATE_VERSION})
  if(NOT DWG_SENTRY_SOURCE_DIR AND NOT crate AND NOT DWG_CARGO)
    list(APPEND missing "cargo")
  endif()
  find_package(ZLIB QUIET)
  if(NOT ZLIB_FOUND)
    list(APPEND missing "zlib")
  endif()
  if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    find_package(CURL QUIET)
    if(NOT CURL_FOUND)
      list(APPEND missing "libcurl")
    endif()
  endif()
  set(${out} "${missing}" PARENT_SCOPE)
endfunction()

set(crash_reporting_default ON)
set(crash_reporting_reason "")
if(NOT DEFINED DWG_CRASH_REPORTING)
  dwg_missing_for_crash_reporting(missing)
  if(missing)
    set(crash_reporting_default OFF)
    list(JOIN missing ", " missing)
    set(crash_reporting_reason ", for want of ${missing}")
  endif()
endif()
option(DWG_CRASH_REPORTING "Report crashes through sentry-native with crashpad"
       ${crash_reporting_default})

# dwg_say_crash_reporting()
# A line for the end of the configuration.
function(dwg_say_crash_reporting)
  if(DWG_CRASH_REPORTING)
    message(STATUS "Crash reporting: on (-DDWG_CRASH_REPORTING=OFF leaves it out)")
  else()
    message(STATUS "Crash reporting: off${crash_reporting_reason}")
  endif()
endfunction()
