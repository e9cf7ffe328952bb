#!/usr/bin/env python3
"""Runs clang-tidy over the sources of several build folders, except the tests. Warnings are errors.
A source that several of the folders compile is checked as the first of them compiles it. The exit
code is 1 if clang-tidy found anything.

Usage: tidy.py BUILD_FOLDER...

clang-tidy spends most of its time in headers, above all in those of Windows. So this script checks
several sources at once: it writes a file that includes them all. Where it finds anything in them, or
they cannot be compiled together, it checks each half of them, and at last one by one. A source
found clean is checked again only after it, one of its headers, its compiler options or the checks
have changed. The folder build/tidy holds what is known to be clean.
"""

import hashlib
import os
import re
import shlex
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from functools import cache
from pathlib import Path

from compiledsources import REPO, compile_entries, headers_in

MEMORY = REPO / "build" / "tidy"
GROUPS = REPO / "build" / "tidy-groups"
# Larger groups save little time, and one processor would wait for the other.
LARGEST_GROUP = 16
NOISE = re.compile(
    r"^(\d+ warnings? (generated|treated as error)|Suppressed \d+|Use -header-filter)")
# Options in which the sources of a folder may differ, and options that Clang does not know.
OWN_OPTIONS = re.compile(r"-o|-c|-include|-Winvalid-pch|-fpch-preprocess|-mstackrealign")
INNER_NAME = re.compile(r"^(?!namespace|using namespace|#|//|[{}])[^\s(=\[{;][^(=\[{;]*?(\w+)\s*"
                        r"(?:[(=\[{;:]|$)", re.MULTILINE)
INNER_PART = re.compile(r"^namespace \{\n(.*?)^\} // namespace$", re.MULTILINE | re.DOTALL)
MACRO = re.compile(r"^#\s*define\s+(\w+)", re.MULTILINE)


@dataclass(frozen=True)
class Source:
    path: Path
    options: tuple[str, ...]  # for Clang

    @property
    def key(self) -> str:
        """Changes with everything that the findings depend on."""
        files = sorted({self.path, *headers_in(self.path), *configurations(self.path),
                        Path(__file__)})
        parts = [*self.options, *(f"{path} {digest(path)}" for path in files)]
        return hashlib.sha256("\n".join(parts).encode()).hexdigest()

    @property
    def inner_names(self) -> set[str]:
        """The names that are only its own. No other source in the same group may have them."""
        text = self.path.read_text(encoding="utf-8", errors="replace")
        inner = "".join(INNER_PART.findall(text))
        return set(INNER_NAME.findall(inner)) | set(MACRO.findall(text))


@cache
def digest(path: Path) -> str:
    return hashlib.sha256(path.read_bytes()).hexdigest() if path.exists() else "gone"


def configurations(source: Path) -> list[Path]:
    """The .clang-tidy files that hold for a source."""
    return [folder / ".clang-tidy" for folder in source.parents if folder.is_relative_to(REPO)]


@cache
def include_folders(compiler: str) -> tuple[str, ...]:
    """Where a compiler for Windows looks for its headers, as options for Clang."""
    said = subprocess.run([compiler, "-E", "-x", "c++", "-v", os.devnull], capture_output=True,
                          text=True, check=True).stderr
    listed = said.split("#include <...> search starts here:\n")[1].split("End of search list")[0]
    folders = [os.path.normpath(line.strip()) for line in listed.splitlines()]
    # Clang has its own headers for the processor's instructions and the like.
    own = re.compile(r".*/lib/gcc/[^/]+/[^/]+/include(-fixed)?")
    return tuple(f"-isystem{folder}" for folder in folders if not own.fullmatch(folder))


def options_of(entry: dict[str, str]) -> tuple[str, ...]:
    compiler, *words = shlex.split(entry["command"])
    kept = [word for before, word in zip(["", *words], words)
            if not OWN_OPTIONS.fullmatch(word) and before not in ("-o", "-include")
            and word != entry["file"]]
    # The command lines are those of GCC, and clang-tidy does not know all its warning options.
    kept.append("-Wno-unknown-warning-option")
    target = re.match(r"(\w+-w64-mingw32)-", Path(compiler).name)
    if target:
        kept += [f"--target={target[1]}", "-nostdinc++", *include_folders(compiler)]
    return tuple(kept)


def sources_of(builds: list[Path]) -> list[Source]:
    # Because of the macros of GoogleTest, the tests would take several times as long as all others.
    found: dict[Path, Source] = {}
    for build in builds:
        for entry in compile_entries(build):
            path = Path(entry["file"])
            if path.suffix == ".cpp" and path not in found and not path.is_relative_to(REPO / "tests"):
                found[path] = Source(path, options_of(entry))
    return list(found.values())


def groups_of(sources: list[Source]) -> list[list[Source]]:
    """Groups sources of the same options and checks, as long as their own names are different."""
    groups: list[tuple[object, set[str], list[Source]]] = []
    for source in sources:
        checks = [file for file in configurations(source.path) if file.exists()]
        kind, names = (checks, source.options), source.inner_names
        for group_kind, group_names, members in groups:
            if kind == group_kind and not names & group_names and len(members) < LARGEST_GROUP:
                group_names |= names
                members.append(source)
                break
        else:
            groups.append((kind, names, [source]))
    return [members for _, _, members in groups]


def check_file(path: Path, options: tuple[str, ...]) -> str:
    """Returns what was found, empty if nothing."""
    run = subprocess.run(
        ["clang-tidy", "--quiet", "--warnings-as-errors=*", str(path), "--", *options],
        cwd=REPO, capture_output=True, text=True, check=False)
    if run.returncode == 0:
        return ""
    lines = (run.stdout + run.stderr).splitlines()
    kept = [line for line in lines if not NOISE.match(line)]
    return "\n".join(kept) or f"clang-tidy ended with code {run.returncode}: {path}"


def check_group(group: list[Source]) -> list[tuple[Source, str]]:
    """What was found in each source of a group."""
    if len(group) == 1:
        return [(group[0], check_file(group[0].path, group[0].options))]
    together = GROUPS / f"{group[0].path.parent.name}-{group[0].path.stem}.cpp"
    lines = [f'#include "{source.path}" // NOLINT\n' for source in group]
    together.write_text("".join(lines), encoding="utf-8")
    if not check_file(together, group[0].options):
        return [(source, "") for source in group]
    # Smaller groups show which source it is, or that they only cannot be checked together.
    middle = len(group) // 2
    return check_group(group[:middle]) + check_group(group[middle:])


def main() -> int:
    sources = sources_of([Path(name).resolve() for name in sys.argv[1:]])
    keys = {source: source.key for source in sources}
    MEMORY.mkdir(parents=True, exist_ok=True)
    GROUPS.mkdir(parents=True, exist_ok=True)
    due = [source for source in sources if not (MEMORY / keys[source]).exists()]
    failed = 0
    # The largest group comes first, so that at the end no processor waits long for another.
    groups = sorted(groups_of(due), key=len, reverse=True)
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        for results in pool.map(check_group, groups):
            for source, found in results:
                if found:
                    failed += 1
                    print(found, flush=True)
                else:
                    (MEMORY / keys[source]).touch()
    for stale in MEMORY.iterdir():
        if stale.name not in keys.values():
            stale.unlink()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
