#!/usr/bin/env bash
# Converts one drawing and prints its document: installs the build needs that
# are missing and builds the worker first when that has not been done.
#
#   scripts/convert.sh DRAWING [--verbose]
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

[ $# -ge 1 ] || fail "which drawing? Try: scripts/convert.sh examples/plan.dwg"

install_packages "${build_packages[@]}"
require_cargo
build_preset release dwg_import_worker

worker="$root/build/release/dwg_import_worker"
status=0
"$worker" "$@" || status=$?
say "The worker is build/release/dwg_import_worker; call it directly from now on"
exit "$status"
