#!/usr/bin/env bash
# Builds the libFuzzer targets (clang, AddressSanitizer) and runs every one
# of them on a copy of its committed corpus (fuzz/corpus/<target>), two at a
# time. Fails when a target reports anything: a crash, a leak, a sanitizer
# report, an input that takes over a second, or memory beyond the limit.
#
#   scripts/fuzz.sh            # 10 seconds per target (the test stage)
#   scripts/fuzz.sh MINUTES    # MINUTES per target (may be a fraction: 0.5)
#
# Inputs found on the way go to build/fuzz/run/corpus/<target> (the committed
# corpus is not touched); a failing input is kept in
# build/fuzz/run/artifacts/<target>/ and its report in build/fuzz/run/<target>.log.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

if [ $# -gt 0 ]; then
  seconds=$(awk -v m="$1" 'BEGIN { s = int(m * 60); if (m !~ /^[0-9]*\.?[0-9]+$/ || s < 1) exit 1; print s }') || {
    echo "usage: scripts/fuzz.sh [MINUTES per target]" >&2
    exit 2
  }
else
  seconds=10
fi

BUILD=${COMMONKIT_FUZZ_BUILD:-$ROOT/build/fuzz}
# ccache when present; the fuzz build is a separate tree that a warm cache
# makes cheap.
launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
# -O1 with line tables only: quick to build, and reports still name lines.
CC=clang CXX=clang++ configure "$BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" \
  -DCMAKE_CXX_FLAGS_RELWITHDEBINFO="-O1 -gline-tables-only -DNDEBUG" \
  -DCOMMONKIT_BUILD_FUZZERS=ON -DCOMMONKIT_BUILD_TESTS=OFF -DCOMMONKIT_BUILD_BENCHMARKS=OFF \
  -DCOMMONKIT_BUILD_TOOLS=OFF

targets=()
for dir in "$ROOT"/fuzz/corpus/*/; do
  targets+=("$(basename "$dir")")
done
cmake --build "$BUILD" -j "$JOBS" --target "${targets[@]/%/_fuzz}"

RUN="$BUILD/run"
rm -rf "$RUN"
mkdir -p "$RUN"

# run_target NAME: one target for the chosen time; its output goes to the log.
run_target() {
  local name=$1
  local extra=()
  local dict
  for dict in "$ROOT"/fuzz/*Fuzz.dict; do
    local stem
    stem=$(basename "$dict" Fuzz.dict)
    [ "${stem,,}" = "$name" ] && extra+=(-dict="$dict")
  done
  mkdir -p "$RUN/corpus/$name" "$RUN/artifacts/$name"
  cp "$ROOT/fuzz/corpus/$name"/* "$RUN/corpus/$name/"
  if ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1 \
     LSAN_OPTIONS=suppressions="$ROOT/scripts/lsan.supp":print_suppressions=0 \
     "$BUILD/fuzz/${name}_fuzz" "$RUN/corpus/$name" "${extra[@]}" \
       -max_total_time="$seconds" -timeout=1 -rss_limit_mb=2048 -print_final_stats=1 \
       -artifact_prefix="$RUN/artifacts/$name/" > "$RUN/$name.log" 2>&1; then
    echo "fuzz $name: $(grep -m1 '^stat::number_of_executed_units' "$RUN/$name.log" | awk '{print $2}') runs, nothing found"
  else
    echo "fuzz $name: FAILED, see $RUN/$name.log and $RUN/artifacts/$name/"
    grep -m3 -E '^==[0-9]+==ERROR|^SUMMARY|Test unit written' "$RUN/$name.log" || tail -5 "$RUN/$name.log"
    return 1
  fi
}
export -f run_target
export ROOT BUILD RUN seconds

echo "fuzzing ${#targets[@]} targets, ${seconds}s each, $JOBS at a time"
if ! printf '%s\n' "${targets[@]}" | xargs -P "$JOBS" -I{} bash -c 'run_target "$1"' _ {}; then
  echo "fuzzing found a failure" >&2
  exit 1
fi
echo "fuzzing: all ${#targets[@]} targets ran ${seconds}s each without a finding"
