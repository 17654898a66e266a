#!/usr/bin/env bash
# Makes the packages that users get, with SHA256SUMS, in dist/.
#
#   scripts/package.sh [--check] [--build FOLDER] [--preview-build FOLDER]
#                      [--windows-build FOLDER] [--out FOLDER] [TARGET...]
#
# TARGETs: linux (a tarball and two .debs), windows (a zip), python (a wheel for each
# platform that is built) and node (one package with the programs of all platforms that
# are built); by default linux, windows, python, node. linux and windows build first;
# python and node pack what is built, Linux at least.
#
# Each package holds the worker, crashpad_handler, the licences of everything inside and
# a bill of materials (SPDX); tarball, .deb and zip the pages, too. The preview is in the
# tarball and in a .deb of its own. The same commit gives the same bytes. --build,
# --preview-build and --windows-build name build folders that are up to date, instead of
# build/release, build/preview and build/windows, which are built first. --check makes
# every package twice and compares them, and tries each as its users would (tests/packages).
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$(dirname "${BASH_SOURCE[0]}")/windows_packages.sh"

check=false
out="$root/dist"
linux_build=""
preview_build=""
windows_build=""
targets=()
while [ $# -gt 0 ]; do
  case "$1" in
    --check) check=true; shift ;;
    --build) linux_build="$(cd "$2" && pwd)"; shift 2 ;;
    --preview-build) preview_build="$(cd "$2" && pwd)"; shift 2 ;;
    --windows-build) windows_build="$(cd "$2" && pwd)"; shift 2 ;;
    --out) out="$2"; shift 2 ;;
    linux | windows | python | node) targets+=("$1"); shift ;;
    *) fail "what is $1? See the head of scripts/package.sh" ;;
  esac
done
[ ${#targets[@]} -gt 0 ] || targets=(linux windows python node)
mkdir -p "$out"
out="$(cd "$out" && pwd)"

version="$(sed -n 's/^project(dwg_import_worker VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")"
[ -n "$version" ] || fail "CMakeLists.txt does not tell the version"
epoch="${SOURCE_DATE_EPOCH:-$(git -C "$root" log -1 --format=%ct)}"
export SOURCE_DATE_EPOCH="$epoch"
umask 022
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# package_of FILE: the Debian package that a file of this machine came with.
package_of() { dpkg-query -S "$(readlink -f "$1")" | cut -d: -f1; }

# The libraries of this system that are linked in, each as: name, a file of it, licence.
runtimes() {
  if [ "$1" = windows ]; then
    local mingw=/usr/x86_64-w64-mingw32/lib
    printf '%s\n' "zlib $mingw/libz.a Zlib" "mingw-w64 $mingw/libmingwex.a ZPL-2.1" \
      "gcc-runtime $(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++.a) GPL-3.0-or-later WITH GCC-exception-3.1"
  else
    printf '%s\n' "zlib $(g++ -print-file-name=libz.a) Zlib" \
      "gcc-runtime $(g++ -print-file-name=libstdc++.a) GPL-3.0-or-later WITH GCC-exception-3.1"
  fi
}

version_of() { dpkg-query -W -f='${Version}' "$(package_of "$1")"; }

# The libraries of this system that are loaded at the start, as above: the preview's.
shared_libraries() {
  printf '%s\n' "Qt $(g++ -print-file-name=libQt6Widgets.so) LGPL-3.0-only OR GPL-2.0-only OR GPL-3.0-only"
}

# bill SUBJECT PLATFORM PROGRAM...: prints the bill of materials.
bill() {
  local subject="$1" platform="$2" name file licence arguments=()
  shift 2
  if [ "$subject" = dwg_import_worker ]; then
    while read -r name file licence; do
      arguments+=(--runtime "$name=$(version_of "$file")=$licence")
    done < <(runtimes "$platform")
  fi
  if [[ " $* " == */dwg_preview\ * ]]; then
    while read -r name file licence; do
      arguments+=(--shared "$name=$(version_of "$file")=$licence")
    done < <(shared_libraries)
  fi
  python3 "$root/scripts/packaging/bill_of_materials.py" --subject "$subject" --version "$version" \
    --epoch "$epoch" "${arguments[@]}" "$@"
}

# programs_in FOLDER NAME...: the files of these names, with and without .exe.
programs_in() {
  local folder="$1" name
  shift
  for name in "$@"; do
    find "$folder" -type f \( -name "$name" -o -name "$name.exe" \)
  done | LC_ALL=C sort
}
worker_programs=(dwg_import_worker crashpad_handler)

# install_tree PLATFORM FOLDER BUILD...: what the builds install, with the licences of
# libraries of this system and the bill beside the other licences.
install_tree() {
  local platform="$1" folder="$2" licenses documents build name file programs
  shift 2
  for build in "$@"; do
    cmake --install "$build" --prefix "$folder" >/dev/null
  done
  licenses="$folder/share/doc/dwg_import_worker/licenses"
  [ "$platform" = linux ] || licenses="$folder/licenses"
  documents="$(dirname "$licenses")"
  while read -r name file _; do
    install -m 644 "/usr/share/doc/$(package_of "$file")/copyright" "$licenses/$name.txt"
  done < <(runtimes "$platform")
  mapfile -t programs < <(programs_in "$folder" "${worker_programs[@]}" dwg_preview)
  bill dwg_import_worker "$platform" "${programs[@]}" > "$documents/dwg_import_worker.spdx.json"
  find "$folder" -type d -exec chmod 755 {} +
}

# install_preview BUILD FOLDER: what the preview's own package holds.
install_preview() {
  local documents="$2/share/doc/dwg_preview"
  cmake --install "$1" --prefix "$2" >/dev/null
  install -D -m 644 -t "$documents" "$root"/{CHANGELOG.md,LICENSE,docs/preview.md}
  bill dwg_preview linux "$2/bin/dwg_preview" > "$documents/dwg_preview.spdx.json"
  find "$2" -type d -exec chmod 755 {} +
}

# glibc_of PROGRAM...: the oldest that the programs start with.
glibc_of() { python3 "$root/scripts/packaging/symbol_versions.py" "$@"; }

# pack_tarball TREE FILE
pack_tarball() {
  local name="dwg_import_worker-$version" scratch
  scratch="$(mktemp -d -p "$work")"
  cp -a "$1" "$scratch/$name"
  tar --create --sort=name --format=gnu --mtime="@$epoch" --owner=0 --group=0 --numeric-owner \
    --mode=u+rwX,go+rX,go-w --directory="$scratch" "$name" | xz -9 -T1 > "$2"
}

# pack_deb TREE FILE and pack_preview_deb TREE FILE
pack_deb() { make_deb dwg_import_worker "$1" "$2" "${worker_programs[@]}"; }
pack_preview_deb() { make_deb dwg_preview "$1" "$2" dwg_preview; }

# needs_of PACKAGE PROGRAM...: the packages of Debian that the programs need.
needs_of() {
  local package="$1" scratch depends
  shift
  scratch="$(mktemp -d -p "$work")"
  mkdir "$scratch/debian"
  printf 'Source: %s\n\nPackage: %s\nArchitecture: any\n' "$package" "$package" > "$scratch/debian/control"
  depends="$(cd "$scratch" && dpkg-shlibdeps -O "$@" 2>/dev/null | sed -n 's/^shlibs:Depends=//p')"
  [ -n "$depends" ] || fail "dpkg-shlibdeps does not say what the programs need"
  # It looks at symbols only, not at the form of relocations.
  sed "s/libc6 (>= [0-9.]*)/libc6 (>= $(glibc_of "$@"))/" <<< "$depends"
}

# make_deb NAME TREE FILE PROGRAM...
make_deb() {
  local name="$1" tree="$2" target="$3" package="${1//_/-}" scratch documents depends programs
  shift 3
  scratch="$(mktemp -d -p "$work")"
  mkdir -p "$scratch/package/DEBIAN" "$scratch/package/usr"
  cp -a "$tree/." "$scratch/package/usr"
  documents="$scratch/package/usr/share/doc/$package"
  mv "$scratch/package/usr/share/doc/$name" "$documents"
  # Debian's names for them.
  sed "s/@NAME@/$name/" "$root/packaging/debian/copyright.in" > "$documents/copyright"
  rm "$documents/LICENSE"
  gzip -9n < "$documents/CHANGELOG.md" > "$documents/changelog.gz"
  rm "$documents/CHANGELOG.md"
  gzip -9n "$scratch/package/usr/share/man/man1/"*.1
  mapfile -t programs < <(programs_in "$scratch/package/usr" "$@")
  depends="$(needs_of "$package" "${programs[@]}")"
  sed -e "s/@VERSION@/$version/" -e "s/@ARCHITECTURE@/$(dpkg --print-architecture)/" \
    -e "s/@SIZE@/$(du -sk --apparent-size "$scratch/package/usr" | cut -f1)/" -e "s/@DEPENDS@/$depends/" \
    "$root/packaging/debian/$package.control.in" > "$scratch/package/DEBIAN/control"
  (cd "$scratch/package" && find usr -type f -print0 | LC_ALL=C sort -z | xargs -0 md5sum > DEBIAN/md5sums)
  find "$scratch/package" -exec touch -h -d "@$epoch" {} +
  dpkg-deb --root-owner-group --threads-max=1 -Zxz --build "$scratch/package" "$target" >/dev/null
}

# pack_zip TREE FILE
pack_zip() {
  local scratch
  scratch="$(mktemp -d -p "$work")"
  cp -a "$1" "$scratch/dwg_import_worker-$version"
  python3 "$root/scripts/reproducible_zip.py" "$scratch" "$2" "$epoch"
}

# programs_of TREE FOLDER: the two programs alone; extras_of TREE FOLDER: the licences
# and the bill.
programs_of() {
  local programs
  mkdir -p "$2"
  mapfile -t programs < <(programs_in "$1" "${worker_programs[@]}")
  install -m 755 "${programs[@]}" "$2"
}
extras_of() {
  mkdir -p "$2"
  cp -r "$(find "$1" -type d -name licenses)" "$2/licenses"
  find "$1" -type f \( -name LICENSE -o -name dwg_import_worker.spdx.json \) -exec cp {} "$2" \;
}

# pack_wheel TREE FILE
pack_wheel() {
  local scratch
  scratch="$(mktemp -d -p "$work")"
  programs_of "$1" "$scratch/programs"
  extras_of "$1" "$scratch/extras"
  python3 "$root/scripts/packaging/make_wheel.py" --version "$version" --tag "$(wheel_tag "$1")" \
    --epoch "$epoch" --programs "$scratch/programs" --extras "$scratch/extras" "$2"
}
wheel_tag() {
  if [ -e "$1/dwg_import_worker.exe" ]; then
    echo win_amd64
  else
    local glibc
    glibc="$(glibc_of "$1"/libexec/dwg_import_worker/*)"
    echo "manylinux_${glibc//./_}_$(uname -m)"
  fi
}

# pack_node TREE FILE: TREE holds the trees of all platforms.
pack_node() {
  local scratch tree
  scratch="$(mktemp -d -p "$work")"
  mkdir "$scratch/package"
  cp "$root"/packaging/node/{index.js,index.d.ts,README.md} "$scratch/package"
  sed "s/@VERSION@/$version/" "$root/packaging/node/package.json" > "$scratch/package/package.json"
  # The types alone, without the function behind them.
  local models
  for models in dwg_document dwg_document_complete; do
    sed '/^\/\*\* The document of a line/,$d' "$root/models/typescript/$models.ts" \
      > "$scratch/package/$models.d.ts"
  done
  extras_of "$1/linux" "$scratch/package"
  programs_of "$1/linux" "$scratch/package/programs/linux-x64"
  if [ -d "$1/windows" ]; then
    programs_of "$1/windows" "$scratch/package/programs/win32-x64"
    extras_of "$1/windows" "$scratch/package/licenses/win32-x64"
  fi
  tar --create --sort=name --format=ustar --mtime="@$epoch" --owner=0 --group=0 --numeric-owner \
    --mode=u+rwX,go+rX,go-w --directory="$scratch" package | gzip -n -9 > "$2"
}

# make KIND TREE FILE: with --check twice.
made=()
make_package() {
  "pack_$1" "$2" "$out/$3"
  if $check; then
    "pack_$1" "$2" "$work/again"
    cmp "$out/$3" "$work/again" || fail "two packages of one build differ: $3"
  fi
  made+=("$3")
}

wants() { [[ " ${targets[*]} " == *" $1 "* ]]; }

if [ -z "$linux_build" ]; then
  linux_build="$root/build/release"
  install_packages "${build_packages[@]}" dpkg-dev xz-utils
  require_cargo
  build_preset release dwg_import_worker
fi
mkdir -p "$work/trees"
install_tree linux "$work/trees/linux" "$linux_build"
if wants windows && [ -z "$windows_build" ]; then
  windows_build="$root/build/windows"
  install_packages "${build_packages[@]}" "${windows_packages[@]}"
  require_cargo
  build_preset windows dwg_import_worker
fi
if [ -n "$windows_build" ]; then
  install_tree windows "$work/trees/windows" "$windows_build"
fi
if wants linux && [ -z "$preview_build" ]; then
  preview_build="$root/build/preview"
  install_packages "${build_packages[@]}" qt6-base-dev
  build_preset preview dwg_preview
fi

if wants linux; then
  architecture="$(dpkg --print-architecture)"
  install_tree linux "$work/tarball" "$linux_build" "$preview_build"
  install_preview "$preview_build" "$work/preview"
  make_package tarball "$work/tarball" "dwg_import_worker-$version-linux-$(uname -m).tar.xz"
  make_package deb "$work/trees/linux" "dwg-import-worker_${version}_$architecture.deb"
  make_package preview_deb "$work/preview" "dwg-preview_${version}_$architecture.deb"
fi
if wants windows; then
  make_package zip "$work/trees/windows" "dwg_import_worker-$version-windows-x86_64.zip"
fi
if wants python; then
  for tree in "$work"/trees/*; do
    make_package wheel "$tree" "dwg_import_worker-$version-py3-none-$(wheel_tag "$tree").whl"
  done
fi
if wants node; then
  make_package node "$work/trees" "dwg-import-worker-$version.tgz"
fi
(cd "$out" && LC_ALL=C && sha256sum -- *"$version"* > SHA256SUMS)
for file in "${made[@]}"; do
  if $check; then
    "$root/tests/packages/try_package.sh" "$out/$file"
  fi
  say "$(basename "$out")/$file: $(stat -c %s "$out/$file") bytes"
done
