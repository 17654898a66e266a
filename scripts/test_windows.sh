#!/usr/bin/env bash
# Cross-builds the worker, crashpad_handler and the unit tests for 64-bit Windows
# and runs them under wine: unit tests, golden documents, the drawings that
# DWG_CORPUS names, crash reporting. Says what it installs when something is missing.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. "$(dirname "${BASH_SOURCE[0]}")/windows_packages.sh"

install_packages "${build_packages[@]}" "${windows_packages[@]}" python3
require_cargo

build="$root/build/windows"
cmake -S "$root" --preset windows -DDWG_BUILD_TESTS=ON >&2
cmake --build "$build" >&2

say "DLLs: only Windows' own"
own_dlls='^(ADVAPI32|KERNEL32|msvcrt|POWRPROF|RPCRT4|SHLWAPI|USER32|VERSION|WINHTTP|dbghelp|ole32|SHELL32)\.dll$'
for program in dwg_import_worker crashpad_handler; do
  dlls="$(x86_64-w64-mingw32-objdump -p "$build/$program.exe" | sed -n 's/^\s*DLL Name: //p')"
  [ -n "$dlls" ] || fail "$program.exe names no DLL at all"
  if others="$(grep -viE "$own_dlls" <<< "$dlls")"; then
    fail "$program.exe needs $others"
  fi
done

say "Hardening"
python3 "$root/tests/hardening/check_hardening.py" "$build"/{dwg_import_worker,crashpad_handler}.exe

use_wine

# A program that idles keeps wine's background processes up; starting them for
# every run would take seconds each time. It ends with this script, which holds
# the other end of its input.
coproc idle_wine { exec wine cmd >/dev/null 2>&1; }

say "Unit tests under wine"
(cd "$build" && wine "$(find . -name unit_tests.exe)" --gtest_brief=1)

say "Sandbox under wine, which accepts more than it enforces"
(cd "$build" && wine "$(find . -name sandbox_tests.exe)")

if [ -f "$root/tests/golden/run_golden.py" ] && compgen -G "$root/tests/golden/*/cases.json" >/dev/null; then
  say "Golden documents under wine"
  python3 "$root/tests/golden/run_golden.py" --worker "$build/dwg_import_worker.exe" --launcher wine
fi

if [ -n "${DWG_CORPUS:-}" ]; then
  build_preset release dwg_import_worker
  say "Real drawings under wine and on Linux"
  python3 "$root/tests/corpus/compare_under_wine.py" --worker "$root/build/release/dwg_import_worker" \
    --windows "$build/dwg_import_worker.exe"
else
  say "No real drawings under wine: DWG_CORPUS names no folder"
fi

say "Crash reporting under wine"
python3 "$root/tests/crash/run_crash_tests.py" --worker "$build/dwg_import_worker.exe" --wine
