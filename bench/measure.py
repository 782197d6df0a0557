"""Runs the measuring programs in turn and prints one table: measure.py BUILD_FOLDER ROUNDS [GROUP...]

Each figure is the time of our program divided by that of a yardstick, which runs in alternating rounds; the
figure is the median of the rounds' ratios. The column "memory" is the same ratio of resident kilobytes.
"""
import json
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile

BUILD = pathlib.Path(sys.argv[1]).resolve()
ROUNDS = int(sys.argv[2])
CHOSEN = sys.argv[3:]
SAMPLES = pathlib.Path(__file__).resolve().parent.parent / "samples"
MAIN = "bga332"
PACKAGES = {name: SAMPLES / (name + ".yax") for name in ("AAAc", MAIN, "flipchip-bigblade")}
PACKAGES |= {f"scale-{bonds}": BUILD / "bench" / f"scale-{bonds}.yax" for bonds in (1000, 8000, 32000)}


def program(name):
    return str(BUILD / "bin" / name)


def lines_of(*command):
    """Runs a program that prints lines "name value"; returns the list of values of each name."""
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    if done.returncode != 0:
        sys.exit(f"bench: {' '.join(map(str, command))} ended with status {done.returncode}\n{done.stderr}")
    values = {}
    for line in done.stdout.splitlines():
        name, value = line.split()
        values.setdefault(name, []).append(float(value))
    return values


class Worker:
    """A running program that takes orders on its standard input and answers each with one line."""

    def __init__(self, name, package):
        self.process = subprocess.Popen([program(name), str(package)], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL, text=True)
        self.answer()

    def answer(self):
        line = self.process.stdout.readline().strip()
        if not line:
            sys.exit(f"bench: {self.process.args} has ended")
        return line

    def do(self, order, number=0):
        self.process.stdin.write(f"{order} {number}\n")
        self.process.stdin.flush()
        return float(self.answer())

    def close(self):
        self.process.stdin.close()
        self.process.wait()


class Table:
    def __init__(self):
        self.rows = []

    def add(self, figure, package, ours, yardstick, memory=None, target=None, faster=False):
        """`ours` and `yardstick` are seconds (or kilobytes), one value per round. `target` is an upper bound of their
        ratio or, for a speed (`faster`), a lower bound."""
        ratios = [b / o if faster else o / b for o, b in zip(ours, yardstick)]
        row = {"figure": figure, "package": package, "ratio": statistics.median(ratios),
               "ours": statistics.median(ours), "yardstick": statistics.median(yardstick)}
        if memory is not None:
            row["memory"] = memory
        if target is not None:
            row["target"] = target
            row["bound"] = "least" if faster else "most"
            row["met"] = row["ratio"] >= target if faster else row["ratio"] <= target
        self.rows.append(row)
        self.show(row)

    @staticmethod
    def show(row):
        memory = f"{row['memory']:8.2f}" if "memory" in row else " " * 8
        target = ""
        if "target" in row:
            target = f"  at {row['bound']} {row['target']:<5g} {'met' if row['met'] else 'MISSED'}"
        print(f"{row['figure']:<44}{row['package']:<20}{row['ratio']:8.3f}{memory}{target}", flush=True)

    @staticmethod
    def head():
        print(f"{'figure (ours / yardstick)':<44}{'package':<20}{'ratio':>8}{'memory':>8}  target", flush=True)


def memory_of(name, package):
    used = [max(1.0, lines_of(program(name), package, side)["memory"][0]) for side in ("ours", "bare")]
    return used[0] / used[1]


def per_bond(seconds):
    return {name: statistics.median(values) / int(name.split("-")[1])
            for name, values in seconds.items() if name.startswith("scale-")}


def read(table):
    seconds = {}
    for name, path in PACKAGES.items():
        found = lines_of(program("bench_read"), path, ROUNDS)
        seconds[name] = found["ours"]
        table.add("read: speed / bare pass", name, found["ours"], found["bare"],
                  memory_of("bench_read", path), 0.5, faster=True)
    bond = per_bond(seconds)
    table.add("read: per bond / per bond at 1,000", "scale-32000", [bond["scale-32000"]], [bond["scale-1000"]],
              target=1.3)


def build(table):
    """Each program alternates our side and the bare one; the program with empty GL routines takes turns with the other."""
    seconds = {}
    for name, path in PACKAGES.items():
        mesa, silent = {}, {}
        for _ in range(2):
            for which, kept in (("bench_build", mesa), ("bench_build_silent", silent)):
                for key, values in lines_of(program(which), path, ROUNDS).items():
                    kept.setdefault(key, []).extend(values)
        seconds[name] = mesa["ours"]
        table.add("build: time / bare emission", name, mesa["ours"], mesa["bare"], memory_of("bench_build", path), 1.1)
        # Mesa's time is the time of the bare emission less the time of its loop, measured with empty GL routines.
        in_mesa = [all_of - loop for all_of, loop in zip(mesa["bare"], silent["bare"])]
        table.add("build: our own share / Mesa's time", name, silent["ours"], in_mesa, target=0.4)
    bond = per_bond(seconds)
    table.add("build: per bond / per bond at 1,000", "scale-32000", [bond["scale-32000"]], [bond["scale-1000"]],
              target=1.3)


def rebuilds(table):
    keep = lines_of(program("bench_rebuild"), PACKAGES[MAIN], "keep")
    delete = lines_of(program("bench_rebuild"), PACKAGES[MAIN], "delete")
    table.add("memory: 1,000th rebuild / 100th", MAIN, keep["at1000"], keep["at100"], target=1.05)
    table.add("memory: 1,000 rebuilds / deleting the lists", MAIN, keep["at1000"], delete["at1000"], target=1.1)


def window(table):
    """The viewer's window and a bare replay are open side by side and take turns."""
    for name, path in PACKAGES.items():
        ours, bare = Worker("bench_view_window", path), Worker("bench_replay_window", path)
        if ours.do("picture") != bare.do("picture"):
            sys.exit(f"bench: window and bare replay show different pictures of {name}")
        memory = ours.do("memory") / bare.do("memory")

        bare.do("frames", 3)
        count = max(3, int(0.3 / (bare.do("frames", 3) / 3)))
        taken = ([], [])
        for turn in range(max(10, ROUNDS)):
            # The two alternate in who begins, because other load on the machine changes within a round.
            sides = ((ours, taken[0]), (bare, taken[1]))
            for side, kept in sides if turn % 2 == 0 else reversed(sides):
                kept.append(side.do("frames", count) / count)
        table.add("frames: speed / bare replay", name, *taken, memory, 0.95, faster=True)

        taken = ([], [])
        for step in range(ROUNDS):
            width = 1281 + step % 2
            taken[0].append(ours.do("step", width))
            lists = ours.do("lists")
            if lists != 1:
                sys.exit(f"bench: a load built {lists:g} lists instead of one")
            taken[1].append(bare.do("step", width))
        table.add("edge step / context + pass + list + frame", name, *taken,
                  ours.do("memory") / bare.do("memory"), 1.3)

        if ours.do("wires") > 0:
            taken = ([], [])
            for _ in range(ROUNDS):
                taken[0].append(ours.do("select"))
                taken[1].append(bare.do("build"))
            table.add("all wires selected / list + frame", name, *taken, ours.do("memory") / bare.do("memory"))
        ours.close()
        bare.close()


def in_turn(rounds, first, *others):
    """Time and memory of commands that take turns; the first round only warms up."""
    commands = (first, *others)
    taken = [{"time": [], "memory": []} for _ in commands]
    for turn in range(rounds + 1):
        for command, kept in zip(commands, taken):
            found = lines_of(*command)
            if turn > 0:
                kept["time"] += found["time"]
                kept["memory"] += found["memory"]
    return taken


def start(table):
    """Time from the start of a program until its window is mapped and shows the picture."""
    watch = program("bench_first_picture")
    for name, path in PACKAGES.items():
        ours, empty, least = in_turn(ROUNDS, (watch, program("yaxview"), path), (watch, program("bench_empty_window")),
                                     (watch, program("bench_empty_window"), path))
        memory = statistics.median(ours["memory"]) / statistics.median(empty["memory"])
        table.add("start / empty Qt window", name, ours["time"], empty["time"], memory,
                  1.2 if name == MAIN else None)
        table.add("start / same window + pass + list + frame", name, ours["time"], least["time"],
                  statistics.median(ours["memory"]) / statistics.median(least["memory"]))


def yax(table):
    # A folder in memory, because a busy disk would change the figures.
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        yax_render(table, pathlib.Path(folder))
        yax_reports(table, pathlib.Path(folder))
        viewer_of_others(table, pathlib.Path(folder))


def yax_render(table, folder):
    run = program("bench_command")
    for name, path in PACKAGES.items():
        lines_of(run, program("yax"), "render", path, "-o", folder / "picture.bmp")
        ours, bare = in_turn(ROUNDS, (run, program("yax"), "render", path, "-o", folder / "ours.png"),
                             (run, program("bench_clear_png"), folder / "picture.bmp", folder / "bare.png"))
        if (folder / "ours.png").read_bytes() != (folder / "bare.png").read_bytes():
            sys.exit("bench: yax render and the bare program wrote different pictures")
        target = {"target": 1.6} if name == MAIN else {}
        table.add("yax render / clear and the same PNG", name, ours["time"], bare["time"], **target)
        target = {"target": 1.3} if name == MAIN else {}
        table.add("yax render: memory / clear and the same PNG", name, ours["memory"], bare["memory"], **target)


def yax_reports(table, folder):
    """The commands without a picture, from the start of their process to its end."""
    run = program("bench_command")
    exported = folder / "package.glb"
    for name, path in PACKAGES.items():
        unit = ("--unit", "mil" if name.startswith("scale-") else "mm")
        commands = {"check": (), "wires": (), "clearance": unit, "export": (*unit, "-o", exported)}
        *ours, bare = in_turn(ROUNDS, *((run, program("yax"), command, *options, path)
                                        for command, options in commands.items()),
                              (run, program("bench_read"), path, "bare"))
        for command, taken in zip(commands, ours):
            table.add(f"yax {command} / a program with the bare pass", name, taken["time"], bare["time"],
                      statistics.median(taken["memory"]) / statistics.median(bare["memory"]))
    few, many = (BUILD / "bench" / f"scale-{bonds}.yax" for bonds in (4000, 32000))
    small, large = in_turn(ROUNDS, (run, program("yax"), "clearance", few), (run, program("yax"), "clearance", many))
    table.add("yax clearance: 32,000 wires / 4,000", "scale", large["time"], small["time"],
              statistics.median(large["memory"]) / statistics.median(small["memory"]), 12)


def viewer_of_others(table, folder):
    exported = folder / "package.glb"
    run = program("bench_command")
    lines_of(run, program("yax"), "export", "--unit", "mm", PACKAGES[MAIN], "-o", exported)
    ours, theirs = in_turn(ROUNDS, (run, program("yax"), "render", PACKAGES[MAIN], "-o", folder / "ours.png"),
                           (run, shutil.which("f3d"), "--resolution=1024,768", f"--output={folder / 'f3d.png'}",
                            exported))
    table.add("yax render / f3d of the exported package", MAIN, ours["time"], theirs["time"], target=0.25)
    table.add("yax render: memory / f3d", MAIN, ours["memory"], theirs["memory"], target=0.45)


def main():
    checked = subprocess.run([program("bench_same_calls"), *map(str, PACKAGES.values())])
    if checked.returncode != 0:
        sys.exit("bench: the bare emission does not make the calls of the scene")
    groups = {"read": read, "build": build, "rebuilds": rebuilds, "window": window, "start": start, "yax": yax}
    unknown = set(CHOSEN) - set(groups)
    if unknown:
        sys.exit(f"bench: unknown group {', '.join(sorted(unknown))}; use {', '.join(groups)}")
    table = Table()
    table.head()
    for name in CHOSEN or groups:
        groups[name](table)

    targets = [row for row in table.rows if "target" in row]
    met = sum(row["met"] for row in targets)
    (BUILD / "figures.json").write_text(json.dumps({"figures": table.rows, "targets": len(targets), "met": met},
                                                   indent=1) + "\n")
    print(f"{met} of {len(targets)} targets met")
    return 0 if met == len(targets) else 1


sys.exit(main())
