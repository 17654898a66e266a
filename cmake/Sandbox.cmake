# What the worker forbids itself: on Linux and Windows, but for builds with tools
# inside the process, which need what is forbidden.

if(DWG_SANITIZERS OR DWG_COVERAGE)
  set(DWG_SANDBOX none)
elseif(WIN32)
  set(DWG_SANDBOX win)
elseif(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(DWG_SANDBOX linux)
else()
  set(DWG_SANDBOX none)
endif()
target_sources(dwg_import PRIVATE worker/sandbox_${DWG_SANDBOX}.cpp)

if(DWG_SANDBOX STREQUAL "linux")
  # System calls have numbers of their own on each machine.
  set(machine none)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|aarch64)$" AND CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(machine ${CMAKE_SYSTEM_PROCESSOR})
  endif()
  target_sources(dwg_import PRIVATE
    worker/landlock_linux.cpp worker/system_call_filter_linux.cpp
    worker/system_calls_${machine}.cpp)
endif()
