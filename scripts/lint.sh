#!/usr/bin/env bash
# clang-tidy over all our C++, with the checks of .clang-tidy. Fails on anything
# that it reports.
#
#   scripts/lint.sh [PART...] [FILE...]
#
# PARTs are worker (the worker, its tests, fuzz targets and benchmarks; takes the
# compile commands of build/asan) and preview (those of build/preview-dev);
# both by default, many files at a time (lint_in_batches.py says what that leaves out).
# FILEs are linted alone. Left out are the sources for Windows and those that need
# sentry-native or mimalloc, which these builds do not compile.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages clang-tidy-14
cd "$root"

# lint BUILD: the files on standard input.
lint() {
  is_configured "$1"
  python3 scripts/lint_in_batches.py "$1"
}

# lint_alone BUILD FILE
lint_alone() {
  is_configured "$1"
  clang-tidy-14 -p "$1" --quiet "$2"
}

is_configured() { [ -e "$1/compile_commands.json" ] || fail "$1 is not configured"; }

lint_worker() {
  say "clang-tidy: worker, tests, fuzz targets, benchmarks"
  { room_sources && our_sources 'tests/*.cpp' 'fuzz/*.cpp' 'bench/*.cpp'; } |
    grep -vE '_win(_test)?\.cpp$' | lint build/asan
}

lint_preview() {
  say "clang-tidy: preview"
  our_sources 'hosts/preview/*.cpp' | grep -vE '_win\.cpp$' | lint build/preview-dev
}

wanted=("$@")
[ ${#wanted[@]} -gt 0 ] || wanted=(worker preview)
for one in "${wanted[@]}"; do
  case "$one" in
    worker | preview) "lint_$one" ;;
    hosts/preview/*) lint_alone build/preview-dev "$one" ;;
    *) lint_alone build/asan "$one" ;;
  esac
done
