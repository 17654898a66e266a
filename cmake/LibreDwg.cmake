# LibreDWG as the imported target LibreDWG::libredwg: C sources of the pinned
# crate, patched with the files of cmake/patches/libredwg, compiled with flags
# of their own and kept in the dependency cache.

include(CrateSource)
include(DependencyCache)

set(DWG_LIBREDWG_CRATE_VERSION 0.16.0)
set(DWG_LIBREDWG_SOURCE_DIR "" CACHE PATH
    "Unpacked source tree of the LibreDWG crate, for builds without network (checked like the fetched one)")
option(DWG_LIBREDWG_PATCHES "Apply our own patches to LibreDWG" ON)

if(DWG_LIBREDWG_SOURCE_DIR)
  set(libredwg_source "${DWG_LIBREDWG_SOURCE_DIR}")
  dwg_check_manifest("${libredwg_source}"
    "${PROJECT_SOURCE_DIR}/cmake/checksums/libredwg-sys-${DWG_LIBREDWG_CRATE_VERSION}.sha256")
else()
  dwg_crate_source(libredwg_source libredwg-sys ${DWG_LIBREDWG_CRATE_VERSION})
endif()

set(libredwg_patches "")
if(DWG_LIBREDWG_PATCHES)
  file(GLOB libredwg_patches CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/patches/libredwg/*.patch")
  list(SORT libredwg_patches)
endif()
file(SHA256
  "${PROJECT_SOURCE_DIR}/cmake/checksums/libredwg-sys-${DWG_LIBREDWG_CRATE_VERSION}.sha256" hash)
set(libredwg_key "libredwg-sys ${DWG_LIBREDWG_CRATE_VERSION} ${hash}")
foreach(patch IN LISTS libredwg_patches)
  file(SHA256 "${patch}" hash)
  list(APPEND libredwg_key "${hash}")
endforeach()
file(SHA256 "${PROJECT_SOURCE_DIR}/cmake/libredwg/CMakeLists.txt" hash)
list(APPEND libredwg_key "${hash}")

set(DWG_LIBREDWG_C_FLAGS "-O2" CACHE STRING "Compiler flags for LibreDWG")
string(REPLACE ";" "|" libredwg_patch_list "${libredwg_patches}")
dwg_cached_build(libredwg_install
  NAME libredwg
  SOURCE "${PROJECT_SOURCE_DIR}/cmake/libredwg"
  KEY ${libredwg_key}
  ARGS "-DLIBREDWG_C_FLAGS=${DWG_LIBREDWG_C_FLAGS}"
  PATHS "-DLIBREDWG_SOURCE=${libredwg_source}" "-DLIBREDWG_PATCHES=${libredwg_patch_list}")

add_library(LibreDWG::libredwg STATIC IMPORTED GLOBAL)
set_target_properties(LibreDWG::libredwg PROPERTIES
  IMPORTED_LOCATION
    "${libredwg_install}/lib/${CMAKE_STATIC_LIBRARY_PREFIX}redwg${CMAKE_STATIC_LIBRARY_SUFFIX}"
  INTERFACE_INCLUDE_DIRECTORIES "${libredwg_install}/include")
if(NOT MSVC)
  target_link_libraries(LibreDWG::libredwg INTERFACE m)
endif()
