#!/usr/bin/env bash
# Runs the test suite under valgrind's memcheck: each test executable once,
# with all its cases, and the processes it starts (the tool, the action log
# writer) traced as well. A run fails when memcheck reports an invalid
# access, a use of uninitialised memory or a definite leak, or when a test
# fails. It takes far longer than the plain suite: about half an hour on two
# cores after the build (the storage tests alone take some 14 minutes).
#
#   scripts/valgrind.sh                         every test executable
#   COMMONKIT_VALGRIND_TESTS='crypto|storage' scripts/valgrind.sh
#                                               only executables whose names match
#   scripts/valgrind.sh --gtest_filter='Crypt*' extra arguments go to each executable
#
# Reports: build/valgrind/memcheck/<executable>.<pid>.log, test output in
# build/valgrind/memcheck/<executable>.out.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

if ! command -v valgrind >/dev/null; then
  export DEBIAN_FRONTEND=noninteractive
  if [ "$(id -u)" -eq 0 ]; then sudo=(); else sudo=(sudo); fi
  "${sudo[@]}" apt-get update -qq
  "${sudo[@]}" apt-get install -y -qq --no-install-recommends valgrind >/dev/null
fi

BUILD="$ROOT/build/valgrind"
configure "$BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCOMMONKIT_BUILD_BENCHMARKS=OFF
cmake --build "$BUILD" -j "$JOBS"

LOGS="$BUILD/memcheck"
rm -rf "$LOGS"
mkdir -p "$LOGS"
export LOGS ROOT
export QT_QPA_PLATFORM=offscreen
# Code that PCRE compiles at run time has no symbols and confuses memcheck's
# tracking of defined bytes; QRegularExpression interprets instead.
export QT_ENABLE_REGEXP_JIT=0

memcheck() {
  local exe=$1
  shift
  local name
  name=$(basename "$exe")
  local start=$SECONDS
  (cd "$(dirname "$exe")" &&
    valgrind --error-exitcode=97 --leak-check=full --show-leak-kinds=definite \
      --errors-for-leak-kinds=definite --num-callers=40 \
      --trace-children=yes "--trace-children-skip=/usr/*,/bin/*" \
      --suppressions="$ROOT/scripts/valgrind.supp" \
      --log-file="$LOGS/$name.%p.log" "$exe" "$@" >"$LOGS/$name.out" 2>&1)
  local rc=$?
  echo "$name: exit $rc after $((SECONDS - start)) s"
  return $rc
}
export -f memcheck

mapfile -t executables < <(find "$BUILD/tests" -maxdepth 3 -type f -perm -u+x -name '*_tests' |
  grep -E "${COMMONKIT_VALGRIND_TESTS:-.}" | sort)
echo "memcheck: ${#executables[@]} test executables, $JOBS at a time"
status=0
printf '%s\0' "${executables[@]}" |
  xargs -0 -P "$JOBS" -I{} bash -c 'memcheck "$@"' _ {} "$@" || status=1

# Memcheck's own verdict, also for the children, whose exit codes the tests
# may not look at. (A child that a test kills on purpose leaves a log
# without a summary.)
if grep -l "ERROR SUMMARY: [1-9]" "$LOGS"/*.log >/dev/null; then
  echo "memcheck reported errors in:"
  grep -l "ERROR SUMMARY: [1-9]" "$LOGS"/*.log
  status=1
fi
if [ "$status" -eq 0 ]; then
  echo "memcheck: clean"
fi
exit "$status"
