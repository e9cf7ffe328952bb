#!/usr/bin/env python3
"""Checks which folder includes which. Prints each include that ROOMS does not allow. The exit code
is 1 if there is any. A file may always include files of its own folder.

Usage: check_includes.py [FOLDER]   (without FOLDER: this repository)
"""

import re
import sys
from collections.abc import Iterator
from pathlib import Path

from compiledsources import REPO

# For each folder, the folders whose files it may include. This table is the whole architecture. An
# include that is not in it is an error, and so is a folder that is not in it.
#
# Some folders have a portable half and a Windows half. Of these, qmktool, fuzz, bench and
# tests/core may include only the portable half, which check_portable.py checks.
PORTABLE = "base account settings printing entry tools register exchange reports"
ROOMS = {
    "base": "",
    "account": "base",
    "toolkit": "base",
    "settings": "base toolkit",
    "printing": "base toolkit resources",
    "entry": "base account toolkit resources",
    "tools": "base account toolkit resources settings",
    # The window asks for the password of its account by the dialog in tools.
    "register": "base account toolkit resources entry printing tools",
    # The review of an import is a register of its own kind.
    "exchange": "base account toolkit resources register",
    "reports": "base account toolkit resources printing",
    "help": "base toolkit resources settings",
    "shell": f"{PORTABLE} toolkit resources help",
    "resources": "",
    "qmktool": PORTABLE,
    "fuzz": PORTABLE,
    "bench": PORTABLE,
    "tests/support": PORTABLE,
    "tests/core": f"{PORTABLE} tests/support resources",
    # These tests see the program from outside, so they may not include its Windows classes.
    "tests/e2e": f"{PORTABLE} tests/support resources",
    "tests/win": f"{PORTABLE} tests/support resources toolkit help shell",
    "tests/package": "",
}

SUFFIXES = (".h", ".cpp", ".rc")
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"')


def room_of(path: Path) -> str:
    """The folder of ROOMS that a file belongs to; empty for a file in the root."""
    depth = 2 if path.parts[0] == "tests" else 1
    return "/".join(path.parts[:depth]) if len(path.parts) > depth else ""


def sources(root: Path) -> Iterator[Path]:
    for path in sorted(root.rglob("*")):
        name = path.relative_to(root)
        if path.suffix in SUFFIXES and name.parts[0] != "build":
            yield name


def problems_in(root: Path, name: Path) -> Iterator[tuple[int, str]]:
    room = room_of(name)
    if room not in ROOMS:
        # The one header directly in tests is precompiled. It includes nothing of this repository.
        if room or name.parts[0] != "tests":
            yield 0, f"stands in a folder that {Path(__file__).name} does not know"
        return
    allowed = {room, *ROOMS[room].split()}
    text = (root / name).read_text(encoding="utf-8", errors="replace")
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if match and room_of(Path(match[1])) not in allowed:
            yield number, f"{room} must not include {match[1]}"


def findings(root: Path) -> list[str]:
    return [f"{name}:{number}: {what}"
            for name in sources(root) for number, what in problems_in(root, name)]


def main() -> int:
    found = findings(Path(sys.argv[1]).resolve() if len(sys.argv) > 1 else REPO)
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
