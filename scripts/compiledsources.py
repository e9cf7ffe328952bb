"""What a build folder is made of, of this repository's own files."""

import json
import re
from functools import cache
from pathlib import Path

REPO = Path(__file__).resolve().parent.parent
# Own headers are named from the repository's folder.
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def is_own(path: Path) -> bool:
    return path.is_relative_to(REPO) and not path.is_relative_to(REPO / "build")


def compile_entries(build: Path) -> list[dict[str, str]]:
    """The entries of compile_commands.json for own sources; there is always at least one."""
    text = (build / "compile_commands.json").read_text(encoding="utf-8")
    entries = [entry for entry in json.loads(text) if is_own(Path(entry["file"]))]
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
