#!/bin/bash
# Makes what the program does now the expectation of the cases named, or of all. Shows first what changes:
# review it, with compare_drawings.py and by thought, before it is committed.
#
#   tests/cases/promote.sh KIVCVT [CASE...]        KIVCVT: the program, for example build/bin/kivcvt
set -euo pipefail
here=$(cd -- "$(dirname -- "$0")" && pwd)
program=$(realpath "$1")
shift
if (($# == 0)); then set -- $(cd "$here" && ls -d */); fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for name in "$@"; do
  folder=$here/${name%/}
  copy=$work/${name%/}
  cp -rL "$folder" "$copy"
  options=(convert --spec rules.cvt --out out)
  if [[ -e $folder/options ]]; then options+=($(<"$folder/options")); fi
  if [[ -e $folder/log ]]; then options+=(--log logs); fi
  (cd "$copy" && "$program" "${options[@]}" drawing.dxf >said 2>messages) && kind=warnings || kind=problems

  if [[ ! -e $copy/out/drawing.DXF ]]; then
    echo "${name%/}: no drawing was written" >&2
    cat "$copy/messages" >&2
    continue
  fi
  if ! cmp -s "$copy/out/drawing.DXF" "$folder/expected.dxf"; then
    echo "${name%/}: what the conversion changes is now"
    "$here/compare_drawings.py" "$folder/drawing.dxf" "$copy/out/drawing.DXF" || true
    cp "$copy/out/drawing.DXF" "$folder/expected.dxf"
  fi
  if ! cmp -s "$copy/messages" "$folder/$kind"; then sed "s/^/${name%/}: says /" "$copy/messages"; fi
  rm -f "$folder/problems" "$folder/warnings"
  if [[ -s $copy/messages ]]; then cp "$copy/messages" "$folder/$kind"; fi
  if [[ -e $folder/log ]]; then
    LC_ALL=C sed -E '1!s|^[^,]+,[^,]*/([^/,]*),|TIME,\1,|' "$copy"/logs/* >"$folder/log"
  fi
done
