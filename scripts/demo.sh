#!/usr/bin/env bash
# Builds the library and the commonkit tool, then runs `commonkit demo`.
# Extra arguments go to the demo (for example --keep or --lang de).
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

BUILD="$ROOT/build/release"
configure "$BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$BUILD" --target commonkit -j "$JOBS"
exec "$BUILD/tools/commonkit/commonkit" demo "$@"
