"""Writes docs/benchmarks.md and the data of its chart from one run of the benchmarks.

usage: report.py BENCHMARK_CSV COST_CSV MEMORY_BYTES MACHINE DOCUMENT CHART_DATA
"""

import csv
import statistics
import sys

csv_file, cost_file, memory, machine, document, chart_data = sys.argv[1:]

runs = {}  # of each benchmark: its repetitions
with open(csv_file) as file:
    lines = file.readlines()
start = next(i for i, line in enumerate(lines) if line.startswith("name,"))
for row in csv.DictReader(lines[start:]):
    name = row["name"]
    if row["error_occurred"] or name.endswith(("_mean", "_median", "_stddev", "_cv")):
        continue
    runs.setdefault(name, []).append(float(row["cpu_time"]))
median = {name: statistics.median(times) for name, times in runs.items()}

costs = {}
with open(cost_file) as file:
    for measure, library, value in csv.reader(file):
        costs[measure, library] = float(value)


def libraries(measure):
    seen = []
    for name in median:
        library = name.split("/")[1]
        if name.startswith(measure + "/") and library not in seen:
            seen.append(library)
    return sorted(seen, key=str.lower)


def sizes_of(measure):
    seen = []
    for name in median:
        sizes = "/".join(name.split("/")[2:])
        if name.startswith(measure + "/") and sizes not in seen:
            seen.append(sizes)
    return sorted(seen, key=lambda sizes: [int(size) for size in sizes.split("/")])


def ratio(measure, library, sizes):
    peer = median.get(f"{measure}/{library}/{sizes}")
    return "" if peer is None else f"{median[f'{measure}/norq/{sizes}'] / peer:.3f}"


def table(measure, what):
    peers = [library for library in libraries(measure) if library != "norq"]
    rows = [f"| {what} | " + " | ".join(peers) + " |", "|---" * (len(peers) + 1) + "|"]
    for sizes in sizes_of(measure):
        cells = [ratio(measure, library, sizes) for library in peers]
        rows.append(f"| {sizes.replace('/', ', ')} | " + " | ".join(cells) + " |")
    return "\n".join(rows)


def growth(library, n):
    costs = [median[f"growth/{library}/{size}/{size}"] / size for size in (n, 1000)]
    return f"{costs[0] / costs[1]:.2f}"


# The texts of 10000 options: key and name alike, and the help.
key_bytes, name_bytes, help_bytes, memory_bytes = map(int, memory.split(","))
texts = key_bytes + name_bytes + help_bytes

with open(document, "w") as out:
    out.write(f"""# Benchmarks

All figures come from one run of `./scripts/bench.sh`, on: {machine}.

![The time of a cycle by number of options](cycle.svg)

## Method

Every library does the same work in the same process, built by g++ with `-O3`; what it reads back is
compared with what was given. Times are processor times. Benchmarks are run in random order, seven
times each, and a ratio is that of the medians: norq's time divided by the peer's, so that below 1
norq is the faster. Peers come from Debian's packages.

## Cycle

Make a parser, register N options, parse A arguments, read their values back.

{table("cycle", "N, A")}

## Growth

The cost of a cycle for each option and argument, in relation to that at 1000 of each. Beside norq
stands a bare `std::unordered_map` of records with name, help text and value, filled, found by name
twice and destroyed: the least that such work asks of memory.

| N = A | norq | bare table | norq's time divided by the bare table's |
|---|---|---|---|
""")
    for sizes in sizes_of("growth"):
        n = int(sizes.split("/")[0])
        cells = [str(n), growth("norq", n), growth("std", n), ratio("growth", "std", sizes)]
        out.write("| " + " | ".join(cells) + " |\n")
    out.write(f"""
Beyond 10000 the options no longer fit into the processor's caches, and each step of a lookup waits
for memory: bucket, node and key lie where scattered names lead.

## Configuration files

A file of L lines `name = value` for N options. The peer keeps its options in a hash map.

{table("config", "N, L")}

## Help

List N options, aligned, into a string stream.

{table("help", "N")}

## Containers and sort

`hsh::HashMap` and `std::unordered_map` (insert all keys, find all keys), `norq::sort` and
`std::sort` (by name), for N options.

| N | insert | find | sort |
|---|---|---|---|
""")
    for sizes in sizes_of("sort"):
        cells = [ratio(measure, "std", sizes) for measure in ("insert", "find", "sort")]
        out.write(f"| {sizes} | " + " | ".join(cells) + " |\n")
    out.write("""
## Build cost

The time to compile one file that includes a library and uses it, in relation to a file that
includes `<string> <vector> <map> <sstream>` alone:

| library | ratio |
|---|---|
""")
    compiled = {library: cost for (what, library), cost in costs.items() if what == "compile"}
    for library, cost in sorted(compiled.items(), key=lambda item: item[1]):
        if library != "std":
            out.write(f"| {library} | {cost / compiled['std']:.2f} |\n")
    out.write(f"""
A host with three options, norq linked statically, unused sections left out, stripped:
{costs["size", "norq"]:.0f} bytes.

## Memory

10000 options take {memory_bytes} bytes of memory. Their keys, names and help texts have {texts}
bytes; 1.5 times that and 200 bytes for each option make {int(1.5 * texts + 200 * 10000)}.
""")

with open(chart_data, "w") as out:
    names = sorted(libraries("cycle"), key=lambda library: library != "norq")  # drawn bold
    out.write("options " + " ".join(names) + "\n")
    for n in (10, 50, 100, 1000, 10000):
        arguments = {10: 5, 50: 10, 100: 100, 1000: 1000, 10000: 10000}[n]
        times = [median.get(f"cycle/{name}/{n}/{arguments}", "NaN") for name in names]
        out.write(f"{n} " + " ".join(map(str, times)) + "\n")
