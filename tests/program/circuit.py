"""What a circuit simulator makes of the wires: circuit.py YAX SAMPLES FOLDER"""
import csv
import io
import math
import pathlib
import subprocess
import sys

yax, samples, folder = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])


def estimate(package, options, *more):
    return subprocess.run([yax, "estimate", *options, *more, package], check=True, capture_output=True, text=True).stdout


def voltages(circuit, wires, driven):
    """At every start, all ends grounded, of one ampere into the start of one wire at one radian a second."""
    (folder / "wires.cir").write_text(circuit)
    name = next(line.split()[1] for line in circuit.splitlines() if line.startswith(".subckt"))
    ports = "".join(f"\n+ s{n} 0" for n in range(1, wires + 1))
    (folder / "bench.cir").write_text(
        f"bench\n.include {folder / 'wires.cir'}\nX1{ports}\n+ {name}\nI1 0 s{driven} DC 0 AC 1\n"
        + "".join(f"Rload{n} s{n} 0 1e12\n" for n in range(1, wires + 1))
        + f".control\nset numdgt=12\nac lin 1 {1 / (2 * math.pi):.15g} {1 / (2 * math.pi):.15g}\n"
        + "".join(f"print v(s{n})\n" for n in range(1, wires + 1)) + ".endc\n.end\n")
    answer = subprocess.run(["ngspice", "-b", folder / "bench.cir"], capture_output=True, text=True).stdout
    found = {}
    for line in answer.splitlines():
        if line.startswith("v(s"):
            port, value = line.split("=")
            real, imaginary = value.strip().split(",")
            found[int(port.strip()[3:-1])] = (float(real), float(imaginary))
    assert len(found) == wires, answer[-2000:]
    return found


def near(found, expected, what):
    assert abs(found - expected) <= 1e-3 * abs(expected), f"{what}: {found} instead of {expected}"


def check(package, options, driven):
    rows = list(csv.DictReader(io.StringIO(estimate(package, options))))
    circuit = estimate(package, options, "--format", "spice")
    places = {row["name"] + (":" + row["other_name"] if row["other_name"] else ""): n for n, row in enumerate(rows, 1)}
    for wire in driven:
        found = voltages(circuit, len(rows), wire)
        row = rows[wire - 1]
        near(found[wire][0], float(row["r_mohm"]) * 1e-3, f"R of {row['name']}")
        near(found[wire][1], float(row["l_nh"]) * 1e-9, f"L of {row['name']}")
        other = places[row["nearest"]]
        own, its = float(row["l_nh"]), float(rows[other - 1]["l_nh"])
        near(found[other][1] * 1e9 / math.sqrt(own * its), float(row["k"]), f"k of {row['name']}")


two = folder / "two.yax"
two.write_text("TECHNOLOGY WIRE_BOND\nCOMPL 40\nCOMPW 40\nCOMPZ 5\n" + "".join(
    f"CBP {name} 15 {y} 0 3 3 0 R RECTANGLE\nSBP {name} 60 {y} 0 6 3 0 RECTANGLE 0 1\nWB {name} 15 {y} 0 60 {y} 5 0\n"
    for name, y in (("A", 0), ("B", 4))))
check(two, ["--unit", "mil", "--frequency", "1e9"], [1, 2])
check(samples / "bga332.yax", ["--unit", "mm"], [1, 200])
