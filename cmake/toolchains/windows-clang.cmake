# Cross-builds for 64-bit Windows from Linux: Clang and lld, with the headers
# and libraries of MinGW-w64 and of the posix variant of its GCC. (GCC itself
# does not compile crashpad for Windows.) Everything is linked statically, so
# the programs need no DLLs beyond Windows' own.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_SYSTEM_VERSION 10)

set(mingw_triple x86_64-w64-mingw32)
set(mingw_root /usr/${mingw_triple})
file(GLOB mingw_gcc_dirs /usr/lib/gcc/${mingw_triple}/*-posix)
if(NOT mingw_gcc_dirs)
  message(FATAL_ERROR "The posix variant of the MinGW-w64 GCC is not installed "
                      "(Debian: g++-mingw-w64-x86-64-posix)")
endif()
list(SORT mingw_gcc_dirs COMPARE NATURAL ORDER DESCENDING)
list(GET mingw_gcc_dirs 0 mingw_gcc)

set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_C_COMPILER_TARGET ${mingw_triple})
set(CMAKE_CXX_COMPILER_TARGET ${mingw_triple})
set(CMAKE_RC_COMPILER ${mingw_triple}-windres)
set(CMAKE_AR llvm-ar CACHE FILEPATH "")
set(CMAKE_RANLIB llvm-ranlib CACHE FILEPATH "")
# The assembler for crashpad's MASM sources.
find_program(mingw_masm NAMES llvm-ml llvm-ml-14 llvm-ml-15 llvm-ml-16 REQUIRED)
set(CMAKE_ASM_MASM_COMPILER ${mingw_masm})
set(CMAKE_ASM_MASM_FLAGS "-m64" CACHE STRING "")

# Clang does not look into a folder named "12-posix" by itself. The C headers
# come last, after Clang's own.
set(CMAKE_C_FLAGS_INIT "-nostdlibinc -idirafter ${mingw_root}/include")
set(CMAKE_CXX_FLAGS_INIT
    "-nostdinc++ -isystem ${mingw_gcc}/include/c++ -isystem ${mingw_gcc}/include/c++/${mingw_triple} -isystem ${mingw_gcc}/include/c++/backward ${CMAKE_C_FLAGS_INIT}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=lld -static -B${mingw_gcc} -L${mingw_gcc} -Wl,--no-insert-timestamp")
set(CMAKE_CXX_STANDARD_LIBRARIES "-lwinpthread -lssp" CACHE STRING "")

set(CMAKE_FIND_ROOT_PATH ${mingw_root})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
