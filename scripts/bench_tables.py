#!/usr/bin/env python3
"""Turns the JSON files of a benchmark run into Markdown tables: rack, variants, kernels beside their plain forms.

usage: bench_tables.py FOLDER
"""

import json
import pathlib
import sys

BLOCKS = (16, 64, 256, 1024)
RATES = (44100, 48000, 88200, 96000, 176400, 192000, 384000)
RACKS = ("empty", "preset0", "heaviest", "heaviest_muted")
FORMS = (("plain", "fast"), ("libm", "lanes"))


def read_run(folder):
    """Best time of each benchmark in ns: per sample where it counts samples, else per iteration."""
    best, context = {}, {}
    scale = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}
    for path in sorted(folder.glob("*.json")):
        run = json.loads(path.read_text())
        context = run["context"]
        for row in run["benchmarks"]:
            if row.get("run_type") == "aggregate" or row.get("error_occurred"):
                continue
            ns = row["per_sample"] * 1e9 if "per_sample" in row else row["real_time"] * scale[row["time_unit"]]
            name = row["run_name"].split("/min_time")[0]
            best[name] = min(ns, best.get(name, ns))
    return best, context


def print_table(title, head, rows):
    if not rows:
        return
    print(f"\n### {title}\n")
    print("| " + " | ".join(head) + " |")
    print("|---" + "|--:" * (len(head) - 1) + "|")
    for row in rows:
        print("| " + " | ".join(row) + " |")


def in_yardsticks(ns, yard):
    return f"{ns:.1f} ({ns / yard:.1f})"


def print_racks(best, yard):
    def times(name, precision, places):
        return [best[f"rack/{name}/{precision}/{place}"] for place in places]

    def cells(row):
        return [in_yardsticks(ns, yard) for ns in row]

    blocks = [f"block:{b}/rate:48000" for b in BLOCKS]
    rates = [f"block:256/rate:{r}" for r in RATES]
    rows = {(name, precision): times(name, precision, blocks) for name in RACKS for precision in ("float", "double")}
    print_table("Whole strip by host block, 48000 Hz: ns per sample (yardsticks)",
                ["rack"] + [str(b) for b in BLOCKS] + ["16 : 256"],
                [[f"{name}, {precision}"] + cells(row) + [f"{row[0] / row[BLOCKS.index(256)]:.2f}"]
                 for (name, precision), row in rows.items()])
    rows = {name: times(name, "float", rates) for name in RACKS}
    print_table("Whole strip by rate, blocks of 256, float: ns per sample (yardsticks)",
                ["rack"] + [str(r) for r in RATES] + ["highest : lowest"],
                [[name] + cells(row) + [f"{max(row) / min(row):.2f}"] for name, row in rows.items()])


def print_variants(best):
    prefix = "module/"
    names = [key[len(prefix):-len("/steady")] for key in best
             if key.startswith(prefix) and key.endswith("/steady")]
    states = ("defaults", "steady", "gliding")
    print_table("Variants, 48000 Hz, blocks of 64: ns per sample",
                ["variant", "as it starts", "all on", "all moving"],
                [[name] + [f"{best[f'{prefix}{name}/{state}']:.1f}" for state in states] for name in names])


def print_pairs(best):
    for slow, fast in FORMS:
        rows = []
        for key, ns in best.items():
            parts = key.split("/")
            if slow not in parts:
                continue
            other = best.get("/".join(fast if part == slow else part for part in parts))
            if other is not None:
                label = "/".join(part for part in parts if part != slow)
                rows.append([label, f"{ns:.1f}", f"{other:.1f}", f"{ns / other:.1f}"])
        print_table(f"Kernels: ns, {slow} beside {fast}", ["kernel", slow, fast, "ratio"], rows)


def print_rest(best):
    known = ("rack/", "module/")
    paired = {form for pair in FORMS for form in pair}
    rows = [[name, f"{ns:.1f}"] for name, ns in best.items()
            if not name.startswith(known) and not paired & set(name.split("/")) and name != "yardstick"]
    print_table("Everything else: ns", ["benchmark", "ns"], rows)


def main():
    folder = pathlib.Path(sys.argv[1])
    best, context = read_run(folder)
    yard = best["yardstick"]
    print(f"{context['num_cpus']} CPUs at {context['mhz_per_cpu']} MHz, {context['date']}, load "
          f"{', '.join(f'{load:.1f}' for load in context['load_avg'])}")
    print(f"\nYardstick, one plain double second-order section: {yard:.2f} ns per sample")
    print_racks(best, yard)
    print_variants(best)
    print_pairs(best)
    print_rest(best)
    print("\n### Worst block\n\n```")
    print((folder / "worst_block.txt").read_text().rstrip())
    print("```")


if __name__ == "__main__":
    main()
