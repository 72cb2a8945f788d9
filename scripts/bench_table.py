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

CONTAINER = ("payload:{mb} of log-like text, written through the container and read back in 1 MiB "
             "blocks; peer: SHA-256{work} over memory buffers and back")
LOG = "log:{mb} live log, {entries} entries"

# (row, ours, peer, data, target); names are the benchmarks' run names.
ROWS = [
    ("Action log read: `XMLLogReader::readNextLogEntry` loop vs bare `QXmlStreamReader`", "BM_ReadEntries",
     "BM_RawXmlScan", LOG, 0.5),
    ("Action log read: `ActionLog::readLog` vs bare `QXmlStreamReader`", "BM_ActionLogReadLog", "BM_RawXmlScan",
     LOG, 0.5),
    ("Action log append: `ActionLog::log` (flush per entry) vs `QFile::write` + `flush`", "BM_ActionLogAppend",
     "BM_QFileAppendPeer", "the same entry bytes, one entry per call", 0.5),
    ("Filter over 100,000 `PropertySet`s vs SQLite prepared statement", "BM_FilterOverPropertySets",
     "BM_FilterSqlitePeer", "`{label}`; in-memory table of the same rows", 0.5),
    ("JSON parse: `json::JsonParser` vs `QJsonDocument::fromJson`", "BM_JsonParser/0", "BM_QJsonDocumentParse/0",
     "settings-like document, 4000 objects, about 1 MB", 0.8),
    ("JSON parse: `json::JsonParser` vs `QJsonDocument::fromJson`", "BM_JsonParser/1", "BM_QJsonDocumentParse/1",
     "one object of 50,000 members, about 1 MB", 0.8),
    ("JSON parse, for comparison: `nlohmann::ordered_json::parse` (the tree `json::Variant` holds) vs "
     "`QJsonDocument::fromJson`", "BM_NlohmannParse/0", "BM_QJsonDocumentParse/0", "settings-like document, 4000 objects, about 1 MB", None),
    ("JSON print: `json::JsonPrinter` vs `QJsonDocument::toJson`", "BM_JsonPrinter", "BM_QJsonDocumentPrint",
     "the settings-like document, indented", 0.8),
    ("Container, stored", "BM_ContainerWriteRead/0/0/0/iterations:1", "BM_ContainerPeer/0/0/0/iterations:1",
     CONTAINER.replace("{work}", ""), 0.8),
    ("Container, encrypted", "BM_ContainerWriteRead/1/0/0/iterations:1", "BM_ContainerPeer/1/0/0/iterations:1",
     CONTAINER.replace("{work}", ", AES-256-GCM in 64 KiB chunks"), 0.8),
    ("Container, compressed", "BM_ContainerWriteRead/0/1/0/iterations:1", "BM_ContainerPeer/0/1/0/iterations:1",
     CONTAINER.replace("{work}", ", zlib level 1"), 0.8),
    ("Container, compressed, encrypted, signed", "BM_ContainerWriteRead/1/1/1/iterations:1",
     "BM_ContainerPeer/1/1/1/iterations:1",
     CONTAINER.replace("{work}", ", zlib level 1, AES-256-GCM, RSA-2048 signature of the SHA-256"), 0.8),
    ("AES stream device write vs raw EVP seal", "BM_AesStreamDeviceWrite/16384", "BM_RawEvpGcmSeal",
     "8 MiB random, AES-256-GCM in 64 KiB chunks, written in 16 KiB pieces", 0.9),
    ("AES stream device write vs raw EVP seal", "BM_AesStreamDeviceWrite/1048576", "BM_RawEvpGcmSeal",
     "the same, written in 1 MiB pieces", 0.9),
    ("AES stream device read vs raw EVP open", "BM_AesStreamDeviceRead/16384", "BM_RawEvpGcmOpen",
     "8 MiB random, AES-256-GCM in 64 KiB chunks, read in 16 KiB pieces", 0.9),
    ("AES stream device read vs raw EVP open", "BM_AesStreamDeviceRead/1048576", "BM_RawEvpGcmOpen",
     "the same, read in 1 MiB pieces", 0.9),
    ("DES crypt: `Crypt::crypt_r` vs system `crypt_r`", "BM_CryptR", "BM_SystemCryptPeer",
     "256 passwords of 4-12 characters, varying salts", 1.0),
    ("Blowfish: `ko::BlowFish::blowFishEncode` vs one `BF_cfb64_encrypt`", "BM_BlowFishBulk",
     "BM_BlowFishBulkPeer", "64 MiB random bytes, the class's key and vector", 0.95),
    ("JSON settings write: JSON format vs `QSettings::IniFormat`", "BM_WriteJsonSettings", "BM_WriteIniSettings",
     "10,000 keys in 50 groups and an array, set and `sync()`ed into a new file", 1.0),
    ("JSON settings read: JSON format vs `QSettings::IniFormat`", "BM_ReadJsonSettings", "BM_ReadIniSettings",
     "the same 10,000 keys, `allKeys()` of a fresh `QSettings`", 1.0),
    ("JSON settings write, for comparison: a registered format whose writer drops the map vs `QSettings::IniFormat`",
     "BM_WriteNothingSettings", "BM_WriteIniSettings", "the same 10,000 keys: what `QSettings` spends around any "
     "registered format's writer", None),
    ("JSON settings read, for comparison: a registered format whose reader hands over the finished map vs "
     "`QSettings::IniFormat`", "BM_ReadNothingSettings", "BM_ReadIniSettings", "the same 10,000 keys: what "
     "`QSettings` spends around any registered format's reader", None),
]

# The memory rows (bench/MemoryBench.cpp): bytes, the peer's bytes, and a limit.
CONTAINER_LIMIT = 64 << 20

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


def data_text(template, run):
    entries = int(run.get("entries", 0))
    text = template.replace("log:{mb}", f"{run.get('file_bytes', 0) / (1 << 20):.1f} MiB")
    text = text.replace("payload:{mb}", f"{run.get('payload_bytes', 0) / (1 << 20):.0f} MiB")
    return text.format(entries=f"{entries:,}", label=run.get("label", ""))


def show_bytes(n):
    for unit, scale in (("GiB", 1 << 30), ("MiB", 1 << 20), ("KiB", 1 << 10)):
        if n >= scale:
            return f"{n / scale:.3g} {unit}"
    return f"{n:.3g} B"


def memory_table(folder):
    """The memory rows from memory.data, or None when the run made none."""
    try:
        with open(os.path.join(folder, "memory.data"), encoding="utf-8") as f:
            rows = json.load(f)["memory"]
    except (OSError, ValueError, KeyError):
        return None, []
    lines = ["| memory row | ours | peer | ratio | target | data |", "|---|---|---|---|---|---|"]
    missing = []
    for row in rows:
        name = row.get("name", "")
        if "ours" not in row:
            missing.append(name)
            continue
        ours = row["ours"]
        if name == "propertyset":
            ratio = row["peer"] / ours if ours else float("nan")
            lines.append(f"| Heap per property, `PropertySet` of {row['count']:,} int properties | "
                         f"{ours:.0f} B | {row['peer']:.0f} B | {ratio:.2f} | — | peer: a `QMap<QString, QVariant>` "
                         f"of the same names and values; glibc `mallinfo2` before and after |")
        elif name == "logread":
            ratio = row["peer"] / ours if ours else float("nan")
            lines.append(f"| Peak resident growth of `ActionLog::readLog` vs the heap its entries hold | "
                         f"{show_bytes(ours)} | {show_bytes(row['peer'])} | {ratio:.2f} | — | "
                         f"{row['file_bytes'] / (1 << 20):.1f} MiB log, {row['entries']:,} entries; VmHWM "
                         f"growth in a fresh process, heap held after reading |")
        elif name.startswith("container/"):
            over = ours >= CONTAINER_LIMIT or not row.get("ok", False)
            mark = " (above)" if ours >= CONTAINER_LIMIT else ""
            if not row.get("ok", False):
                mark += " (did not read back)"
            lines.append(f"| Peak resident memory, seal and extract through `ko::EncryptedFile` | "
                         f"{show_bytes(ours)}{mark} | — | — | < 64 MiB | "
                         f"{row['payload_bytes'] / (1 << 20):.0f} MiB generated block by block, encrypted, zlib "
                         f"level 1, signed; the whole process's VmHWM ({show_bytes(row['baseline'])} before "
                         f"the work) |")
            if over:
                missing.append(name + " over its limit")
    return "\n".join(lines) + "\n", missing


def table(runs, contexts, seconds):
    lines = ["| row | ours | peer | ratio | target | data |", "|---|---|---|---|---|---|"]
    missing = []
    for row, ours, peer, data, target in ROWS:
        if ours not in runs or peer not in runs:
            missing.append(row)
            continue
        mine, theirs = nanoseconds(runs[ours]), nanoseconds(runs[peer])
        ratio = theirs / mine if mine > 0 else float("nan")
        shown = f"{ratio:.2f}" if ratio >= 0.1 else f"{ratio:.2g}"
        # Judged on the ratio as shown: 0.499 prints as 0.50 and is at 0.5.
        mark = "" if target is None or float(shown) >= target else " (below)"
        goal = "—" if target is None else f"≥ {target:g}"
        lines.append(f"| {row} | {show_time(mine)} | {show_time(theirs)} | {shown}{mark} | {goal} | "
                     f"{data_text(data, runs[ours])} |")
    date = next((c["date"] for c in contexts if "date" in c), datetime.datetime.now().isoformat())
    try:
        cpus = len(os.sched_getaffinity(0))
    except AttributeError:
        cpus = os.cpu_count()
    with open("/proc/loadavg", encoding="utf-8") as f:
        load_average = " ".join(f.read().split()[:3])
    took = f"; the script's run took {seconds // 60} min {seconds % 60} s" if seconds is not None else ""
    machine = (f"Machine: {cpus} CPUs (nproc), {cpu_model()}; run {date}; load average after the run "
               f"{load_average}{took}. Times are CPU time per iteration (the median of the repetitions, "
               f"one pass for the container rows); ratio = peer time / our time.")
    return "\n".join(lines) + "\n", machine + "\n", missing


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--results", required=True, help="folder of benchmark JSON files")
    parser.add_argument("--doc", required=True, help="the Markdown file to update")
    parser.add_argument("--seconds", type=int, help="how long the run took, for the machine line")
    args = parser.parse_args()

    runs, contexts = load(args.results)
    text, machine, missing = table(runs, contexts, args.seconds)
    memory, over = memory_table(args.results)
    if memory:
        text += "\n" + memory
    text += "\n" + machine
    missing += over
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
