#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Sums a qmlprofiler trace (.qtd): the time of each kind of range (compiling,
creating, signal handling), counted once where ranges nest, and the
components that took the most time of their own (with their bindings).

    qml-trace-summary.py TRACE.qtd [COUNT]
"""
import collections
import sys
import xml.etree.ElementTree as ElementTree


def main():
    trace = ElementTree.parse(sys.argv[1]).getroot()
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 20
    events = {int(e.get("index")): (e.findtext("type"), e.findtext("displayname"), e.findtext("details") or "")
              for e in trace.find("eventData")}
    # Only compiling, creating and signal handling: Qt 6.4 records some
    # bindings and JavaScript ranges overlapping the ranges around them (a
    # singleton's bindings last seconds), so those would not nest.
    kept = ("Compiling", "Creating", "HandlingSignal")
    ranges = sorted((int(r.get("startTime")), int(r.get("duration")), int(r.get("eventIndex")))
                    for r in trace.find("profilerDataModel")
                    if r.get("duration") is not None and events[int(r.get("eventIndex"))][0] in kept)
    if not ranges:
        sys.exit("no ranges in the trace")
    first = ranges[0][0]
    engine_end = max(start + length for start, length, index in ranges
                     if events[index][0] in ("Compiling", "Creating"))
    print(f"compiling and creating end {(engine_end - first) / 1e6:.1f} ms after the first range")

    # Outermost ranges only, so nested ones are not counted twice; and each
    # range's own time, without the ranges nested in it.
    outermost = collections.Counter()
    own = collections.Counter()
    kinds = collections.Counter()
    open_ranges = []
    for start, length, index in ranges:
        while open_ranges and start >= open_ranges[-1][0] + open_ranges[-1][1]:
            open_ranges.pop()
        kind = events[index][0]
        kinds[kind] += 1
        if open_ranges:
            own[open_ranges[-1][2]] -= length
        else:
            outermost[kind] += length
        own[index] += length
        open_ranges.append((start, length, index))

    print(f"{'kind':<16}{'outermost ms':>14}{'ranges':>8}")
    for kind, total in outermost.most_common():
        print(f"{kind:<16}{total / 1e6:>14.1f}{kinds[kind]:>8}")
    print(f"\nlargest own times (ms):")
    for index, total in own.most_common(count):
        kind, name, details = events[index]
        print(f"{total / 1e6:8.2f}  {kind:<12} {name}  {details[:70]}")


if __name__ == "__main__":
    main()
