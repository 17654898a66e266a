# Compiler settings for our own code, as the interface target dwg_settings.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported()

add_library(dwg_settings INTERFACE)
if(MSVC)
  # /fp:precise without contraction: the output's digits depend on it.
  target_compile_options(dwg_settings INTERFACE /utf-8 /W4 /fp:precise /permissive-
                         $<$<BOOL:${DWG_WARNINGS_AS_ERRORS}>:/WX>)
  target_compile_definitions(dwg_settings INTERFACE _CRT_SECURE_NO_WARNINGS NOMINMAX)
else()
  # No contraction into fused operations: the output's digits depend on it.
  target_compile_options(dwg_settings INTERFACE
    -ffp-contract=off -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference
    $<$<BOOL:${DWG_WARNINGS_AS_ERRORS}>:-Werror>)
endif()

if(DWG_SANITIZERS)
  target_compile_options(dwg_settings INTERFACE
    -fsanitize=${DWG_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(dwg_settings INTERFACE
    -fsanitize=${DWG_SANITIZERS} -fno-sanitize-recover=all)
endif()

if(DWG_BUILD_FUZZERS)
  target_compile_options(dwg_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(DWG_COVERAGE)
  target_compile_options(dwg_settings INTERFACE -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(dwg_settings INTERFACE -fprofile-instr-generate)
endif()

# What makes a mistake in memory harder to use, for our code and for LibreDWG in
# what users run: DWG_HARDENING_FLAGS, a list. tests/hardening reads the programs.
set(DWG_HARDENING_FLAGS "")
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND MSVC)
  set(DWG_HARDENING_FLAGS /GS /guard:cf)
  target_link_options(dwg_settings INTERFACE /guard:cf /CETCOMPAT)
elseif(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT DWG_SANITIZERS)
  set(DWG_HARDENING_FLAGS -fstack-protector-strong)
  if(NOT WIN32)
    # In MinGW-w64 it needs a library of its own and finds little.
    list(APPEND DWG_HARDENING_FLAGS -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
    include(CheckCCompilerFlag)
    foreach(flag -fcf-protection=full -mbranch-protection=standard)
      string(MAKE_C_IDENTIFIER "DWG_HAS${flag}" has_flag)
      check_c_compiler_flag(${flag} ${has_flag})
      if(${has_flag})
        list(APPEND DWG_HARDENING_FLAGS ${flag})
      endif()
    endforeach()
  endif()
endif()
target_compile_options(dwg_settings INTERFACE ${DWG_HARDENING_FLAGS})

if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT MSVC AND NOT DWG_SANITIZERS)
  target_compile_options(dwg_settings INTERFACE -ffunction-sections -fdata-sections)
  # Half of LibreDWG is its writers, which are not called: without them less of
  # the program comes into memory.
  target_link_options(dwg_settings INTERFACE -Wl,--gc-sections)
  if(NOT WIN32)
    target_link_options(dwg_settings INTERFACE -Wl,-z,relro,-z,now)
    # LibreDWG's tables take 20,000 relocations, which are read at every start.
    # Loaders know the packed form from glibc 2.36 on.
    include(CheckCXXSourceRuns)
    set(CMAKE_REQUIRED_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
    check_cxx_source_runs("int value; int* pointer = &value; int main() { return *pointer; }"
                          DWG_PACKED_RELOCATIONS_RUN)
    unset(CMAKE_REQUIRED_LINK_OPTIONS)
    if(DWG_PACKED_RELOCATIONS_RUN)
      target_link_options(dwg_settings INTERFACE -Wl,-z,pack-relative-relocs)
    endif()
  endif()
endif()

if(DWG_LTO)
  include(CheckIPOSupported)
  check_ipo_supported(LANGUAGES CXX)
  set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
endif()
