#!/usr/bin/env python3
"""Makes the packages of a release and tests them: the ring `package`. Appends its counts as
"PASSED FAILED SKIPPED" to the file COUNTS.

Usage: testpackages.py [COUNTS]
"""

import os
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

import ring

REPO = Path(__file__).resolve().parent.parent
TESTS = REPO / "tests" / "package"
WORK = REPO / "build" / "package-test"  # of the tests


def run() -> ring.Results:
    made = subprocess.run(["nice", REPO / "scripts/package.sh"], check=False,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, encoding="utf-8", errors="replace")
    if made.returncode != 0:
        results = ring.Results()
        results.failures.append(("scripts/package.sh", made.stdout))
        return results
    try:
        return ring.run_tool_tests("", str(TESTS))
    finally:
        shutil.rmtree(WORK, ignore_errors=True)


def main() -> int:
    # Ended from outside, it still lets the tests end what they started.
    for sign in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(sign, signal.default_int_handler)
    began = time.monotonic()
    results = run()
    counts = Path(sys.argv[1] if len(sys.argv) > 1 else os.devnull)
    return ring.conclude("package", results, time.monotonic() - began, counts)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        sys.exit(130)
