#!/usr/bin/env bash
# Tries one package as its users would: unpacks or installs it into an empty place,
# converts a drawing there, and checks its bill of materials.
#
#   try_package.sh FILE
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"

file="$(realpath "$1")"
name="$(basename "$file")"
place="$(mktemp -d)"
trap 'rm -rf "$place"' EXIT
drawing="$root/examples/plan.dwg"

# is_document TEXT
is_document() {
  case "$1" in
    '{"dwgVersion":'*'}}') ;;
    *) fail "$name: the program printed ${1:0:200}" ;;
  esac
}

check_bill() {
  local bill
  bill="$(find "$place" -name dwg_import_worker.spdx.json)"
  [ -n "$bill" ] || fail "$name holds no bill of materials"
  python3 "$root/tests/packages/check_bill.py" "$bill" "$place" >&2
}

# The texts of what is linked in.
check_licences() {
  local one
  for one in libredwg mimalloc sentry-native crashpad mini_chromium zlib gcc-runtime; do
    [ -s "$(find "$place" -path "*licenses/$one.txt" | head -1)" ] ||
      fail "$name holds no licence of $one"
  done
}

case "$name" in
  *.tar.xz)
    tar -xJf "$file" -C "$place"
    is_document "$(cd "$place"/*/bin && env -i ./dwg_import_worker "$drawing" 2>/dev/null)"
    ! command -v man >/dev/null || MANPATH="$(echo "$place"/*/share/man)" man -w dwg_import_worker >/dev/null ||
      fail "$name: no man page is found"
    ;;
  *.deb)
    dpkg-deb --extract "$file" "$place"
    is_document "$(env -i "$place/usr/bin/dwg_import_worker" "$drawing" 2>/dev/null)"
    ;;
  *.zip)
    python3 -m zipfile -e "$file" "$place"
    is_document "$(cd "$place"/dwg_import_worker-* && WINEDEBUG=-all wine ./dwg_import_worker.exe \
      "Z:${drawing//\//\\}" 2>/dev/null)"
    ;;
  *win_amd64.whl)
    python3 -m zipfile -e "$file" "$place"
    say "$name: only unpacked here, for want of Windows and its Python"
    ;;
  *.whl)
    /usr/bin/python3 -m venv "$place"
    "$place/bin/pip" install --quiet --disable-pip-version-check --no-index "$file"
    "$place/bin/python" -m py_compile "$place"/lib/python3*/site-packages/dwg_import_worker/models{,_complete}.py
    "$place/bin/python" - "$drawing" <<'PYTHON'
import sys
import dwg_import_worker
result = dwg_import_worker.convert(sys.argv[1])
assert result.kind == "document" and result.document["entities"], result
assert dwg_import_worker.convert(sys.argv[1], complete=True).document["form"]["name"] == "complete"
assert dwg_import_worker.convert("none.dwg").kind == "refused"
assert dwg_import_worker.convert(sys.argv[1], megabytes=1).kind != "document"
PYTHON
    ;;
  *.tgz)
    mkdir "$place/project"
    if command -v npm >/dev/null; then
      (cd "$place/project" && npm init --yes >/dev/null &&
        npm install --offline --ignore-scripts --no-audit --no-fund "$file" >/dev/null)
    else
      say "$name: unpacked by hand, for want of npm"
      mkdir -p "$place/project/node_modules/dwg-import-worker"
      tar -xzf "$file" -C "$place/project/node_modules/dwg-import-worker" --strip-components=1
    fi
    if command -v node >/dev/null; then
      (cd "$place/project" && node - "$drawing" <<'NODE'
const assert = require('node:assert');
const {convert} = require('dwg-import-worker');
(async () => {
  const result = await convert(process.argv[2]);
  assert.equal(result.kind, 'document', result.message);
  assert.ok(result.document.entities.length > 0);
  const complete = await convert(process.argv[2], {complete: true});
  assert.equal(complete.document.form.name, 'complete');
  assert.equal((await convert('none.dwg')).kind, 'refused');
  assert.equal((await convert(process.argv[2], {maxBytes: 10})).kind, 'bad');
  assert.notEqual((await convert(process.argv[2], {megabytes: 1})).kind, 'document');
})().catch((error) => { console.error(error); process.exit(1); });
NODE
      )
    else
      say "$name: not run, for want of Node"
    fi
    if command -v tsc >/dev/null; then
      cat > "$place/project/typed.ts" <<'TYPESCRIPT'
import {convert} from "dwg-import-worker";
export async function radii(drawing: string): Promise<number[]> {
  const result = await convert(drawing, {seconds: 5});
  return (result.document?.entities ?? []).flatMap(
      (entity) => entity.type === "CIRCLE" ? [entity.radius] : []);
}
export async function linetypes(drawing: string): Promise<string[]> {
  const result = await convert(drawing, {complete: true});
  return (result.document?.linetypes ?? []).map((linetype) => linetype.name);
}
TYPESCRIPT
      (cd "$place/project" && tsc --strict --noEmit --target es2020 --moduleResolution node typed.ts) ||
        fail "$name: its types do not fit"
    fi
    ;;
  *) fail "what kind of package is $name?" ;;
esac
check_bill
check_licences
say "$name works"
