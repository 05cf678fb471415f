#!/usr/bin/env python3
"""Sends one random user after the other into the program and prints each fault with the seed, the step and the fewest
steps that show it. Ends with 1 when there was any.
    hunt.py RANDOM_USER --seed 1 --steps 5000 [--chunk 300] [--shrink 60]"""

import argparse
import collections
import os
import re
import select
import signal
import subprocess
import sys
import tempfile
import time

STALL = 60  # seconds without a deed
Fault = collections.namedtuple("Fault", "step what details")


def live(seed, steps, only=()):
    """The faults and the deeds of one life."""
    command = [options.program, "--seed", str(seed), "--steps", str(steps)]
    command += ["--only", ",".join(map(str, only))] if only else []
    with tempfile.TemporaryDirectory() as folder, tempfile.TemporaryFile() as errors:
        child = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=errors, env={**os.environ, "TMPDIR": folder})
        told, end = b"", "crash"
        while select.select([child.stdout], [], [], STALL)[0]:
            piece = os.read(child.stdout.fileno(), 65536)
            if not piece:
                break
            told += piece
        else:
            end = "stall"
            child.send_signal(signal.SIGABRT)
            told += child.stdout.read()
        child.wait()
        errors.seek(0)
        return read_life(told.decode(errors="replace"), end, errors.read().decode(errors="replace")[-3000:])


def read_life(told, end, errors):
    faults, deeds = [], []
    for line in told.splitlines():
        word, *rest = line.split("\t")
        if word == "DEED":
            deeds.append(rest)
        elif word == "FAULT":
            faults.append(Fault(int(rest[0]), rest[1], rest[2]))
        elif word == "DONE":
            return faults, deeds
    step = int(deeds[-1][0].split(".")[0]) if deeds else 0
    doings = [f"{where}: {what}" for _, where, what in deeds if is_doing(what)]
    last = re.sub(r"[ ,]*\d+", "", doings[-1])[:60] if doings else ""
    faults.append(Fault(step, f"{end} at “{last}”", errors))
    return faults, deeds


def is_doing(what):
    return what not in ("release", "key up")


def shrunk(seed, steps, what):
    """Leaves out as many steps as it can so that the fault still happens: halves first, then smaller parts."""
    end = time.time() + options.shrink
    only = list(range(steps))
    part = len(only) // 2
    while part > 0:
        start = 0
        while start < len(only) and time.time() < end:
            fewer = only[:start] + only[start + part:]
            if fewer and any(fault.what == what for fault in live(seed, steps, fewer)[0]):
                only = fewer
            else:
                start += part
        part //= 2
    return only


def tell(seed, fault):
    print(f"FAULT {fault.what}\n  met: seed {seed}, step {fault.step}\n  details: {fault.details}", flush=True)
    if options.shrink == 0:
        return
    steps = fault.step + 1
    only = shrunk(seed, steps, fault.what)
    print(f"  again: --seed {seed} --steps {steps} --only", ",".join(map(str, only)))
    for deed in live(seed, steps, only)[1]:
        if is_doing(deed[-1]):
            print("   ", *deed, flush=True)


parser = argparse.ArgumentParser(description=__doc__)
parser.add_argument("program")
parser.add_argument("--seed", type=int, default=1)
parser.add_argument("--steps", type=int, default=500, help="in all")
parser.add_argument("--chunk", type=int, default=300, help="steps after which a new schedule is begun")
parser.add_argument("--shrink", type=int, default=60, help="seconds for each fault; 0 to leave it as it was met")
options = parser.parse_args()
met = collections.Counter()
for number in range(-(-options.steps // options.chunk)):
    for found in live(options.seed + number, options.chunk)[0]:
        met[found.what] += 1
        if met[found.what] == 1:
            tell(options.seed + number, found)
for what, times in met.items():
    print(f"  met {times} times: {what}")
sys.exit(1 if met else 0)
