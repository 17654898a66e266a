#!/usr/bin/env bash
# Shows that the performance patches change no document: builds the worker with
# and without them and compares what both print for every drawing of the tests
# and of DWG_CORPUS, and for 5,000 text DXF files that are made of them by small
# random changes.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages "${build_packages[@]}" python3
require_cargo
for state in ON OFF; do
  cmake -S "$root" -B "$root/build/patches-$state" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    "-DDWG_LIBREDWG_SPEED_PATCHES=$state" "-DDWG_MIMALLOC=$state" -DDWG_CRASH_REPORTING=OFF >&2
  cmake --build "$root/build/patches-$state" --target dwg_import_worker >&2
done
folders=("$root/tests/drawings")
[ -z "${DWG_CORPUS:-}" ] || folders+=("$DWG_CORPUS")
python3 "$root/tests/corpus/compare_documents.py" --worker "$root/build/patches-ON/dwg_import_worker" \
  --other "$root/build/patches-OFF/dwg_import_worker" --mutated 5000 "${folders[@]}"
