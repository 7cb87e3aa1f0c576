#!/usr/bin/env python3
"""Motion records worked out a second time, in another language and from the description of the record alone.

Writes to standard output, little-endian, one block for each multiplier and slope:
  block   i4 multiplier, i4 slope, i4 number of rows
  row     3 f8 travel per turn, 3 i4 steps per turn, 3 f8 start speed, 3 f4 highest speed, 3 i4 steps, f4 speed asked
          f4 speed, f4 duration, 31 bytes: flags and what follows them in the record

Arguments: number of rows for the multipliers of the list, number for all others, multipliers of the list.
"""

import math
import random
import struct
import sys


def f32(x):
    return struct.unpack("<f", struct.pack("<f", x))[0]


def nearest(x):
    return int(round(x))  # halves to even


class Table:
    def __init__(self, multiplier, slope):
        self.m = multiplier
        self.level_time = 2 ** (9 + slope)
        self.period = []
        for i in range(256):
            f = (255 - i) * 6000000 / 16711425 + multiplier * 10000 / 255 * i
            self.period.append(nearest(6000000 / f))
        self.ticks = [self.level_time / (2 * p) for p in self.period]
        self.sums = {}

    def first_level(self, ratio):
        seek = math.ceil(ratio * 600 / self.m)
        i = 0
        while i <= 255 and self.period[i] > seek:
            i += 1
        return i - 1 if i > 0 else 0

    def up(self, n):
        """Ticks from level n to each level; 0 up to n itself."""
        if n not in self.sums:
            s = [0.0] * 256
            for i in range(1, 256):
                s[i] = 0.0 if i <= n else s[i - 1] + self.ticks[i - 1]
            self.sums[n] = s
        return self.sums[n]


def record(table, res, start, top, steps, v):
    lengths = [abs(d) * r for d, r in zip(steps, res)]
    length = math.sqrt(lengths[0] ** 2 + lengths[1] ** 2 + lengths[2] ** 2)
    axis = [v * x / length for x in lengths]
    ratio = max(a / t for a, t in zip(axis, top))
    if ratio > 1:
        v = f32(v / ratio)
    time = length / v
    a = max(v / f32(s) for s, d in zip(start, steps) if d != 0)
    ticks = min(2147483647, math.ceil(time * table.m * 10000))
    flags = sum(1 << i for i, d in enumerate(steps) if d >= 0)
    first = last = down = 0
    duration = time
    if a > 1:
        flags += 32
        first = last = table.first_level(a)
        acc = table.up(first)
        p = 255
        for i in range(first + 1, 255):
            if ticks - acc[i] - acc[i] >= 0 and ticks - acc[i + 1] - acc[i + 1] < 0 and acc[i] != 0:
                p = i
                break
        t_up = (p - first) * table.level_time / 12000000
        t_flat = (ticks - acc[p] - acc[p]) * table.period[p] / 6000000
        down = nearest(ticks - acc[p])
        duration = t_up + t_up + t_flat
    edges = [2 * abs(d) for d in steps]
    body = struct.pack("<BiiiiiiBBi", flags, ticks, edges[0], edges[1], edges[2], 0, 0, first, last, down)
    return v, f32(duration), body


def row(rng, table):
    travel = [rng.choice([0.5, 1, 1.25, 2, 3, 4, 5, 6.35, 10]) for _ in range(3)]
    turn = [rng.choice([48, 100, 200, 400]) << rng.randrange(0, 6) for _ in range(3)]
    start = [rng.choice([0.5, 1, 2.5, 3.3, 5, 6, 10, 20]) for _ in range(3)]
    top = [f32(rng.choice([5, 15, 20, 33.3, 50, 120])) for _ in range(3)]
    size = 10 ** rng.uniform(0, 5.5)
    steps = [rng.randint(-int(size), int(size)) * rng.choice([0, 1, 1]) for _ in range(3)]
    if not any(steps):
        steps[rng.randrange(3)] = rng.choice([-1, 1]) * rng.randint(1, 40)
    # Often just the start speed of an axis, where a ramp begins to be needed.
    v = f32(rng.choice([rng.choice(start), 10 ** rng.uniform(-1, 2.3), 1000.0]))
    res = [x / n for x, n in zip(travel, turn)]
    out = record(table, res, start, top, steps, v)
    return struct.pack("<3d3i3d3f3if", *travel, *turn, *start, *top, *steps, v) + struct.pack("<ff", out[0], out[1]) + out[2]


def main():
    many, few = int(sys.argv[1]), int(sys.argv[2])
    listed = {int(x) for x in sys.argv[3].split(",")}
    rng = random.Random(20041)
    write = sys.stdout.buffer.write
    for multiplier in range(1, 256):
        n = many if multiplier in listed else few
        for slope in range(1, 10):
            if n == 0:
                continue
            table = Table(multiplier, slope)
            write(struct.pack("<iii", multiplier, slope, n))
            write(b"".join(row(rng, table) for _ in range(n)))


if __name__ == "__main__":
    main()
