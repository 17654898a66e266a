#!/usr/bin/env bash
# Static analysis beyond the compilers' warnings and clang-tidy: GCC's analyzer
# and cppcheck over our sources. Fails on anything that they report, but for the
# exceptions below.
#
#   scripts/analyze.sh
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages g++ cppcheck
require_cargo

# The headers of LibreDWG come with a configured build.
(cd "$root" && cmake --preset dev >&2)
include="$(grep -m1 -oE -- '-isystem [^ ]*libredwg[^ ]*' "$root/build/dev/compile_commands.json" |
  cut -d' ' -f2)"
[ -n "$include" ] || fail "build/dev does not say where LibreDWG's headers are"

mapfile -t sources < <(room_sources)

cd "$root"
say "GCC's analyzer"
# GCC 12 mistakes the place of a returned object for an uninitialised value, at
# every function that returns a string or a struct, and does not follow destructors:
# what a map or a unique_ptr owns counts as leaked. clang-tidy's analyzer and the
# runs over two memory patterns look for the real ones.
analyzer=(g++ -std=c++20 -O1 -I. -isystem "$include" -fanalyzer -Werror
          -Wno-analyzer-use-of-uninitialized-value
          -Wno-analyzer-malloc-leak -Wno-analyzer-file-leak -c -o /dev/null)
# It also believes that operator new returns null, which it finds where a vector
# of pieces grows.
growing=encode/json_out.cpp
printf '%s\n' "${sources[@]}" | grep -vxF "$growing" |
  xargs -P "$(nproc)" -I{} "${analyzer[@]}" {}
"${analyzer[@]}" -Wno-analyzer-null-dereference -Wno-analyzer-possible-null-dereference "$growing"

say "cppcheck"
# Missing headers are the system's, which cppcheck does not need. It believes
# that two requires-expressions of the dispatcher are the same condition.
cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability \
  --suppress=missingIncludeSystem --suppress=missingInclude \
  --suppress=identicalConditionAfterEarlyExit:entities/convert_entity.cpp \
  --error-exitcode=1 -I. "${sources[@]}"
say "The analyzers report nothing"
