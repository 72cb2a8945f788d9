#!/usr/bin/env bash
# Builds the release benchmarks, runs the rows of docs/performance.md with
# JSON output and writes the table there (scripts/bench_table.py).
#
#   scripts/bench.sh                 # a 4 MB action log for the read rows
#   scripts/bench.sh --log-mb 50     # the size the reader is meant for
#   scripts/bench.sh --no-build      # reuse build/bench as it is
#
# Each row's peer runs in the same program, on the same data, in the same
# run, so a ratio holds on a busy machine better than either time does.
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

LOG_MB=4
BUILD=1
MIN_TIME=${COMMONKIT_BENCH_MIN_TIME:-0.3}
REPETITIONS=${COMMONKIT_BENCH_REPETITIONS:-3}
while [ $# -gt 0 ]; do
  case $1 in
    --log-mb) LOG_MB=$2; shift 2 ;;
    --no-build) BUILD=0; shift ;;
    *) echo "usage: $0 [--log-mb N] [--no-build]" >&2; exit 2 ;;
  esac
done

DIR="$ROOT/build/bench"
OUT="$DIR/results"
if [ "$BUILD" = 1 ]; then
  configure "$DIR" -DCMAKE_BUILD_TYPE=Release -DCOMMONKIT_BUILD_TESTS=OFF \
    -DCOMMONKIT_BUILD_TOOLS=OFF -DCOMMONKIT_BUILD_BENCHMARKS=ON
  cmake --build "$DIR" -j "$JOBS" --target logging_bench expressions_bench \
    container_bench crypto_bench hashing_bench
fi
rm -rf "$OUT"
mkdir -p "$OUT"

# run NAME FILTER: one benchmark program, only the rows of the table.
run() {
  local name=$1 filter=$2
  echo "running $name ($filter)"
  QT_QPA_PLATFORM=offscreen COMMONKIT_BENCH_LOG_MB=$LOG_MB "$DIR/bench/${name}_bench" \
    --benchmark_filter="$filter" --benchmark_min_time="$MIN_TIME" \
    --benchmark_repetitions="$REPETITIONS" --benchmark_report_aggregates_only=true \
    --benchmark_out="$OUT/$name.json" --benchmark_out_format=json >/dev/null
}

run logging 'BM_(ReadEntries|ActionLogReadLog|RawXmlScan|ActionLogAppend|QFileAppendPeer)$'
run expressions 'BM_Filter(OverPropertySets|SqlitePeer)$'
run container 'BM_(JsonParser|QJsonDocumentParse|PlainFileWriteRead|ContainerWriteRead)'
run crypto 'BM_(AesStreamDevice(Write|Read)|RawEvpGcm(Seal|Open))$'
run hashing 'BM_(CryptR|SystemCryptPeer)$'

python3 "$ROOT/scripts/bench_table.py" --results "$OUT" --log-mb "$LOG_MB" \
  --doc "$ROOT/docs/performance.md"
