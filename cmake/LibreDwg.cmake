# LibreDWG as the imported target LibreDWG::libredwg: C sources of the pinned
# crate, patched with the files of cmake/patches/libredwg (fixes of wrong reads)
# and cmake/patches/libredwg-speed (the same results sooner), compiled with
# flags of their own and kept in the dependency cache.

include(CrateSource)
include(DependencyCache)

set(DWG_LIBREDWG_CRATE_VERSION 0.16.0)
set(DWG_LIBREDWG_SOURCE_DIR "" CACHE PATH
    "Unpacked source tree of the LibreDWG crate, for builds without network (checked like the fetched one)")
option(DWG_LIBREDWG_PATCHES "Apply our own fixes to LibreDWG" ON)
option(DWG_LIBREDWG_SPEED_PATCHES "Apply our own performance patches to LibreDWG, behind the fixes" ON)
# The library is linked statically: nobody replaces its functions, and those
# that nobody calls can be left out.
set(DWG_LIBREDWG_C_FLAGS "-O2 -fno-semantic-interposition -ffunction-sections -fdata-sections"
    CACHE STRING "Compiler flags for LibreDWG")
set(DWG_LIBREDWG_INSTALLED "" CACHE PATH
    "An installed build of the library to take instead of one made here; for scripts/prove_patches.py")
option(DWG_MIMALLOC "Let LibreDWG allocate through mimalloc" OFF)

if(DWG_LIBREDWG_SOURCE_DIR)
  set(libredwg_source "${DWG_LIBREDWG_SOURCE_DIR}")
  dwg_check_manifest("${libredwg_source}"
    "${PROJECT_SOURCE_DIR}/cmake/checksums/libredwg-sys-${DWG_LIBREDWG_CRATE_VERSION}.sha256")
else()
  dwg_crate_source(libredwg_source libredwg-sys ${DWG_LIBREDWG_CRATE_VERSION})
endif()

file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/licenses")
file(COPY_FILE "${libredwg_source}/vendor/libredwg/COPYING"
     "${CMAKE_BINARY_DIR}/licenses/libredwg.txt" ONLY_IF_DIFFERENT)

file(STRINGS "${libredwg_source}/vendor-config/config.h" libredwg_version
     REGEX "^#define PACKAGE_VERSION ")
string(REGEX MATCH "[0-9.]+" libredwg_version "${libredwg_version}")
string(APPEND libredwg_version " (libredwg-sys ${DWG_LIBREDWG_CRATE_VERSION})")

# dwg_patch_level(<out-var> <patch>...)
# Their number and the first digits of the SHA-256 of all of them, one behind the other.
function(dwg_patch_level out)
  set(text "")
  foreach(patch IN LISTS ARGN)
    file(READ "${patch}" one)
    string(APPEND text "${one}")
  endforeach()
  string(SHA256 digest "${text}")
  string(SUBSTRING "${digest}" 0 8 digest)
  list(LENGTH ARGN count)
  set(${out} "${count}-${digest}" PARENT_SCOPE)
endfunction()

# dwg_add_libredwg(<target> FLAGS <text> [PATCHES <folder>...] [MIMALLOC])
# Adds one build of LibreDWG as an imported target; the folders are those below
# cmake/patches. The target's property DWG_PATCH_LEVEL tells them apart.
function(dwg_add_libredwg target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "MIMALLOC" "FLAGS" "PATCHES")
  set(patches "")
  foreach(folder IN LISTS arg_PATCHES)
    file(GLOB found CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/patches/${folder}/*.patch")
    list(SORT found)
    list(APPEND patches ${found})
  endforeach()
  set(key "libredwg-sys ${DWG_LIBREDWG_CRATE_VERSION}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${patches})
  file(GLOB own_sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/libredwg/dwg_*"
       "${PROJECT_SOURCE_DIR}/cmake/libredwg/dxf_*")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${own_sources})
  foreach(file IN LISTS patches own_sources ITEMS
          "${PROJECT_SOURCE_DIR}/cmake/checksums/libredwg-sys-${DWG_LIBREDWG_CRATE_VERSION}.sha256"
          "${PROJECT_SOURCE_DIR}/cmake/libredwg/CMakeLists.txt")
    file(SHA256 "${file}" hash)
    list(APPEND key "${hash}")
  endforeach()
  string(REPLACE ";" "|" patch_list "${patches}")
  set(paths "-DLIBREDWG_SOURCE=${libredwg_source}" "-DLIBREDWG_PATCHES=${patch_list}")
  if(arg_MIMALLOC)
    file(SHA256 "${PROJECT_SOURCE_DIR}/cmake/libredwg/library_allocator.h" hash)
    list(APPEND key "${mimalloc_key}" "${hash}")
    list(APPEND paths "-DLIBREDWG_MIMALLOC_INCLUDE=${mimalloc_install}/include")
  endif()
  if(DWG_LIBREDWG_INSTALLED)
    set(install "${DWG_LIBREDWG_INSTALLED}")
  else()
    dwg_cached_build(install
      NAME libredwg
      SOURCE "${PROJECT_SOURCE_DIR}/cmake/libredwg"
      KEY ${key}
      ARGS "-DLIBREDWG_C_FLAGS=${arg_FLAGS}"
      PATHS ${paths})
  endif()

  add_library(${target} STATIC IMPORTED GLOBAL)
  set_target_properties(${target} PROPERTIES
    IMPORTED_LOCATION
      "${install}/lib/${CMAKE_STATIC_LIBRARY_PREFIX}redwg${CMAKE_STATIC_LIBRARY_SUFFIX}"
    INTERFACE_INCLUDE_DIRECTORIES "${install}/include")
  dwg_patch_level(level ${patches})
  set_property(TARGET ${target} PROPERTY DWG_PATCH_LEVEL "${level}")
  if(arg_MIMALLOC)
    target_link_libraries(${target} INTERFACE Mimalloc::mimalloc)
  endif()
  if(NOT MSVC)
    target_link_libraries(${target} INTERFACE m)
  endif()
endfunction()

set(libredwg_options "")
if(DWG_LIBREDWG_PATCHES)
  list(APPEND libredwg_options PATCHES libredwg)
  if(DWG_LIBREDWG_SPEED_PATCHES)
    list(APPEND libredwg_options libredwg-speed)
  endif()
endif()
if(DWG_MIMALLOC)
  include(Mimalloc)
  list(APPEND libredwg_options MIMALLOC)
endif()
list(JOIN DWG_HARDENING_FLAGS " " hardening)
string(STRIP "${DWG_LIBREDWG_C_FLAGS} ${hardening}" libredwg_flags)
dwg_add_libredwg(LibreDWG::libredwg FLAGS "${libredwg_flags}" ${libredwg_options})
