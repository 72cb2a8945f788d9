#!/usr/bin/env bash
# Installs the Debian packages CommonKit needs to build, test, benchmark and
# fuzz. Idempotent: when every package is present it changes nothing.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config git
  qtbase5-dev qttools5-dev qttools5-dev-tools
  libboost-dev libboost-iostreams-dev libboost-date-time-dev libboost-system-dev
  libssl-dev openssl zlib1g-dev
  nlohmann-json3-dev libvalijson-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  libsqlite3-dev libcrypt-dev libxml2-utils
  clang libclang-rt-dev doxygen dpkg-dev
  g++-mingw-w64-x86-64
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "bootstrap: installing ${missing[*]}" >&2
if [ "$(id -u)" -eq 0 ]; then
  sudo=()
else
  sudo=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
