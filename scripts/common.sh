# Shared by the build scripts: the repository root, a job count, and a cmake
# configure step that installs missing packages first.
set -euo pipefail
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
JOBS=${COMMONKIT_JOBS:-$(nproc 2>/dev/null || echo 2)}

bash "$ROOT/scripts/bootstrap.sh"

# configure BUILD_DIR [cmake options...]
configure() {
  local dir=$1
  shift
  cmake -S "$ROOT" -B "$dir" -G Ninja -Wno-dev "$@" >/dev/null
}
