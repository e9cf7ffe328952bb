"""What a build folder is made of, of this repository's own files."""

import json
import re
from functools import cache
from pathlib import Path

REPO = Path(__file__).resolve().parent.parent
# Own headers are named from the repository's folder.
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
# CMake writes a source into such a folder for sources that are compiled together.
TOGETHER = "Unity"


def is_own(path: Path) -> bool:
    return path.is_relative_to(REPO) and not path.is_relative_to(REPO / "build")


def entry_of_each(entry: dict[str, str]) -> list[dict[str, str]]:
    """An entry for each of the sources that one entry compiles together."""
    file = entry["file"]
    if Path(file).parent.name != TOGETHER:
        return [entry]
    names = INCLUDE.findall(Path(file).read_text(encoding="utf-8"))
    return [entry | {"file": name, "command": entry["command"].replace(file, name)}
            for name in names if name.endswith(".cpp")]


def compile_entries(build: Path) -> list[dict[str, str]]:
    """The entries of compile_commands.json for own sources; there is always at least one."""
    text = (build / "compile_commands.json").read_text(encoding="utf-8")
    entries = [each for entry in json.loads(text) for each in entry_of_each(entry)
               if is_own(Path(each["file"]))]
    if not entries:
        raise RuntimeError(f"{build} compiles no source of this repository")
    return entries


@cache
def headers_in(source: Path) -> frozenset[Path]:
    """The own files that a source includes, and those that these include in turn."""
    found: set[Path] = set()
    due = [source]
    while due:
        text = due.pop().read_text(encoding="utf-8", errors="replace")
        headers = {REPO / name for name in INCLUDE.findall(text)}
        fresh = {header for header in headers if header.exists()} - found
        found |= fresh
        due += fresh
    return frozenset(found)
