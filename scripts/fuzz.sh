#!/usr/bin/env bash
# Runs the fuzz targets, one after the other, and sorts what they found.
#
#   scripts/fuzz.sh [TARGET...] [--seconds N] [--seed N] [--jobs N] [--folder F]
#                   [--programs F]
#
# TARGETs are names from fuzz/targets.txt, all of them by default, for 60 seconds
# each. The corpora and the findings stay in a folder outside the repository
# (--folder; ~/.cache/dwg_import_worker/fuzz by default) and are taken up again by
# the next run. --jobs runs so many targets at a time. --programs names a folder of
# built targets, for runs that must not change while the sources do; without it the asan
# preset is built first.
#
# Fails when a finding is ours. Findings in LibreDWG are listed and end nothing:
# every input runs in a child that may die.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

targets=()
seconds=60
seed=0
jobs=1
folder="${XDG_CACHE_HOME:-$HOME/.cache}/dwg_import_worker/fuzz"
programs=""
while [ $# -gt 0 ]; do
  case "$1" in
    --seconds) seconds="$2"; shift 2 ;;
    --seed) seed="$2"; shift 2 ;;
    --jobs) jobs="$2"; shift 2 ;;
    --folder) folder="$2"; shift 2 ;;
    --programs) programs="$2"; shift 2 ;;
    -*) fail "there is no option $1" ;;
    *) targets+=("$1"); shift ;;
  esac
done
[ ${#targets[@]} -gt 0 ] || targets=("${fuzz_targets[@]}")

if [ -z "$programs" ]; then
  build_preset asan "${targets[@]}"
  programs="$root/build/asan/fuzz"
fi
mkdir -p "$folder"
folder="$(cd "$folder" && pwd)"
python3 "$root/fuzz/make_seeds.py" "$folder/seeds"

# The dump of hatch boundaries is fuzzed too; the library leaks when it refuses.
export KVT_DWG_HATCH_DEBUG=1 ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1

# The number of inputs that a log's run has executed.
executions() {
  { grep -oE '^#[0-9]+:' "$1" || echo '#0:'; } | tail -1 | tr -d '#:'
}

run_target() {
  local target="$1" log="$folder/$1.log" max_len=4096
  local corpus="$folder/corpus/$target" crashes="$folder/crashes/$target"
  case "$target" in fuzz_dwg | fuzz_dxf | fuzz_dxf_front_end) max_len=65536 ;; esac
  mkdir -p "$corpus" "$crashes"
  local dictionary=()
  [ -e "$root/fuzz/dictionaries/$target.dict" ] &&
    dictionary=("-dict=$root/fuzz/dictionaries/$target.dict")
  say "$target for $seconds s"
  # The status says only that something was found, which the sorting tells better.
  local TIMEFORMAT=%U
  { time "$programs/$target" -fork=1 -ignore_crashes=1 -ignore_ooms=1 -ignore_timeouts=1 \
    -max_total_time="$seconds" -seed="$seed" -timeout=10 -rss_limit_mb=2560 \
    -max_len="$max_len" -close_fd_mask=3 "${dictionary[@]}" "-artifact_prefix=$crashes/" \
    "$corpus" "$folder/seeds/$target" > "$log" 2>&1; } 2> "$log.time" || true
  local count processor
  processor="$(tail -1 "$log.time")"
  count="$(executions "$log")"
  [ "$count" -gt 0 ] || { tail -20 "$log" >&2; fail "$target did not run"; }
  printf '%s\t%s\t%s\t%s\n' "$(date -u +%FT%TZ)" "$target" "$processor" "$count" >> "$folder/runs.tsv"
  say "$target: $count inputs executed in $processor s of processor time, $(find "$corpus" -type f | wc -l) kept"
}

run_and_sort() {
  run_target "$1"
  python3 "$root/fuzz/sort_findings.py" "$programs/$1" "$folder/crashes/$1"
}

runs=()
for target in "${targets[@]}"; do
  while [ "$(jobs -pr | wc -l)" -ge "$jobs" ]; do
    sleep 0.2
  done
  run_and_sort "$target" &
  runs+=($!)
done
status=0
for run in "${runs[@]}"; do
  wait "$run" || status=1
done
exit $status
