#!/usr/bin/env bash
# Builds and runs the whole test suite:
#   1. the release build with all tests, the tool and the benchmarks;
#   2. the same tests under AddressSanitizer and UndefinedBehaviorSanitizer;
#   3. a consumer project outside the tree, built against the installed package;
#   4. the Debian packages (cpack), unpacked into a scratch root, checked, and
#      the consumer project built against that root;
#   5. the Windows platform sources, compiled with MinGW (objects only);
#   6. the API reference (Doxygen), which must build without a warning;
#   7. the tests that use threads under ThreadSanitizer;
#   8. every fuzz target briefly on its corpus.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

step() { printf '\n=== %s ===\n' "$*"; }

step "release build"
RELEASE="$ROOT/build/release"
configure "$RELEASE" -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$RELEASE" -j "$JOBS"
step "release tests"
ctest --test-dir "$RELEASE" --output-on-failure -j "$JOBS" --timeout 600

step "sanitizer build (ASan + UBSan)"
ASAN="$ROOT/build/asan"
configure "$ASAN" -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g" \
  -DCOMMONKIT_SANITIZE=ON -DCOMMONKIT_BUILD_BENCHMARKS=OFF
cmake --build "$ASAN" -j "$JOBS"
step "sanitizer tests"
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:strict_string_checks=1 \
LSAN_OPTIONS=suppressions="$ROOT/scripts/lsan.supp":print_suppressions=0 \
UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir "$ASAN" --output-on-failure -j "$JOBS" --timeout 900

step "installed package and consumer project"
PREFIX="$ROOT/build/install"
rm -rf "$PREFIX" "$ROOT/build/consumer"
cmake --install "$RELEASE" --prefix "$PREFIX" >/dev/null
cmake -S "$ROOT/tests/consumer" -B "$ROOT/build/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$PREFIX" >/dev/null
cmake --build "$ROOT/build/consumer" -j "$JOBS"
"$ROOT/build/consumer/consumer"
PKG_CONFIG_PATH="$PREFIX/lib/pkgconfig" pkg-config --cflags --libs CommonKit >/dev/null
echo "pkg-config: CommonKit $(PKG_CONFIG_PATH="$PREFIX/lib/pkgconfig" pkg-config --modversion CommonKit)"

# Debian packages from the release tree, unpacked (not installed) into a
# scratch root: their control fields and contents, then the consumer project
# built against the root, which the CMake package must find relocated there.
step "Debian packages and consumer project"
deb_start=$SECONDS
DEBS="$ROOT/build/packages"
DEBROOT="$DEBS/root"
rm -rf "$DEBS" "$ROOT/build/consumer-deb"
if ! (cd "$RELEASE" && cpack -G DEB -B "$DEBS" >"$ROOT/build/cpack.log" 2>&1); then
  cat "$ROOT/build/cpack.log" >&2
  exit 1
fi
bash "$ROOT/scripts/check-packages.sh" "$DEBS" "$DEBROOT"
cmake -S "$ROOT/tests/consumer" -B "$ROOT/build/consumer-deb" -G Ninja \
  -DCMAKE_PREFIX_PATH="$DEBROOT/usr" >/dev/null
found=$(sed -n 's/^CommonKit_DIR:PATH=//p' "$ROOT/build/consumer-deb/CMakeCache.txt")
case "$found" in
  "$DEBROOT"/usr/*) ;;
  *) echo "consumer found CommonKit at '$found', not under $DEBROOT" >&2; exit 1 ;;
esac
cmake --build "$ROOT/build/consumer-deb" -j "$JOBS"
if ! grep -q "libCommonKit.so.* => $DEBROOT/usr/lib/" <<<"$(ldd "$ROOT/build/consumer-deb/consumer")"; then
  echo "the consumer does not load libCommonKit from $DEBROOT" >&2
  exit 1
fi
"$ROOT/build/consumer-deb/consumer"
echo "Debian packages: $((SECONDS - deb_start)) s"

step "Windows platform sources (MinGW, objects only)"
bash "$ROOT/scripts/check-windows.sh"

step "API reference (Doxygen, no warnings)"
bash "$ROOT/scripts/apidoc.sh"

step "ThreadSanitizer build (the tests that use threads)"
TSAN="$ROOT/build/tsan"
configure "$TSAN" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCOMMONKIT_TSAN=ON -DCOMMONKIT_BUILD_BENCHMARKS=OFF
cmake --build "$TSAN" -j "$JOBS" --target core_tests properties_tests expressions_tests logging_tests
step "ThreadSanitizer tests"
TSAN_OPTIONS="halt_on_error=1 second_deadlock_stack=1 suppressions=$ROOT/scripts/tsan.supp" \
  ctest --test-dir "$TSAN" --output-on-failure -j "$JOBS" --timeout 900 \
  -R '^(LogEntryFactoryThreads|ExpressionThreads|PropertySetThreads|Mutex)\.|^ActionLogStress\.FourThreads|^Log\.LinesFromManyThreads|^IntrusiveString\.CopiesShareOneBufferAcrossThreads'

# Fuzz stage: every libFuzzer target briefly on its committed corpus
# (scripts/fuzz.sh MINUTES runs them longer).
step "fuzz targets (libFuzzer, 10 seconds each)"
bash "$ROOT/scripts/fuzz.sh"

echo
echo "All test stages passed."
