#!/usr/bin/env python3
"""Times marlview-cli as a whole process, as a user's script runs it.

Run by hand after a Release build (never by the tests):

    bench/process_bench.py [--build build] [--runs 15]

It writes soundings of 10000 readings with 6 and with 20 channels, a dissipation file of 10 tests
of 10000 rows and a seismic sounding of 60 depths (two strikes of 3000 samples each) into a scratch
folder, then reports the median wall time and the largest resident memory of:
  - marlview-cli channels FILE --kind 0 > /dev/null, on each sounding;
  - marlview-cli info on the 6-channel sounding;
  - marlview-cli dissipation and marlview-cli seismic on their files;
  - marlview-cli info on a file that does not exist (the program's start alone).
Each run uses a fresh data directory that start-up has already filled, as a user's would be.
"""
import argparse
import os
import statistics
import subprocess
import sys
import tempfile
import time


def run_once(command, env):
    started = time.perf_counter()
    with open(os.devnull, "wb") as sink:
        process = subprocess.Popen(command, stdout=sink, stderr=sink, env=env)
        _, status, usage = os.wait4(process.pid, 0)
    elapsed = time.perf_counter() - started
    return elapsed, usage.ru_maxrss / 1024.0, os.waitstatus_to_exitcode(status)


def measure(name, command, env, runs):
    run_once(command, env)  # the first run warms the page cache
    times, memory, codes = [], [], set()
    for _ in range(runs):
        elapsed, rss, code = run_once(command, env)
        times.append(elapsed)
        memory.append(rss)
        codes.add(code)
    print(f"{name:<44} median {statistics.median(times) * 1000:7.1f} ms   "
          f"min {min(times) * 1000:7.1f} ms   max RSS {max(memory):6.1f} MB   exit {sorted(codes)}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--build", default="build", help="the CMake build folder (default: build)")
    parser.add_argument("--runs", type=int, default=15, help="timed runs of each case (default: 15)")
    args = parser.parse_args()
    cli = os.path.join(args.build, "src", "app", "marlview-cli")
    maker = os.path.join(args.build, "bench", "make_bench_files")
    for program in (cli, maker):
        if not os.access(program, os.X_OK):
            sys.exit(f"{program} is missing: build the project first")

    with tempfile.TemporaryDirectory(prefix="marlview-bench-") as scratch:
        env = dict(os.environ, MARLVIEW_DATA_DIR=os.path.join(scratch, "data"))
        env.pop("DISPLAY", None)
        soundings = {}
        for channels in (6, 20):
            path = os.path.join(scratch, f"CPT-BENCH-{channels}.DAT")
            subprocess.run([maker, "sounding", path, "10000", str(channels)], check=True)
            soundings[channels] = path
        dissipation = os.path.join(scratch, "DIS-BENCH.DIS")
        subprocess.run([maker, "dissipation", dissipation, "10", "10000"], check=True)
        seismic = os.path.join(scratch, "SCPT-BENCH.SEI")
        subprocess.run([maker, "seismic", seismic, "60", "3000"], check=True)
        missing = os.path.join(scratch, "NO-SUCH-FILE.DAT")
        # Start-up copies the defaults into the data directory once, as on a user's first run.
        run_once([cli, "info", soundings[6]], env)

        for channels, path in soundings.items():
            size = os.path.getsize(path) / 1e6
            measure(f"channels --kind 0, 10000 x {channels} ({size:.1f} MB)",
                    [cli, "channels", path, "--kind", "0"], env, args.runs)
        measure("info, 10000 x 6", [cli, "info", soundings[6]], env, args.runs)
        size = os.path.getsize(dissipation) / 1e6
        measure(f"dissipation, 10 tests x 10000 rows ({size:.1f} MB)", [cli, "dissipation", dissipation], env, args.runs)
        size = os.path.getsize(seismic) / 1e6
        measure(f"seismic, 60 depths x 2 x 3000 ({size:.1f} MB)", [cli, "seismic", seismic], env, args.runs)
        measure("info on a missing file (start alone)", [cli, "info", missing], env, args.runs)


if __name__ == "__main__":
    main()
