#!/usr/bin/env python3
"""Holds built programs against what a release promises. For a Windows program: address-space
randomization, no execution of data, no section that can be both written and executed, no time of the
build, and imports that every Windows since 7 has (packaging/windows7-imports.txt). For a Linux
program: position-independent, relocations read-only, a guarded stack, no executable stack.
Prints each problem; exit code 1 if any.

Usage: check_binaries.py PROGRAM...
"""

import re
import struct
import subprocess
import sys
from collections.abc import Iterator
from pathlib import Path

REPO = Path(__file__).resolve().parent.parent
IMPORTS = REPO / "packaging" / "windows7-imports.txt"

DLL_CHARACTERISTICS = {0x0040: "address-space randomization", 0x0100: "no execution of data"}
HIGH_ENTROPY = 0x0020
WRITABLE, EXECUTABLE = 0x80000000, 0x20000000


def allowed_imports() -> set[tuple[str, str]]:
    """Pairs of a DLL in lower case and a function: a DLL's line ends in a colon, its functions
    follow, and what stands behind # is a remark."""
    allowed, dll = set(), ""
    for line in IMPORTS.read_text(encoding="ascii").splitlines():
        text = line.partition("#")[0].strip()
        if text.endswith(":"):
            dll = text[:-1].lower()
        elif text:
            allowed.update((dll, name) for name in text.split())
    return allowed


def imports_of(program: Path) -> Iterator[tuple[str, str]]:
    dump = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", program], check=True,
                          capture_output=True, text=True).stdout
    dll = ""
    for line in dump.splitlines():
        if name := re.match(r"\s*DLL Name: (\S+)", line):
            dll = name[1].lower()
        elif not line.strip():
            dll = ""
        elif dll and (entry := re.match(r"\s+[0-9a-f]+\s+(\d+|<none>)\s+(?:[0-9a-f]{4}\s+)?(\S+)$",
                                        line)):
            yield dll, entry[2]


def windows_problems(program: Path, data: bytes) -> Iterator[str]:
    header = struct.unpack_from("<I", data, 60)[0]
    sections, time = struct.unpack_from("<HI", data, header + 6)
    optional = header + 24
    is_64_bit = struct.unpack_from("<H", data, optional)[0] == 0x20B
    characteristics = struct.unpack_from("<H", data, optional + 70)[0]
    for bit, name in DLL_CHARACTERISTICS.items():
        if not characteristics & bit:
            yield f"lacks {name}"
    if is_64_bit and not characteristics & HIGH_ENTROPY:
        yield "lacks high-entropy addresses"
    # Without its relocations a program stays where it was linked to, whatever its header says.
    relocations = struct.unpack_from("<I", data, optional + (152 if is_64_bit else 136) + 4)[0]
    if relocations == 0:
        yield "has no relocations"
    if time != 0:
        yield "tells the time of its build"
    table = optional + struct.unpack_from("<H", data, header + 20)[0]
    for index in range(sections):
        flags = struct.unpack_from("<I", data, table + 40 * index + 36)[0]
        if flags & WRITABLE and flags & EXECUTABLE:
            name = data[table + 40 * index:][:8].rstrip(b"\0").decode("ascii", "replace")
            yield f"section {name} can be both written and executed"
    found = list(imports_of(program))
    if not found:
        yield "imports nothing that could be read"
    for pair in sorted(set(found) - allowed_imports()):
        yield f"imports {pair[0]}:{pair[1]}, which packaging/windows7-imports.txt does not name"


def linux_problems(program: Path) -> Iterator[str]:
    def readelf(option: str) -> str:
        return subprocess.run(["readelf", "-W", option, program], check=True, capture_output=True,
                              text=True).stdout
    segments, dynamic = readelf("-l"), readelf("-d")
    if not re.search(r"Type:\s+DYN", readelf("-h")):
        yield "is not position-independent"
    if "GNU_RELRO" not in segments or not re.search(r"BIND_NOW|\bNOW\b", dynamic):
        yield "can have its relocations written"
    if not re.search(r"GNU_STACK.*\bRW\s", segments):
        yield "has an executable stack"
    # A static program that was stripped has the message alone.
    guards = (b"__stack_chk_fail", b"stack smashing detected")
    if not any(guard in program.read_bytes() for guard in guards):
        yield "has no guarded stack"
    if re.search(r"LOAD.*\bRWE\b", segments):
        yield "has a segment that can be both written and executed"


def problems_of(program: Path) -> Iterator[str]:
    data = program.read_bytes()
    if data[:2] == b"MZ":
        yield from windows_problems(program, data)
    elif data[:4] == b"\x7fELF":
        yield from linux_problems(program)
    else:
        yield "is no program"


def main() -> int:
    programs = [Path(name) for name in sys.argv[1:]]
    found = [f"{program.name} {problem}" for program in programs for problem in problems_of(program)]
    print("\n".join(found), end="\n" if found else "")
    return 1 if found or not programs else 0


if __name__ == "__main__":
    sys.exit(main())
