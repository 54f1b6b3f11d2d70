"""Writes docs/benchmarks.md and the data of its chart from one run of the benchmarks.

usage: report.py BENCHMARK_JSON COST_CSV MACHINE DOCUMENT CHART_DATA
"""

import csv
import json
import sys
import textwrap

results_file, cost_file, machine, document, chart_file = sys.argv[1:]
with open(results_file) as file:
    results = json.load(file)
times = {}  # medians by measure, (options, settings) and library
for run in results["benchmarks"]:
    if run.get("error_occurred"):
        sys.exit(f"{run['name']}: {run['error_message']}")
    if run.get("aggregate_name") == "median":
        measure, library, *sizes = run["run_name"].split("/")
        row = times.setdefault(measure, {}).setdefault(tuple(map(int, sizes)), {})
        row[library] = run["cpu_time"]
with open(cost_file) as file:
    costs = sorted(csv.reader(file), key=lambda cost: float(cost[2]))
size = {host: value for measure, host, value in costs if measure == "size"}
seconds = {library: float(value) for measure, library, value in costs if measure == "compile"}
text_bytes = int(results["context"]["text_bytes"])


def peers(measure):
    names = {library for row in times[measure].values() for library in row} - {"norq"}
    return sorted(names, key=lambda name: (name == "floor", name.lower()))


def ratio(measure, sizes, library):
    return f"{times[measure][sizes]['norq'] / times[measure][sizes][library]:.3f}"


def growth(library, n):
    each = [times["growth"][size, size][library] / size for size in (n, 1000)]
    return f"{each[0] / each[1]:.2f}"


def section(title, text, *table):
    out.write(f"\n## {title}\n\n{textwrap.fill(text, 100, break_on_hyphens=False)}\n")
    for i, cells in enumerate(table):
        out.write(("" if i else "\n") + f"| {' | '.join(map(str, cells))} |\n")
        out.write("" if i else "|---" * len(cells) + "|\n")


def ratios(title, text, measure, head):
    rows = []
    for sizes in sorted(times[measure]):
        cells = [ratio(measure, sizes, library) for library in peers(measure)]
        rows.append([", ".join(str(size) for size in sizes if size)] + cells)
    section(title, text, [head] + peers(measure), *rows)


with open(document, "w") as out:
    out.write("# Benchmarks\n\nAll figures come from one run of `./scripts/bench.sh` on "
              f"{machine}.\n\n![The time of a cycle by number of options](cycle.svg)\n")
    section("Method", "Every library does the same work in the same process, built by g++ with "
            "`-O3`, and must read back the same values. Option names are two or three words, such "
            "as `client_queue_limit`: 6 to 30 bytes, 16 to 18 on average. At least six of ten are "
            "longer than 15 bytes, the most that a `std::string` of libstdc++ stores without an "
            "allocation. Help texts have about 100 bytes. Times are processor times. Benchmarks "
            "run in random order, seven times each. A ratio is norq's median divided by the "
            "peer's: below 1, norq is faster. Peers come from Debian's packages.")
    ratios("Cycle", "Create a parser, register N options, parse A arguments, read their "
           "values. The floor is not a library: it only copies the key, name and help text of each "
           "option into a `std::vector` with reserved capacity and destroys the vector.",
           "cycle", "N, A")
    section("Growth", "The cost of a cycle per option and argument, relative to the cost at 1000 "
            "of each. The bare table shows the least memory access that this work needs: "
            "it fills a `std::unordered_map` with records of name, help text and value, finds each "
            "record twice by name and destroys the map. Beyond 10000, the options do not fit into "
            "the processor's caches, so each step of a lookup (bucket, node, key) waits for "
            "memory.",
            ["N = A", "norq", "bare table", "norq / bare table"],
            *([n, growth("norq", n), growth("std", n), ratio("growth", (n, n), "std")]
              for n, _ in sorted(times["growth"])))
    ratios("Configuration files", "A file of L lines `name = value` for N options. The program "
           "that uses inih stores its options in a hash map.", "config", "N, L")
    ratios("Help", "Print the help for N options, aligned, to a string stream.", "help", "N")
    section("Containers and sort", "`hsh::HashMap` and `std::unordered_map` (insert all keys, find "
            "all keys), `norq::sort` and `std::sort` (by name), for N options.",
            ["N", "insert", "find", "sort"],
            *([n, *(ratio(measure, (n, 0), "std") for measure in ("insert", "find", "sort"))]
              for n, _ in sorted(times["sort"])))
    section("Build cost", "A program with three options, linked statically with norq and stripped, "
            f"has {size['host']} bytes, or {size['host-gc-sections']} with `-Wl,--gc-sections`. "
            "The table shows the time to compile one file that includes a library and uses it, "
            "relative to a file that includes only `<string> <vector> <map> <sstream>`.",
            ["library", "ratio"],
            *([library, f"{seconds[library] / seconds['std']:.2f}"]
              for library in seconds if library != "std"))
    section("Memory", f"10000 options take {results['context']['parser_bytes']} bytes of memory. "
            f"Their keys, names and help texts have {text_bytes} bytes; 1.5 times that plus 200 "
            f"bytes per option is {int(1.5 * text_bytes) + 200 * 10000}.")

with open(chart_file, "w") as out:
    libraries = ["norq"] + peers("cycle")  # the chart draws the first one bold
    print("options", *libraries, file=out)
    # Of the sizes with the same number of options, the last has the most arguments.
    for n, row in {n: row for (n, _), row in sorted(times["cycle"].items())}.items():
        print(n, *(row[library] for library in libraries), file=out)
