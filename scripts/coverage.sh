#!/usr/bin/env bash
# Prints which part of our sources the unit tests and the fuzz corpora run.
#
#   scripts/coverage.sh [--lines] [--folder F] [SET...]
#
# SETs are unit, fuzz (all targets) and the names of fuzz targets; unit and fuzz
# by default. The corpora are those of scripts/fuzz.sh (--folder as there) and of
# fuzz/corpus, with the seeds and the kept findings. --lines also prints every line
# never run.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

sets=()
lines=""
folder="${XDG_CACHE_HOME:-$HOME/.cache}/dwg_import_worker/fuzz"
while [ $# -gt 0 ]; do
  case "$1" in
    --lines) lines=yes; shift ;;
    --folder) folder="$2"; shift 2 ;;
    -*) fail "there is no option $1" ;;
    *) sets+=("$1"); shift ;;
  esac
done
[ ${#sets[@]} -gt 0 ] || sets=(unit fuzz)

# Debian gives them a version in their names.
tool() { command -v "$1" || command -v "$1-14" || fail "$1 is missing (package llvm)"; }
profdata="$(tool llvm-profdata)"
cov="$(tool llvm-cov)"

build_preset coverage unit_tests "${fuzz_targets[@]/%/_replay}"
build="$root/build/coverage"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
python3 "$root/fuzz/make_seeds.py" "$work/seeds"

run_unit() {
  LLVM_PROFILE_FILE="$work/unit.%p.profraw" "$build/tests/unit_tests" > "$work/unit.log" 2>&1 ||
    { tail -20 "$work/unit.log" >&2; fail "the unit tests fail"; }
}

run_target() {
  local target="$1" inputs=() place
  for place in "$work/seeds/$target" "$folder/corpus/$target" "$build/fuzz/corpus/$target" \
    "$root/fuzz/findings/$target"; do
    [ -n "$(ls -A "$place" 2>/dev/null)" ] && inputs+=("$place")
  done
  [ ${#inputs[@]} -gt 0 ] || { say "$target has no inputs"; return 0; }
  KVT_DWG_HATCH_DEBUG=1 LLVM_PROFILE_FILE="$work/$2.$target.%p.profraw" \
    "$build/fuzz/${target}_replay" "${inputs[@]}" > "$work/$target.log" 2>&1 ||
    say "$target ended early: $(tail -1 "$work/$target.log")"
}

report() {
  local name="$1" objects=("$build/tests/unit_tests") target
  for target in "${fuzz_targets[@]}"; do
    objects+=(-object "$build/fuzz/${target}_replay")
  done
  "$profdata" merge -o "$work/$name.profdata" "$work/$name."*.profraw
  local sources=()
  mapfile -t sources < <(cd "$root" && find "${rooms[@]}" -name '*.[ch]pp' |
    sed "s|^|$root/|")
  say "$name"
  "$cov" report "${objects[@]}" -instr-profile="$work/$name.profdata" \
    -show-region-summary=false -show-branch-summary=false "${sources[@]}" |
    sed "s|$root/||" | grep -vE '^-+$|^$'
  [ -z "$lines" ] || "$cov" show "${objects[@]}" -instr-profile="$work/$name.profdata" \
    -show-instantiations=false "${sources[@]}" |
    awk -v root="$root/" '/^\/.*:$/ { file = $0; sub(root, "", file); sub(/:$/, "", file) }
      /^ *[0-9]+\| +0\|/ { print file ":" $0 }' | tr -s ' '
}

for name in "${sets[@]}"; do
  case "$name" in
    unit) run_unit ;;
    fuzz) for target in "${fuzz_targets[@]}"; do run_target "$target" fuzz; done ;;
    *) run_target "$name" "$name" ;;
  esac
  report "$name"
done
