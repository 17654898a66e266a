# mimalloc as the imported target Mimalloc::mimalloc: the C sources of version 2
# in the pinned crate, kept in the dependency cache. LibreDWG makes one small
# allocation for nearly every field, and only LibreDWG uses it.

include(CrateSource)
include(DependencyCache)

set(DWG_MIMALLOC_CRATE_VERSION 0.1.49)
set(DWG_MIMALLOC_SOURCE_DIR "" CACHE PATH
    "Unpacked source tree of the mimalloc crate, for builds without network (checked like the fetched one)")
if(DWG_MIMALLOC_SOURCE_DIR)
  set(mimalloc_source "${DWG_MIMALLOC_SOURCE_DIR}")
  dwg_check_manifest("${mimalloc_source}"
    "${PROJECT_SOURCE_DIR}/cmake/checksums/libmimalloc-sys-${DWG_MIMALLOC_CRATE_VERSION}.sha256")
else()
  dwg_crate_source(mimalloc_source libmimalloc-sys ${DWG_MIMALLOC_CRATE_VERSION})
endif()

set(mimalloc_key "libmimalloc-sys ${DWG_MIMALLOC_CRATE_VERSION}")
foreach(file checksums/libmimalloc-sys-${DWG_MIMALLOC_CRATE_VERSION}.sha256 mimalloc/CMakeLists.txt)
  file(SHA256 "${PROJECT_SOURCE_DIR}/cmake/${file}" hash)
  list(APPEND mimalloc_key "${hash}")
endforeach()
dwg_cached_build(mimalloc_install
  NAME mimalloc
  SOURCE "${PROJECT_SOURCE_DIR}/cmake/mimalloc"
  KEY ${mimalloc_key}
  PATHS "-DMIMALLOC_SOURCE=${mimalloc_source}/c_src/mimalloc/v2")

add_library(Mimalloc::mimalloc STATIC IMPORTED GLOBAL)
set_target_properties(Mimalloc::mimalloc PROPERTIES
  IMPORTED_LOCATION
    "${mimalloc_install}/lib/${CMAKE_STATIC_LIBRARY_PREFIX}mimalloc${CMAKE_STATIC_LIBRARY_SUFFIX}"
  INTERFACE_INCLUDE_DIRECTORIES "${mimalloc_install}/include")
if(WIN32)
  target_link_libraries(Mimalloc::mimalloc INTERFACE advapi32)
else()
  find_package(Threads REQUIRED)
  target_link_libraries(Mimalloc::mimalloc INTERFACE Threads::Threads)
endif()
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/licenses")
file(COPY_FILE "${mimalloc_source}/c_src/mimalloc/v2/LICENSE"
     "${CMAKE_BINARY_DIR}/licenses/mimalloc.txt" ONLY_IF_DIFFERENT)
