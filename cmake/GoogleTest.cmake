# GoogleTest, compiled with our own flags from its sources (in Debian: googletest),
# so that one source suits every compiler, sanitizer and target.
if(TARGET gtest)
  return()
endif()
find_path(DWG_GOOGLETEST_SOURCE CMakeLists.txt PATHS /usr/src/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH
          DOC "Folder of the GoogleTest sources" REQUIRED)
set(INSTALL_GTEST OFF)
set(BUILD_GMOCK ON)
add_subdirectory("${DWG_GOOGLETEST_SOURCE}" "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
if(DWG_SANITIZERS)
  target_compile_options(gtest PRIVATE -fsanitize=${DWG_SANITIZERS} -fno-sanitize-recover=all)
  target_compile_options(gmock PRIVATE -fsanitize=${DWG_SANITIZERS} -fno-sanitize-recover=all)
endif()
