#!/usr/bin/env bash
# Builds the release benchmarks, runs the rows of docs/performance.md with
# JSON output and writes its tables (scripts/bench_table.py).
#
#   scripts/bench.sh                     # a 50 MB action log, 256 MiB containers
#   scripts/bench.sh --log-mb 4          # a smaller log for the read rows
#   scripts/bench.sh --container-mb 64   # smaller container payloads
#   scripts/bench.sh --no-build          # reuse build/bench as it is
#
# The data is generated on the fly under build/bench/tmp and removed after.
# Each row's peer runs in the same program, on the same data, in the same
# run, so a ratio holds on a busy machine better than either time does.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

LOG_MB=50
CONTAINER_MB=256
BUILD=1
MIN_TIME=${COMMONKIT_BENCH_MIN_TIME:-0.3}
REPETITIONS=${COMMONKIT_BENCH_REPETITIONS:-3}
while [ $# -gt 0 ]; do
  case $1 in
    --log-mb) LOG_MB=$2; shift 2 ;;
    --container-mb) CONTAINER_MB=$2; shift 2 ;;
    --no-build) BUILD=0; shift ;;
    *) echo "usage: $0 [--log-mb N] [--container-mb N] [--no-build]" >&2; exit 2 ;;
  esac
done

DIR="$ROOT/build/bench"
OUT="$DIR/results"
if [ "$BUILD" = 1 ]; then
  configure "$DIR" -DCMAKE_BUILD_TYPE=Release -DCOMMONKIT_BUILD_TESTS=OFF \
    -DCOMMONKIT_BUILD_TOOLS=OFF -DCOMMONKIT_BUILD_BENCHMARKS=ON
  cmake --build "$DIR" -j "$JOBS" --target logging_bench expressions_bench \
    container_bench crypto_bench hashing_bench jsonsettings_bench memory_bench
fi
START=$SECONDS
rm -rf "$OUT" "$DIR/tmp"
mkdir -p "$OUT" "$DIR/tmp"
export COMMONKIT_BENCH_TMP="$DIR/tmp" COMMONKIT_BENCH_LOG_MB="$LOG_MB" \
  COMMONKIT_BENCH_CONTAINER_MB="$CONTAINER_MB" QT_QPA_PLATFORM=offscreen
trap 'rm -rf "$DIR/tmp"' EXIT

# run NAME FILTER [REPETITIONS]: one benchmark program, only the rows of the
# table, its results as NAME.json.
run() {
  local name=$1 filter=$2 repetitions=${3:-$REPETITIONS}
  echo "running $name ($filter)"
  "$DIR/bench/${name%%-*}_bench" \
    --benchmark_filter="$filter" --benchmark_min_time="$MIN_TIME" \
    --benchmark_repetitions="$repetitions" --benchmark_report_aggregates_only=true \
    --benchmark_out="$OUT/$name.json" --benchmark_out_format=json >/dev/null
}

run logging 'BM_(ReadEntries|ActionLogReadLog|RawXmlScan|ActionLogAppend|QFileAppendPeer)$'
run expressions 'BM_Filter(OverPropertySets|SqlitePeer)$'
run container 'BM_(JsonParser/[01]|NlohmannParse/0|QJsonDocumentParse/[01]|JsonPrinter|QJsonDocumentPrint)$'
# One pass each: a row moves hundreds of megabytes, enough to time.
run container-files 'BM_Container(WriteRead|Peer)' 1
run crypto 'BM_(AesStreamDevice(Write|Read)/[0-9]+|RawEvpGcm(Seal|Open))$'
run hashing 'BM_(CryptR|SystemCryptPeer|BlowFishBulk|BlowFishBulkPeer)$'
run jsonsettings 'BM_(Write|Read)(Json|Ini|Nothing)Settings$'
echo "running memory rows (fresh processes)"
"$DIR/bench/memory_bench" --out "$OUT/memory.data" --log-mb "$LOG_MB" \
  --container-mb "$CONTAINER_MB,1024"

python3 "$ROOT/scripts/bench_table.py" --results "$OUT" --seconds $((SECONDS - START)) \
  --doc "$ROOT/docs/performance.md"
