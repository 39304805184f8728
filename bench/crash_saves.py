"""Kills saves at random moments: crash_saves.py BENCH_SAVES N [seed]

Runs `bench_saves` N times: it saves a bank, a program, a preset, the settings and the record until it is killed, and
the next run checks that every file exists and is complete. Prints how many kills there were, how many files were
damaged, and how many temporary files are left."""
import os
import random
import signal
import subprocess
import sys
import tempfile
import time

LONGEST = 0.25  # seconds from the first save to the kill
PREFIX = ".orvane-"  # of the names of temporary files


def run(program, folder, moment):
    process = subprocess.Popen([program, folder], stdout=subprocess.PIPE, text=True)
    line = process.stdout.readline().strip()
    if line == "saving" and moment is not None:
        time.sleep(moment)
    process.send_signal(signal.SIGKILL)
    process.wait()
    return "" if line == "saving" else line or "no answer"


def main(program, kills, seed):
    random.seed(seed)
    with tempfile.TemporaryDirectory() as folder:
        faults = []
        for number in range(kills + 1):  # the last run checks alone
            fault = run(program, folder, random.uniform(0, LONGEST) if number < kills else None)
            if fault:
                faults.append(f"after kill {number}: {fault}")
                break
            for name in os.listdir(folder):  # the next run has checked them; they would be too many
                if name.endswith(".mid") and number % 20 == 0:
                    os.remove(os.path.join(folder, name))
        generation = open(os.path.join(folder, "a.prg")).read().split('name="')[1].split('"')[0]
        left = [name for _, _, names in os.walk(folder) for name in names if name.startswith(PREFIX)]
        print(f"{number} kills, {len(faults)} files lost or damaged; the last run came to generation {generation}; "
              f"{len(left)} temporary files left")
        print("\n".join(faults))
        return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1]), int(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 1))
