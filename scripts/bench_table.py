#!/usr/bin/env python3
"""Writes the table of docs/performance.md from the benchmark results.

scripts/bench.sh runs the benchmark programs with JSON output into one
folder; this reads every *.json there and puts, for each row, our time, the
peer's time (run by the same program in the same run on the same data), the
ratio peer/ours (1.0 = as fast as the peer, higher is better), the target,
the data and the machine, between the table markers of the document.
"""

import argparse
import datetime
import glob
import json
import os
import re
import sys

BEGIN = "<!-- bench-table:begin -->"
END = "<!-- bench-table:end -->"

CONTAINER = "8 MiB text-like payload, write then read back"

# (row, ours, peer, data, target); names are the benchmarks' run names.
ROWS = [
    ("Action log read: `XMLLogReader::readNextLogEntry` loop", "BM_ReadEntries", "BM_RawXmlScan",
     "log:{mb} live log, {entries} entries", 0.5),
    ("Action log read: `ActionLog::readLog`", "BM_ActionLogReadLog", "BM_RawXmlScan",
     "log:{mb} live log, {entries} entries", 0.5),
    ("Action log append: `ActionLog::log`, flush per entry", "BM_ActionLogAppend", "BM_QFileAppendPeer",
     "the same entry bytes, `QFile::write` + `flush` per entry", 0.5),
    ("Filter over 100,000 `PropertySet` rows", "BM_FilterOverPropertySets", "BM_FilterSqlitePeer",
     "`{label}`; SQLite prepared statement, in-memory table", 0.5),
    ("JSON parse vs `QJsonDocument`", "BM_JsonParser/0", "BM_QJsonDocumentParse/0",
     "settings-like document, 4000 objects, about 1 MB", 0.8),
    ("JSON parse vs `QJsonDocument`", "BM_JsonParser/1", "BM_QJsonDocumentParse/1",
     "one object of 50,000 members, about 1 MB", 0.8),
    ("AES stream device write vs raw EVP seal", "BM_AesStreamDeviceWrite", "BM_RawEvpGcmSeal",
     "8 MiB random, AES-256-GCM in 64 KiB chunks", 0.9),
    ("AES stream device read vs raw EVP open", "BM_AesStreamDeviceRead", "BM_RawEvpGcmOpen",
     "8 MiB random, AES-256-GCM in 64 KiB chunks", 0.9),
    ("DES crypt: `Crypt::crypt_r` vs system `crypt_r`", "BM_CryptR", "BM_SystemCryptPeer",
     "256 passwords of 4-12 characters, varying salts", 1.0),
    ("Container, plain", "BM_ContainerWriteRead/0/0/0", "BM_PlainFileWriteRead", CONTAINER, None),
    ("Container, signed (RSA 2048)", "BM_ContainerWriteRead/0/0/1", "BM_PlainFileWriteRead", CONTAINER, None),
    ("Container, encrypted", "BM_ContainerWriteRead/1/0/0", "BM_PlainFileWriteRead", CONTAINER, None),
    ("Container, compressed (level 1)", "BM_ContainerWriteRead/0/1/0", "BM_PlainFileWriteRead", CONTAINER, None),
    ("Container, encrypted, compressed (6), signed", "BM_ContainerWriteRead/1/6/1", "BM_PlainFileWriteRead",
     CONTAINER, None),
]

UNIT_NS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def load(folder):
    """Run name -> the median run (or the only run), and the contexts."""
    runs, contexts = {}, []
    for path in sorted(glob.glob(os.path.join(folder, "*.json"))):
        with open(path, encoding="utf-8") as f:
            data = json.load(f)
        contexts.append(data.get("context", {}))
        for b in data.get("benchmarks", []):
            name = b.get("run_name", b["name"])
            if b.get("run_type") == "aggregate":
                if b.get("aggregate_name") == "median":
                    runs[name] = b
            elif name not in runs:
                runs[name] = b
    return runs, contexts


def nanoseconds(run):
    return run["cpu_time"] * UNIT_NS[run.get("time_unit", "ns")]


def show_time(ns):
    for unit, scale in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if ns >= scale:
            return f"{ns / scale:.3g} {unit}"
    return f"{ns:.3g} ns"


def cpu_model():
    try:
        with open("/proc/cpuinfo", encoding="utf-8") as f:
            for line in f:
                if line.startswith("model name"):
                    return line.split(":", 1)[1].strip()
    except OSError:
        pass
    return "unknown CPU"


def data_text(template, run, log_mb):
    entries = int(run.get("entries", 0))
    size = run.get("file_bytes", 0) / (1 << 20)
    text = template.replace("log:{mb}", f"{size:.1f} MiB")
    return text.format(entries=f"{entries:,}", label=run.get("label", ""), mb=log_mb)


def table(runs, contexts, log_mb):
    lines = ["| row | ours | peer | ratio | target | data |", "|---|---|---|---|---|---|"]
    missing = []
    for row, ours, peer, data, target in ROWS:
        if ours not in runs or peer not in runs:
            missing.append(row)
            continue
        mine, theirs = nanoseconds(runs[ours]), nanoseconds(runs[peer])
        ratio = theirs / mine if mine > 0 else float("nan")
        mark = "" if target is None or ratio >= target else " (below)"
        goal = "—" if target is None else f"≥ {target:g}"
        shown = f"{ratio:.2f}" if ratio >= 0.1 else f"{ratio:.2g}"
        lines.append(f"| {row} | {show_time(mine)} | {show_time(theirs)} | {shown}{mark} | {goal} | "
                     f"{data_text(data, runs[ours], log_mb)} |")
    date = next((c["date"] for c in contexts if "date" in c), datetime.datetime.now().isoformat())
    try:
        cpus = len(os.sched_getaffinity(0))
    except AttributeError:
        cpus = os.cpu_count()
    with open("/proc/loadavg", encoding="utf-8") as f:
        load_average = " ".join(f.read().split()[:3])
    machine = (f"Machine: {cpus} CPUs (nproc), {cpu_model()}; run {date}; load average after the run "
               f"{load_average}. Times are CPU time per iteration (the median of the repetitions); "
               f"ratio = peer time / our time.")
    return "\n".join(lines) + "\n\n" + machine + "\n", missing


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--results", required=True, help="folder of benchmark JSON files")
    parser.add_argument("--doc", required=True, help="the Markdown file to update")
    parser.add_argument("--log-mb", type=int, default=4, help="the log size the run was given")
    args = parser.parse_args()

    runs, contexts = load(args.results)
    text, missing = table(runs, contexts, args.log_mb)
    try:
        with open(args.doc, encoding="utf-8") as f:
            doc = f.read()
    except FileNotFoundError:
        doc = f"# Performance\n\n{BEGIN}\n{END}\n"
    if BEGIN not in doc or END not in doc:
        sys.exit(f"{args.doc} has no {BEGIN} ... {END} markers")
    doc = re.sub(re.escape(BEGIN) + ".*?" + re.escape(END), lambda _: f"{BEGIN}\n{text}{END}", doc,
                 flags=re.S)
    with open(args.doc, "w", encoding="utf-8") as f:
        f.write(doc)
    print(text)
    if missing:
        sys.exit("no results for: " + ", ".join(missing))


if __name__ == "__main__":
    main()
