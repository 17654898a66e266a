#!/usr/bin/env bash
# Makes the packages that users get, in dist/: a tarball for Linux and a zip for
# 64-bit Windows, each with the worker, crashpad_handler, the documents and the
# licences of everything inside. The same commit gives the same bytes.
#
#   scripts/package.sh [--check] [linux] [windows]
#
# --check makes every package twice and compares them, then unpacks it into an
# empty folder and converts a drawing there (for Windows under wine).
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$(dirname "${BASH_SOURCE[0]}")/windows_packages.sh"

check=false
targets=()
for argument in "$@"; do
  case "$argument" in
    --check) check=true ;;
    linux | windows) targets+=("$argument") ;;
    *) fail "what is $argument? See the head of scripts/package.sh" ;;
  esac
done
[ ${#targets[@]} -gt 0 ] || targets=(linux windows)

version="$(sed -n 's/^project(dwg_import_worker VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")"
[ -n "$version" ] || fail "CMakeLists.txt does not tell the version"
epoch="${SOURCE_DATE_EPOCH:-$(git -C "$root" log -1 --format=%ct)}"

# package_of FILE: the Debian package that a file of this machine came with.
package_of() { dpkg-query -S "$(readlink -f "$1")" | cut -d: -f1; }

# runtime_license FILE NAME FOLDER: the licence of a library linked in statically.
runtime_license() {
  install -m 644 "/usr/share/doc/$(package_of "$1")/copyright" "$3/$2.txt"
}

# stage TARGET FOLDER: everything that goes into the package.
stage() {
  local target="$1" folder="$2" preset=release suffix=
  if [ "$target" = windows ]; then
    preset=windows
    suffix=.exe
  fi
  mkdir -p "$folder/licenses" "$folder/docs"
  install -m 755 "$root/build/$preset/dwg_import_worker$suffix" \
    "$root/build/$preset/crashpad_handler$suffix" "$folder"
  local document
  for document in README.md CHANGELOG.md LICENSE; do
    if [ -f "$root/$document" ]; then install -m 644 "$root/$document" "$folder"; fi
  done
  install -m 644 "$root"/docs/*.md "$folder/docs"
  install -m 644 "$root/build/$preset"/licenses/*.txt "$folder/licenses"
  if [ "$target" = windows ]; then
    local mingw=/usr/x86_64-w64-mingw32/lib
    runtime_license "$mingw/libz.a" zlib "$folder/licenses"
    runtime_license "$mingw/libmingwex.a" mingw-w64 "$folder/licenses"
    runtime_license "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++.a)" gcc-runtime \
      "$folder/licenses"
  else
    runtime_license "$(g++ -print-file-name=libz.a)" zlib "$folder/licenses"
    runtime_license "$(g++ -print-file-name=libstdc++.a)" gcc-runtime "$folder/licenses"
  fi
}

# pack TARGET FILE
pack() {
  local target="$1" file="$2" scratch name
  scratch="$(mktemp -d)"
  name="dwg_import_worker-$version"
  stage "$target" "$scratch/$name"
  if [ "$target" = windows ]; then
    python3 "$root/scripts/reproducible_zip.py" "$scratch" "$file" "$epoch"
  else
    tar --create --sort=name --format=gnu --mtime="@$epoch" --owner=0 --group=0 --numeric-owner \
      --mode=u+rwX,go+rX,go-w --directory="$scratch" "$name" | gzip -n -9 > "$file"
  fi
  rm -rf "$scratch"
}

# try_out TARGET FILE: unpacks into an empty folder and converts a drawing there.
try_out() {
  local target="$1" file="$2" scratch output
  scratch="$(mktemp -d)"
  if [ "$target" = windows ]; then
    python3 -m zipfile -e "$file" "$scratch"
    output="$(cd "$scratch/dwg_import_worker-$version" && WINEDEBUG=-all wine \
      ./dwg_import_worker.exe "Z:${root//\//\\}\\examples\\plan.dwg" 2>/dev/null)"
  else
    tar -xzf "$file" -C "$scratch"
    output="$(cd "$scratch/dwg_import_worker-$version" && env -i \
      ./dwg_import_worker "$root/examples/plan.dwg" 2>/dev/null)"
  fi
  rm -rf "$scratch"
  case "$output" in
    '{"dwgVersion":'*'}}') say "The unpacked package for $target converts examples/plan.dwg" ;;
    *) fail "the unpacked package for $target printed: ${output:0:200}" ;;
  esac
}

mkdir -p "$root/dist"
for target in "${targets[@]}"; do
  if [ "$target" = windows ]; then
    install_packages "${build_packages[@]}" "${windows_packages[@]}"
    require_cargo
    build_preset windows dwg_import_worker
    file="$root/dist/dwg_import_worker-$version-windows-x86_64.zip"
  else
    install_packages "${build_packages[@]}"
    require_cargo
    build_preset release dwg_import_worker
    file="$root/dist/dwg_import_worker-$version-linux-x86_64.tar.gz"
  fi
  pack "$target" "$file"
  if $check; then
    pack "$target" "$file.again"
    cmp "$file" "$file.again" || fail "two packages of one build differ"
    rm "$file.again"
    try_out "$target" "$file"
  fi
  say "dist/$(basename "$file"): $(sha256sum < "$file" | cut -d' ' -f1)"
done
