#!/usr/bin/env bash
# Checks the Debian packages that `cpack -G DEB` wrote into DIR and unpacks
# them into ROOT (dpkg -x, nothing is installed):
#   scripts/check-packages.sh DIR ROOT
# Control fields: the runtime package's dependencies come from dpkg-shlibdeps
# (Qt, libcrypto, zlib, ...); the -dev package depends on the runtime package
# of the very same version and on the -dev packages a consumer compiles
# against; the tools package on the runtime package. Contents: the runtime
# package holds only the library and its SONAME link, no file is in two
# packages, the links resolve inside ROOT, the pkg-config file points into
# ROOT, and the unpacked tool runs.
set -euo pipefail
DIR=$(realpath "$1")
ROOT=$(realpath -m "$2")
SRC=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

fail() {
  echo "check-packages: $*" >&2
  exit 1
}

VERSION=$(sed -n 's/^project(CommonKit VERSION \([0-9.]*\).*/\1/p' "$SRC/CMakeLists.txt")
SOVERSION=${VERSION%%.*}
RUNTIME=libcommonkit$SOVERSION

deb_of() {
  local files=("$DIR"/"$1"_*.deb)
  [ ${#files[@]} -eq 1 ] && [ -f "${files[0]}" ] || fail "expected one $1 package in $DIR"
  echo "${files[0]}"
}
runtime_deb=$(deb_of "$RUNTIME")
dev_deb=$(deb_of libcommonkit-dev)
tools_deb=$(deb_of commonkit-tools)

field() { dpkg-deb -f "$1" "$2"; }
# has_dep DEB PACKAGE [VERSION]: the Depends field names PACKAGE (with exactly
# "(= VERSION)" when given).
has_dep() {
  local depends
  depends=$(field "$1" Depends)
  if [ $# -eq 3 ]; then
    grep -qE "(^|, )$2 \(= $3\)(,|$)" <<<"$depends"
  else
    grep -qE "(^|, )$2( \([^)]*\))?(,|$)" <<<"$depends"
  fi || fail "$(basename "$1"): Depends '$depends' lacks $2${3:+ (= $3)}"
}

debversion=$(field "$runtime_deb" Version)
case "$debversion" in
  "$VERSION"-*) ;;
  *) fail "$RUNTIME has version '$debversion', expected $VERSION-<release>" ;;
esac
arch=$(dpkg --print-architecture)
for deb in "$runtime_deb" "$dev_deb" "$tools_deb"; do
  [ "$(field "$deb" Version)" = "$debversion" ] || fail "$(basename "$deb"): version differs from $debversion"
  [ "$(field "$deb" Architecture)" = "$arch" ] || fail "$(basename "$deb"): not for $arch"
  [ -n "$(field "$deb" Maintainer)" ] && [ -n "$(field "$deb" Section)" ] || fail "$(basename "$deb"): no maintainer or section"
  echo "$(field "$deb" Package): Depends: $(field "$deb" Depends)"
done
for lib in libqt5core5a libssl3 zlib1g libstdc\\+\\+6 libc6; do
  has_dep "$runtime_deb" "$lib"
done
if grep -q -- '-dev\b' <<<"$(field "$runtime_deb" Depends)"; then
  fail "$RUNTIME depends on a -dev package"
fi
has_dep "$dev_deb" "$RUNTIME" "$debversion"
has_dep "$dev_deb" qtbase5-dev
has_dep "$dev_deb" libboost-dev
has_dep "$tools_deb" "$RUNTIME" "$debversion"
has_dep "$tools_deb" libqt5core5a
shlibs=$(dpkg-deb --ctrl-tarfile "$runtime_deb" | tar -xO ./shlibs)
[ "$shlibs" = "libCommonKit $SOVERSION $RUNTIME (>= $debversion)" ] ||
  fail "$RUNTIME has the shlibs file '$shlibs'"

# Files (not directories) of a package, without the leading "./".
files_of() { dpkg-deb -c "$1" | awk '$1 !~ /^d/ { print $6 }' | sed 's|^\./||'; }
runtime_files=$(files_of "$runtime_deb" | sort)
expected="usr/lib/libCommonKit.so.$SOVERSION
usr/lib/libCommonKit.so.$VERSION"
[ "$runtime_files" = "$expected" ] || fail "$RUNTIME holds
$runtime_files
expected
$expected"
dev_files=$(files_of "$dev_deb")
for path in usr/lib/libCommonKit.so usr/lib/pkgconfig/CommonKit.pc \
            usr/lib/cmake/CommonKit/CommonKitConfig.cmake \
            usr/lib/cmake/CommonKit/CommonKitConfigVersion.cmake \
            usr/lib/cmake/CommonKit/CommonKitTargets.cmake \
            usr/include/CommonKit/support/core/Export.h; do
  grep -qx "$path" <<<"$dev_files" || fail "libcommonkit-dev lacks $path"
done
[ "$(files_of "$tools_deb")" = "usr/bin/commonkit" ] || fail "commonkit-tools holds more than usr/bin/commonkit"
duplicates=$(for deb in "$runtime_deb" "$dev_deb" "$tools_deb"; do files_of "$deb"; done | sort | uniq -d)
[ -z "$duplicates" ] || fail "files in two packages: $duplicates"

rm -rf "$ROOT"
mkdir -p "$ROOT"
for deb in "$runtime_deb" "$dev_deb" "$tools_deb"; do
  dpkg -x "$deb" "$ROOT"
done
[ "$(readlink -f "$ROOT/usr/lib/libCommonKit.so")" = "$ROOT/usr/lib/libCommonKit.so.$VERSION" ] ||
  fail "usr/lib/libCommonKit.so does not lead to libCommonKit.so.$VERSION"
soname=$(objdump -p "$ROOT/usr/lib/libCommonKit.so.$VERSION" | awk '$1 == "SONAME" { print $2 }')
[ "$soname" = "libCommonKit.so.$SOVERSION" ] || fail "SONAME is '$soname'"
includedir=$(PKG_CONFIG_PATH="$ROOT/usr/lib/pkgconfig" pkg-config --variable=includedir CommonKit)
[ "$(realpath -m "$includedir")" = "$ROOT/usr/include" ] || fail "pkg-config includedir '$includedir' is not in $ROOT"
tool_version=$(LD_LIBRARY_PATH="$ROOT/usr/lib" "$ROOT/usr/bin/commonkit" --version)
grep -q "$VERSION" <<<"$tool_version" || fail "commonkit --version printed '$tool_version'"
echo "check-packages: $(basename "$runtime_deb"), $(basename "$dev_deb"), $(basename "$tools_deb") unpacked into $ROOT"
