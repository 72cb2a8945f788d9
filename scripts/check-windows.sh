#!/usr/bin/env bash
# Compiles the Windows implementation of the platform layer with MinGW, to
# objects only, so that the Windows code paths keep compiling on Linux.
set -euo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
shopt -s nullglob
sources=("$ROOT"/platform/*.cpp "$ROOT"/platform/windows/*.cpp)
if [ ${#sources[@]} -eq 0 ]; then
  echo "no Windows platform sources yet"
  exit 0
fi
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
# Public headers are included as <CommonKit/...>: a link to the tree stands in
# for the installed include folder.
mkdir -p "$out/include"
ln -s "$ROOT" "$out/include/CommonKit"
for source in "${sources[@]}"; do
  x86_64-w64-mingw32-g++ -std=c++17 -Wall -Wextra -Werror -DCOMMONKIT_BUILDING_LIBRARY \
    -I"$out/include" -I"$ROOT" -c "$source" -o "$out/$(basename "$source").o"
  echo "compiled $(realpath --relative-to="$ROOT" "$source")"
done
