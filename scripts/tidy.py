#!/usr/bin/env python3
"""Runs clang-tidy over every own source of a build folder's compile_commands.json but the tests,
warnings as errors. A source found clean is not checked again until it, a header of it, its compiler options or
the checks change; build/tidy remembers. Exit code 1 if anything was found.
"""

import hashlib
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from functools import cache
from pathlib import Path

from compiledsources import REPO, compile_entries, headers_by_object

MEMORY = REPO / "build" / "tidy"
NOISE = re.compile(
    r"^(\d+ warnings? (generated|treated as error)|Suppressed \d+|Use -header-filter)")


@cache
def digest(path: Path) -> str:
    return hashlib.sha256(path.read_bytes()).hexdigest() if path.exists() else "gone"


def configurations(source: Path) -> list[Path]:
    """The .clang-tidy files that hold for a source."""
    return [folder / ".clang-tidy" for folder in source.parents if folder.is_relative_to(REPO)]


def key_of(entry: dict[str, str], headers: list[Path]) -> str:
    source = Path(entry["file"])
    files = sorted({source, *headers, *configurations(source), Path(__file__)})
    parts = [entry["command"], *(f"{path} {digest(path)}" for path in files)]
    return hashlib.sha256("\n".join(parts).encode()).hexdigest()


def check(build: Path, entry: dict[str, str]) -> str:
    """Checks one source; returns what was found, empty if nothing."""
    # The command lines are those of another compiler, whose warnings this one need not know.
    run = subprocess.run(
        ["clang-tidy", "-p", str(build), "--quiet", "--warnings-as-errors=*",
         "--extra-arg=-Wno-unknown-warning-option", entry["file"]],
        cwd=REPO, capture_output=True, text=True, check=False)
    if run.returncode == 0:
        return ""
    lines = (run.stdout + run.stderr).splitlines()
    kept = [line for line in lines if not NOISE.match(line)]
    return "\n".join(kept) or f"clang-tidy ended with code {run.returncode}: {entry['file']}"


def main() -> int:
    build = Path(sys.argv[1]).resolve()
    # The tests' own sources take several times as long as all others, for their macros' sake.
    entries = [entry for entry in compile_entries(build)
               if not Path(entry["file"]).is_relative_to(REPO / "tests")]
    headers = headers_by_object(build)
    keys = {key_of(entry, headers.get(entry.get("output", ""), [])): entry for entry in entries}
    MEMORY.mkdir(parents=True, exist_ok=True)
    due = {key: entry for key, entry in keys.items() if not (MEMORY / key).exists()}
    failed = 0
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for key, found in zip(due, pool.map(lambda entry: check(build, entry), due.values())):
            if found:
                failed += 1
                print(found, flush=True)
            else:
                (MEMORY / key).touch()
    for stale in MEMORY.iterdir():
        if stale.name not in keys:
            stale.unlink()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
