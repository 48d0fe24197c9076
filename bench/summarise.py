"""Prints a table of medians: summarise.py GOALS RESULT.json ...

A case is named "case/ours", "case/floor:what", "case/peer:what" or "case/alt:what". GOALS has a line
for each case: its name, the beginning of what it is measured against, and the ratio to reach; a ratio
of a rate is ours over theirs in time, so smaller is better throughout. A line "case under 60 ms" sets a time.
"""

import json
import statistics
import sys

UNIT = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def seconds(value):
    for unit, size in (("s", 1.0), ("ms", 1e-3), ("us", 1e-6)):
        if value >= size:
            return f"{value / size:.3g} {unit}"
    return f"{value / 1e-9:.3g} ns"


def main():
    times = {}
    failed = []
    for path in sys.argv[2:]:
        with open(path) as file:
            text = file.read()
        if not text.strip():
            continue
        for row in json.loads(text)["benchmarks"]:
            if row.get("run_type") == "aggregate":
                continue
            parts = row["name"].split("/")
            case, what = parts[0], parts[1]
            if row.get("error_occurred"):
                failed.append(f"{case}/{what}: {row['error_message']}")
                continue
            times.setdefault(case, {}).setdefault(what, []).append(row["real_time"] * UNIT[row["time_unit"]])
    goals = {}
    limits = {}
    with open(sys.argv[1]) as file:
        for line in file:
            words = line.split("#")[0].split()
            if len(words) == 4 and words[1] == "under":
                limits[words[0]] = float(words[2]) * UNIT[words[3]]
            elif words:
                goals.setdefault(words[0], []).append((words[1], float(words[2])))

    print(f"{'case':34} {'ours':>10}  {'against':36} {'':>10} {'ratio':>7} {'reach':>6}")
    missed = 0
    for case, rows in sorted(times.items()):
        if "ours" not in rows:
            continue
        ours = statistics.median(rows["ours"])
        if case in limits:
            mark = "" if ours < limits[case] else "  missed"
            missed += bool(mark)
            print(f"{case:34} {seconds(ours):>10}  {'under':36} {seconds(limits[case]):>10} "
                  f"{ours / limits[case]:7.2f} {1:>6}{mark}")
        for what, values in sorted(rows.items()):
            if what == "ours":
                continue
            other = statistics.median(values)
            reach = next((ratio for start, ratio in goals.get(case, []) if what.startswith(start)), None)
            ratio = ours / other
            mark = "" if reach is None or ratio <= reach else "  missed"
            missed += bool(mark)
            print(f"{case:34} {seconds(ours):>10}  {what:36} {seconds(other):>10} {ratio:7.2f} "
                  f"{'' if reach is None else f'{reach:g}':>6}{mark}")
    for failure in failed:
        print("FAILED", failure)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
