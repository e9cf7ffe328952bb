"""What a build folder was made of, of this repository's own files."""

import json
import subprocess
from pathlib import Path

REPO = Path(__file__).resolve().parent.parent


def is_own(path: Path) -> bool:
    return path.is_relative_to(REPO) and not path.is_relative_to(REPO / "build")


def compile_entries(build: Path) -> list[dict[str, str]]:
    """The entries of compile_commands.json for own sources; there is always at least one."""
    text = (build / "compile_commands.json").read_text(encoding="utf-8")
    entries = [entry for entry in json.loads(text) if is_own(Path(entry["file"]))]
    if not entries:
        raise RuntimeError(f"{build} compiles no source of this repository")
    return entries


def headers_by_object(build: Path) -> dict[str, list[Path]]:
    """The own files that each object file was made of at the last build, by its path below the
    build folder."""
    text = subprocess.run(["ninja", "-C", str(build), "-t", "deps"], check=True,
                          capture_output=True, text=True).stdout
    headers: dict[str, list[Path]] = {}
    current = ""
    for line in text.splitlines():
        if line.startswith("    "):
            path = (build / line.strip()).resolve()
            if is_own(path):
                headers[current].append(path)
        elif ": #deps" in line:
            current = line.split(": #deps")[0]
            headers[current] = []
    return headers
