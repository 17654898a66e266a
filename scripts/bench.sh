#!/usr/bin/env bash
# Builds what users run and the benchmarks, measures, and prints the tables of
# docs/performance.md. Best on a machine that does nothing else.
#
#   scripts/bench.sh [OPTION...]    (those of bench/run_bench.py)
#
# DWG_CORPUS names the folder of real drawings; without it only those of the
# tests are measured. Where npm is installed, a package that does the same job is measured
# too, and with BENCH_ACADRUST=1 a reader written in Rust (bench/acadrust_reader). The
# results go to build/bench/results.json as well.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

install_packages "${build_packages[@]}" libbenchmark-dev valgrind python3-venv
require_cargo
prepare_python
build_preset release
cmake -S "$root" -B "$root/build/bench" -G Ninja -DCMAKE_BUILD_TYPE=Release \
  -DDWG_BUILD_BENCH=ON -DDWG_MIMALLOC=ON -DDWG_CRASH_REPORTING=OFF >&2
cmake --build "$root/build/bench" >&2

acadrust=()
if [ "${BENCH_ACADRUST:-}" = 1 ]; then
  # In a copy: cargo writes a lock file beside the manifest.
  rm -rf "$root/build/bench/acadrust_reader"
  cp -r "$root/bench/acadrust_reader" "$root/build/bench/acadrust_reader"
  cargo build --release --quiet --manifest-path "$root/build/bench/acadrust_reader/Cargo.toml" \
    --target-dir "$root/build/bench/acadrust_target" >&2
  acadrust=(--acadrust "$root/build/bench/acadrust_target/release/acadrust_reader")
fi

drawings=()
[ -z "${DWG_CORPUS:-}" ] || drawings=(--drawings "$DWG_CORPUS")
python3 "$root/bench/run_bench.py" --bench "$root/build/bench" \
  --worker "$root/build/release/dwg_import_worker" "${drawings[@]}" "${acadrust[@]}" \
  --generated "${XDG_CACHE_HOME:-$HOME/.cache}/dwg_import_worker/generated" \
  --json "$root/build/bench/results.json" "$@"

if [ $# -eq 0 ]; then
  for program in encode_bench mtext_bench drawing_bench; do
    say "$program"
    "$root/build/bench/bench/$program" --benchmark_repetitions=5 \
      --benchmark_report_aggregates_only=true
  done
fi
