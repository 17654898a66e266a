# Shared by the scripts beside it; meant to be sourced by bash.

# What cross-builds the worker for 64-bit Windows, and what runs it here.
windows_packages=(clang lld llvm gcc-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-posix
                  binutils-mingw-w64-x86-64 libz-mingw-w64-dev googletest wine wine64)
