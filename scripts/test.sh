#!/usr/bin/env bash
# Installs what the tests need, builds every variant and runs every test.
#
#   scripts/test.sh [STAGE...]
#
# Stages, by default all of them in this order: checks dev asan lint analyze
# fuzz release preview windows packages. fresh_root and rebuild run only when they are
# named: the first needs the superuser and the network, the second builds everything anew.
# DWG_CORPUS names a folder of drawings for the runs over real drawings; they
# are left out, with a line that says so, when it is not set.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$(dirname "${BASH_SOURCE[0]}")/windows_packages.sh"

test_packages=(git clang llvm libclang-rt-14-dev clang-format-14 clang-tidy-14 googletest libgtest-dev libbenchmark-dev
               python3-venv valgrind nlohmann-json3-dev node-typescript
               libegl1 libgl1 libxkbcommon0 libdbus-1-3 libfontconfig1 libfreetype6
               libglib2.0-0 libx11-6 libbrotli1 libpng16-16)

stage_checks() {
  say "Format"
  (cd "$root" && our_sources '*.[ch]pp' | xargs clang-format-14 --dry-run -Werror)
  local folder
  for folder in bench fuzz hosts/preview/tests; do
    cmp "$root/tests/.clang-tidy" "$root/$folder/.clang-tidy"
  done
}

# run_ctest PRESET [OPTION...]
run_ctest() {
  local preset="$1"
  shift
  (cd "$root" && ctest --test-dir "build/$preset" --output-on-failure --no-tests=error \
    -j "$(nproc)" "$@")
}

stage_dev() {
  say "GCC, warnings as errors: build and test"
  build_preset dev
  run_ctest dev
}

stage_analyze() {
  "$root/scripts/analyze.sh"
}

stage_asan() {
  say "Clang, warnings as errors, address and undefined-behaviour sanitizers: build and test"
  build_preset asan
  # The library leaks when it refuses a drawing, and our tests give it such drawings.
  ASAN_OPTIONS=detect_leaks=0 run_ctest asan -LE documents
}

stage_lint() {
  (cd "$root" && cmake --preset asan >&2)
  "$root/scripts/lint.sh" worker
}

stage_fuzz() {
  say "Fuzzing: every finding again, every target for 20 seconds"
  local folder
  build_preset asan
  ASAN_OPTIONS=detect_leaks=0 run_ctest asan -R '^replay_'
  folder="$(mktemp -d)"
  "$root/scripts/fuzz.sh" --seconds 20 --seed 1 --jobs 2 --folder "$folder" \
    --programs "$root/build/asan/fuzz"
  rm -rf "$folder"
}

stage_release() {
  say "What users run: build, golden documents, crash reporting"
  build_preset release all crash_program without_calls
  (
    cd "$root"
    python3 tests/golden/run_golden.py --worker build/release/dwg_import_worker
    python3 tests/crash/run_crash_tests.py --worker build/release/dwg_import_worker
    if [ -n "${DWG_CORPUS:-}" ]; then
      python3 tests/corpus/run_corpus.py --worker build/release/dwg_import_worker \
        --report build/corpus.html
    else
      say "DWG_CORPUS is not set: the runs over a folder of real drawings were left out"
    fi
  )
}

stage_fresh_root() {
  say "The .debs in a fresh Debian root"
  install_packages debootstrap dpkg-dev xz-utils
  "$root/scripts/package.sh" --out "$root/build/packages" linux
  python3 "$root/tests/packages/fresh_root.py" "$root"/build/packages/dwg-{import-worker,preview}_*.deb
}

stage_rebuild() {
  say "The programs again, in another folder"
  "$root/tests/packages/rebuild.sh"
}

stage_preview() {
  say "dwg_preview: build, unit tests, headless tests, pictures against ezdxf's, clang-tidy"
  install_packages qt6-base-dev fonts-liberation fonts-dejavu-core fonts-dejavu-extra chromium chromium-driver
  build_preset dev dwg_import_worker
  (
    cd "$root"
    cmake --preset preview-dev -DDWG_PREVIEW_WORKER="$root/build/dev/dwg_import_worker" >&2
    cmake --build build/preview-dev >&2
  )
  run_ctest preview-dev
  "$root/scripts/lint.sh" preview
  say "dwg_preview: unit tests and headless tests under sanitizers"
  (
    cd "$root"
    cmake --preset preview-asan -DDWG_PREVIEW_WORKER="$root/build/dev/dwg_import_worker" >&2
    cmake --build build/preview-asan >&2
  )
  run_ctest preview-asan -R '^preview_(unit_tests|headless)$'
}

stage_windows() {
  say "64-bit Windows: cross build, tests and golden documents under wine"
  "$root/scripts/test_windows.sh"
}

stage_packages() {
  say "Packages: hardening, man pages, every package twice and tried"
  install_packages dpkg-dev xz-utils man-db groff qt6-base-dev "${windows_packages[@]}"
  # All of these are there already when the stages before have run.
  build_preset release dwg_import_worker
  build_preset preview-dev dwg_preview
  build_preset windows dwg_import_worker
  (
    cd "$root"
    python3 tests/hardening/check_hardening.py build/release/{dwg_import_worker,crashpad_handler} \
      build/preview-dev/dwg_preview build/windows/{dwg_import_worker,crashpad_handler}.exe
    python3 tests/packages/check_manual.py
    scripts/package.sh --check --build build/release --preview-build build/preview-dev \
      --windows-build build/windows --out build/packages
  )
}

stages=("$@")
[ ${#stages[@]} -gt 0 ] ||
  stages=(checks dev asan lint analyze fuzz release preview windows packages)

install_packages "${build_packages[@]}" "${test_packages[@]}"
require_cargo
prepare_python
for stage in "${stages[@]}"; do
  declare -F "stage_$stage" >/dev/null || fail "there is no stage named $stage"
done
took=()
for stage in "${stages[@]}"; do
  started=$SECONDS
  "stage_$stage"
  took+=("$stage $((SECONDS - started)) s")
done
say "Seconds: ${took[*]}"
say "All stages passed: ${stages[*]}"
