"""Kills a process that edits a program: crash_recovery.py BENCH_RECOVERY N [seed]

Runs `bench_recovery` N times, killed at random moments, and checks that each run restores what the one before edited.
Prints how many files were damaged, how old the oldest edit was that was lost, and the size of the recovery file. Fails
if anything was damaged, or if an edit that was lost was older than two seconds."""
import glob
import os
import random
import signal
import subprocess
import sys
import tempfile
import threading
import time

LONGEST = 4  # seconds from the first edit to the kill
MOST_LOST = 2  # seconds of edits


def run(program, folder, moment):
    """The edit that was restored, and the time of each edit; a text for the first if that failed."""
    process = subprocess.Popen([program, folder], stdout=subprocess.PIPE, text=True)
    first = process.stdout.readline().split()
    if len(first) != 2 or first[0] != "restored":
        process.kill()
        process.wait()
        return " ".join(first) or "no answer", {}, time.monotonic()
    edits = {}

    def read():
        for line in process.stdout:
            if line.startswith("edit ") and line.endswith("\n"):
                edits[int(line.split()[1])] = time.monotonic()

    reader = threading.Thread(target=read)
    reader.start()
    time.sleep(moment)
    process.send_signal(signal.SIGKILL)
    killed = time.monotonic()
    process.wait()
    reader.join()
    return int(first[1]), edits, killed


def main(program, kills, seed):
    random.seed(seed)
    faults, lost, sizes = [], [0], [0]
    with tempfile.TemporaryDirectory() as folder:
        edits, killed = {}, 0
        for number in range(kills + 1):  # the last run checks alone
            restored, next_edits, next_killed = run(program, folder, random.uniform(0, LONGEST) * (number < kills))
            if isinstance(restored, str):
                faults.append(f"after kill {number}: {restored}")
                break
            lost.append(max((killed - at for edit, at in edits.items() if edit > restored), default=0))
            sizes += [os.path.getsize(file) for file in glob.glob(folder + "/config/*/*/recovery-1")]
            edits, killed = next_edits, next_killed
        faults += glob.glob(folder + "/config/*/*/*.unreadable*")
    print(f"{number} kills, {restored} edits, {len(faults)} files damaged; at most {max(lost):.2f} s of edits lost, "
          f"{sum(lost) / max(1, number):.2f} s on average; file of at most {max(sizes)} bytes")
    print("\n".join(faults))
    return 1 if faults or max(lost) > MOST_LOST else 0


if __name__ == "__main__":
    sys.exit(main(os.path.abspath(sys.argv[1]), int(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 1))
