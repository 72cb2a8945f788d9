#!/usr/bin/env bash
# Builds the API reference of the installed headers with Doxygen into
# build/apidoc/html (open build/apidoc/html/index.html). Fails on any Doxygen
# warning, an undocumented public class or function among them; the warnings
# are printed and kept in build/apidoc/warnings.log.
set -euo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
bash "$ROOT/scripts/bootstrap.sh"
OUT="$ROOT/build/apidoc"
rm -rf "$OUT"
mkdir -p "$OUT"
VERSION=$(sed -n 's/^project(CommonKit VERSION \([0-9.]*\).*/\1/p' "$ROOT/CMakeLists.txt")
# The folders whose headers are installed (internal *_p.h headers excluded).
INPUT=""
for folder in support platform util properties expressions logging logview storage json rights resources docs/api; do
  [ -d "$ROOT/$folder" ] && INPUT="$INPUT $ROOT/$folder"
done
sed -e "s|@VERSION@|$VERSION|" -e "s|@OUTPUT@|$OUT|g" -e "s|@INPUT@|$INPUT|" -e "s|@SOURCE@|$ROOT|g" \
  "$ROOT/docs/api/Doxyfile.in" > "$OUT/Doxyfile"
if ! (cd "$OUT" && doxygen Doxyfile); then
  cat "$OUT/warnings.log" >&2
  echo "apidoc: $(grep -cE '(warning|error):' "$OUT/warnings.log") Doxygen warnings (see above)" >&2
  exit 1
fi
echo "apidoc: $OUT/html/index.html"
