#!/usr/bin/env bash
# Makes the kept corpus of a fuzz target smaller or new: the fewest inputs that
# reach all that the given ones reach, in one archive in fuzz/corpus.
#
#   scripts/keep_corpus.sh TARGET [FOLDER...]
#
# FOLDERs hold inputs, such as ~/.cache/dwg_import_worker/fuzz/corpus/TARGET after a
# long run; without any, the archive's own inputs are minimised. Every build with
# tests replays them.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

[ $# -gt 0 ] || fail "which target of fuzz/targets.txt?"
target="$1"
shift
build_preset asan "$target"
folders=("$@")
[ ${#folders[@]} -gt 0 ] || folders=("$root/build/asan/fuzz/corpus/$target")

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
mkdir "$work/merged" "$work/named"
# Edges alone, not how often each is taken: an input for each count of each loop
# would be most of the corpus.
ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=1 KVT_DWG_HATCH_DEBUG=1 \
  "$root/build/asan/fuzz/$target" -merge=1 -set_cover_merge=1 -use_counters=0 -close_fd_mask=3 \
  "$work/merged" "${folders[@]}" >"$work/log" 2>&1 || { tail -20 "$work/log" >&2; fail "the merge failed"; }

# In order of size, under short names; the same inputs give the same archive.
number=0
while read -r input; do
  number=$((number + 1))
  cp "$work/merged/$input" "$work/named/$(printf '%03d' "$number")"
done < <(cd "$work/merged" && find . -type f -printf '%s %f\n' | sort -n -k1,1 -k2,2 | cut -d' ' -f2)
[ "$number" -gt 0 ] || fail "no input was kept"
mkdir -p "$root/fuzz/corpus"
(cd "$work/named" && tar --mtime=@0 --owner=0 --group=0 --numeric-owner --mode=644 -cf - [0-9]*) |
  gzip -9n > "$root/fuzz/corpus/$target.tar.gz"
say "$number inputs in fuzz/corpus/$target.tar.gz"
