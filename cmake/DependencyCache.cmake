# Built dependencies live outside the build folder, one folder for each
# combination of version, patches, compiler and flags, so that a fresh build
# folder finds them again in seconds.

if(NOT "$ENV{DWG_DEPENDENCY_CACHE}" STREQUAL "")
  set(cache_default "$ENV{DWG_DEPENDENCY_CACHE}")
elseif(CMAKE_HOST_WIN32)
  set(cache_default "$ENV{LOCALAPPDATA}/dwg_import_worker")
elseif(DEFINED ENV{XDG_CACHE_HOME})
  set(cache_default "$ENV{XDG_CACHE_HOME}/dwg_import_worker")
else()
  set(cache_default "$ENV{HOME}/.cache/dwg_import_worker")
endif()
file(TO_CMAKE_PATH "${cache_default}" cache_default)
set(DWG_DEPENDENCY_CACHE "${cache_default}" CACHE PATH "Folder that keeps built dependencies")

# dwg_cached_build(<out-var> NAME <name> SOURCE <cmake-project> KEY <text>...
#                  ARGS <-D...>... PATHS <-D...>... [CXX])
# Configures, builds and installs a CMake project once for each distinct key
# and sets <out-var> to its install folder. PATHS are arguments that say only
# where inputs lie: KEY has to stand for what is in them. CXX says that the
# project holds C++ too; without it the C++ compiler does not matter to the key.
function(dwg_cached_build out)
  cmake_parse_arguments(PARSE_ARGV 1 arg "CXX" "NAME;SOURCE" "KEY;ARGS;PATHS")
  set(args -DCMAKE_C_COMPILER=${CMAKE_C_COMPILER} -DCMAKE_BUILD_TYPE=Release ${arg_ARGS})
  set(compilers "${CMAKE_C_COMPILER_ID} ${CMAKE_C_COMPILER_VERSION}")
  if(arg_CXX)
    list(APPEND args -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER})
    string(APPEND compilers " ${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
  endif()
  if(CMAKE_TOOLCHAIN_FILE)
    set(toolchain -DCMAKE_TOOLCHAIN_FILE=${CMAKE_TOOLCHAIN_FILE})
    file(SHA256 "${CMAKE_TOOLCHAIN_FILE}" toolchain_hash)
  endif()
  string(SHA256 key
         "${arg_KEY};${args};${toolchain_hash};${compilers}")
  string(SUBSTRING "${key}" 0 16 key)
  set(root "${DWG_DEPENDENCY_CACHE}/${arg_NAME}-${key}")
  set(install "${root}/install")
  set(${out} "${install}" PARENT_SCOPE)
  if(EXISTS "${root}/complete")
    return()
  endif()

  # Two builds of one key must not run into each other.
  file(MAKE_DIRECTORY "${root}")
  file(LOCK "${root}/lock" GUARD FUNCTION TIMEOUT 3600)
  if(EXISTS "${root}/complete")
    return()
  endif()
  # An interrupted build may have been configured from another folder.
  file(REMOVE_RECURSE "${root}/build")
  message(STATUS "Building ${arg_NAME} once for this compiler and these flags (kept in ${root})")
  execute_process(
    COMMAND "${CMAKE_COMMAND}" -G "${CMAKE_GENERATOR}" -S "${arg_SOURCE}" -B "${root}/build"
            -DCMAKE_INSTALL_PREFIX=${install} ${args} ${toolchain} ${arg_PATHS}
    RESULT_VARIABLE result)
  if(result EQUAL 0)
    execute_process(COMMAND "${CMAKE_COMMAND}" --build "${root}/build" --config Release
                            --target install RESULT_VARIABLE result)
  endif()
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "Building ${arg_NAME} failed; its build folder is ${root}/build")
  endif()
  file(REMOVE_RECURSE "${root}/build")
  file(WRITE "${root}/complete" "${arg_KEY}\n")
endfunction()
