# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT
"""Compares commands. They run in turns, so that other work on the machine affects all of them."""

import os
import random
import statistics
import subprocess
import time


class Run:
    """The runs of one command: the median of the wall times in seconds, and the largest resident memory in bytes.

    The memory is that of the largest single process among the command and all descendants that were waited for: Linux
    passes the maximum up at every wait, and wait4 reports it. It is not a sum, and never less than the memory of this
    interpreter, because a new process starts as a copy of it."""

    def __init__(self):
        self.times = []
        self.memory = 0

    @property
    def seconds(self):
        return statistics.median(self.times)

    def once(self, command, expected_status):
        start = time.perf_counter()
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   stdin=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        self.times.append(time.perf_counter() - start)
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode != expected_status:
            raise RuntimeError(f"{command} ended with {process.returncode}")
        self.memory = max(self.memory, usage.ru_maxrss * 1024)


def compare(commands, rounds=7, statuses={}, before=lambda: None):
    """{name: command} -> {name: Run}; every command runs once a round and has to end with its status, by default 0.

    A command may be a function that returns the command for the next round. The order changes from round to round, so
    that each command runs after each of the others; `before` runs before each command."""
    runs = {name: Run() for name in commands}
    order = random.Random(1)
    for _ in range(rounds):
        for name, command in order.sample(list(commands.items()), len(commands)):
            before()
            runs[name].once(command() if callable(command) else command, statuses.get(name, 0))
    return runs


# (work, goal, figure, whether the goal is met), for the table of bench/run.
goals = []


def tell_goal(work, goal, figure, met):
    goals.append((work, goal, figure, met))
    print(f"  {'met' if met else 'MISSED'}: {work}: {figure}; goal: {goal}")


def report(title, runs, ours):
    print(title)
    for name, run in runs.items():
        times = f"{run.seconds:8.3f} s  {run.memory / 2**20:7.1f} MiB"
        ratio = "" if name == ours else f"  {run.seconds / runs[ours].seconds:6.1f} times our time"
        print(f"  {name:<28} {times}{ratio}")
