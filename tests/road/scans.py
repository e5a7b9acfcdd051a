"""An independent reading of what the box sent: from the simulator's own record to the bytes of a run file.

Nothing here shares code with the product.
"""
import struct
from typing import NamedTuple

HEADER_BYTES = 26188
FIRST_KEPT = 4  # two scans without values, one that only sets the last-sampled depth
MODELS = {"LCU2Plus": {"trailer": 2, "metres_per_count": 0.01}, "LCU4": {"trailer": 7, "metres_per_count": 0.0025}}


class Tool(NamedTuple):
    """How each word on the line becomes a value, and what the derived channels behind them always read."""

    code: str
    rules: list
    derived: list

    def record_bytes(self):
        return 12 + 4 * (len(self.rules) + len(self.derived)) + 20


K240 = Tool("K240", ["period"] * 4 + ["rate", "period"], [100.0])
K306 = Tool("K306", ["level", "level", "period", "level"], [0.0, 0.0])


def single(value):
    return struct.unpack("<f", struct.pack("<f", value))[0]


def sent_scans(record):
    """The data bytes of every scan that went over the line whole, in order."""
    scans = []
    for line in record.read_text().splitlines():
        words = line.split()
        if words and words[0] == "scan" and "sent" in words:
            scans.append(bytes.fromhex(words[-1])[1:])
    return scans


def signed(value, bits):
    return value - (1 << bits) if value > 1 << (bits - 1) else value


class Scan:
    def __init__(self, data, model):
        rule = MODELS[model]
        self.depth = single(signed(int.from_bytes(data[0:3], "big"), 24) * rule["metres_per_count"])
        self.time = int.from_bytes(data[3:5], "big")
        words = data[5 : len(data) - rule["trailer"]]
        self.counts = [int.from_bytes(words[i : i + 2], "big") for i in range(0, len(words), 2)]
        if model == "LCU4":
            self.current = round(abs(signed(int.from_bytes(data[-2:], "big"), 12)) * 0.55)
            self.voltage = round(abs(signed(int.from_bytes(data[-4:-2], "big"), 12)) * 0.0485)
        else:
            self.current, self.voltage = data[-1], 0

    def values(self, tool, polynomials):
        """`polynomials`: coefficients by channel from 0, lowest power first; a channel without reads as it counts."""
        rules = {"period": lambda c: single(21 * 1e6 / c) if c else 0.0,  # of the constant 21
                 "rate": lambda c: single(round(c * 10000 / self.time)),
                 "level": float}
        values = [rules[rule](count) for rule, count in zip(tool.rules, self.counts)] + tool.derived
        for channel, coefficients in polynomials.items():
            if tool.rules[channel] == "period" and self.counts[channel] == 0:
                continue  # a period of 0 is no reading
            value = values[channel]
            values[channel] = single(sum(c * value**power for power, c in enumerate(coefficients)))
        return values


def record_bytes(scan, previous, feet, tool, polynomials):
    per_unit = 1 / 0.3048 if feet else 1.0
    speed = abs(scan.depth - previous.depth) * 600000 / scan.time
    depth = scan.depth * 1000 / 0.3048 if feet else scan.depth * 1000
    fields = [round(depth), scan.time, round(speed * per_unit * 100)]
    fields += [round(value * 100) for value in scan.values(tool, polynomials)]
    return struct.pack(f"<{len(fields)}ihhhi10s", *fields, scan.current, scan.voltage, 0, 0, b" " * 10)


def expected_records(data, model, sampling, up, feet, tool, polynomials):
    """The records that a run must hold which saw these scans from the first on."""
    scans = [Scan(one, model) for one in data]
    records, last = [], None
    for number, scan in enumerate(scans, start=1):
        if number < FIRST_KEPT - 1:
            continue
        if last is None:
            last = scan.depth
            continue
        moved = last - scan.depth if up else scan.depth - last
        if sampling == "DEPTH" and not 0 < moved < 1:
            continue
        last = scan.depth
        records.append(record_bytes(scan, scans[number - 2], feet, tool, polynomials))
    return records
