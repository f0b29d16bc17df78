#!/usr/bin/python3
"""Times two or more builds of the program on the same unattended run, one
run of each after the other, so that a machine whose speed wanders treats
them alike. Prints each build's median and its ratio to the first.

  bench/alternate_runs.py --runs 40 --home DIR INPUT OUTPUT TEMPLATE -- BIN1 BIN2 ...

DIR is the HOME of the runs (its Work folder holds TEMPLATE.cnv)."""
import argparse
import os
import statistics
import subprocess
import time

parser = argparse.ArgumentParser()
parser.add_argument('--runs', type=int, default=40)
parser.add_argument('--warmup', type=int, default=2)
parser.add_argument('--home', required=True)
parser.add_argument('run', nargs=3, metavar='INPUT OUTPUT TEMPLATE')
parser.add_argument('programs', nargs='+')
options = parser.parse_args()

env = dict(os.environ, HOME=options.home, XDG_CONFIG_HOME=os.path.join(options.home, '.config'))
env.pop('DISPLAY', None)
env.pop('WAYLAND_DISPLAY', None)
times = {program: [] for program in options.programs}
for turn in range(options.warmup + options.runs):
    for program in options.programs:
        start = time.perf_counter()
        subprocess.run([program] + options.run, env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        if turn >= options.warmup:
            times[program].append((time.perf_counter() - start) * 1000)
first = statistics.median(times[options.programs[0]])
for program in options.programs:
    median = statistics.median(times[program])
    print(f'{median:8.1f} ms median  (min {min(times[program]):.1f})  {median / first:.3f}  {program}')
