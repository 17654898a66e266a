#!/usr/bin/env bash
# Builds what users run a second time, from a copy of the sources in another folder and
# with libraries that are built anew, and compares the programs byte by byte with those of
# build/release and build/preview. Takes as long as a first build.
#
#   rebuild.sh [--keep-libraries]
#
# --keep-libraries takes the libraries that are built already.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
[ "${1:-}" = --keep-libraries ] || export DWG_DEPENDENCY_CACHE="$work/libraries"
build_preset release dwg_import_worker
build_preset preview dwg_preview
# Objects from a compiler cache would be the other folder's.
export CCACHE_DISABLE=1
copy="$work/a folder of another name/sources"
mkdir -p "$copy"
(cd "$root" && git ls-files -z --cached --others --exclude-standard | tar --create --null -T -) |
  tar --extract -C "$copy"
(
  cd "$copy"
  cmake --preset release >&2
  cmake --build build/release --target dwg_import_worker >&2
  cmake --preset preview >&2
  cmake --build build/preview --target dwg_preview >&2
)
for program in release/dwg_import_worker release/crashpad_handler preview/dwg_preview; do
  cmp "$root/build/$program" "$copy/build/$program" ||
    fail "$program differs when it is built in another folder"
done
say "Built in another folder, the programs are the same bytes"
