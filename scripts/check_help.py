#!/usr/bin/env python3
"""Checks the sources of the help: every command of the menu has a topic, every link and every
picture has its file, every page is in the project, in the contents and, if it is a topic, in the
index, and the compiled file holds every page. Prints each problem. The exit code is 1 if there is
any.

Compiling needs chmcmd and reading back extract_chmLib; a machine without them checks the sources
alone, and says so.
"""

import re
import shutil
import subprocess
import sys
import tempfile
from collections.abc import Iterator
from pathlib import Path
from urllib.parse import urldefrag

REPO = Path(__file__).resolve().parent.parent
HELP = REPO / "help"
PAGES = HELP / "html"
PICTURES = REPO / "docs" / "images"

COMMAND = re.compile(r'MENUITEM\s+"[^"]*",\s*IDM_([A-Z]+)_([A-Z_]+)')
LINK = re.compile(r'(?:href|src)="([^"]*)"')
ANCHOR = re.compile(r'\bid="([^"]*)"')
LOCAL = re.compile(r'name="Local" value="([^"]*)"')
# Commands that have no topic of their own. The topic of another command tells of them.
SHARED = {("FILE", "RECENT_EMPTY"): "recent", ("TOOLS", "BANKWEBPAGE"): "webpage",
          **{("VIEW", column): "columns"
             for column in ("DATE", "NUMBER", "DESCRIPTION", "DEBIT", "CREDIT", "BALANCE", "MEMO",
                            "CATEGORY", "TAG", "CLEARED")}}


def pages() -> dict[str, str]:
    return {path.name: path.read_text(encoding="cp1252") for path in sorted(PAGES.glob("*.htm"))}


def commands_without_topic(texts: dict[str, str]) -> Iterator[str]:
    menu = (REPO / "resources" / "menu.rc").read_text(encoding="ascii")
    found = COMMAND.findall(menu)
    if not found:
        yield "resources/menu.rc: no command found"
    for topic, command in found:
        anchor = SHARED.get((topic, command), command.lower())
        page = f"qm_menu_{topic.lower()}.htm"
        if anchor not in ANCHOR.findall(texts.get(page, "")):
            yield f"IDM_{topic}_{command} has no topic {page}#{anchor}"


def missing(target: str, texts: dict[str, str]) -> bool:
    """Whether a link's target, as seen from help/html, is not there."""
    path, anchor = urldefrag(target)
    if path.startswith("../images/"):
        return not (PICTURES / path.removeprefix("../images/")).is_file()
    if path.endswith(".htm"):
        return path not in texts or (anchor != "" and anchor not in ANCHOR.findall(texts[path]))
    return not (PAGES / path).is_file()


def dead_links(texts: dict[str, str]) -> Iterator[str]:
    for name, text in texts.items():
        for target in LINK.findall(text):
            if target.startswith("#"):
                target = name + target
            if missing(target, texts):
                yield f"{name}: nothing is at {target}"


def listed(name: str) -> list[str]:
    """The targets of a contents or index file, as seen from help/html."""
    targets = LOCAL.findall((HELP / name).read_text(encoding="cp1252"))
    return [target.removeprefix("html/") for target in targets]


def gaps_in_lists(texts: dict[str, str]) -> Iterator[str]:
    for name in ("quillmark.hhc", "quillmark.hhk"):
        for target in listed(name):
            if missing(target, texts):
                yield f"{name}: nothing is at {target}"
    contents = {urldefrag(target)[0] for target in listed("quillmark.hhc")}
    for page in sorted(texts.keys() - contents):
        yield f"quillmark.hhc: {page} is missing"
    index = {urldefrag(target)[0] for target in listed("quillmark.hhk")}
    for page in sorted(texts.keys() - index):
        if page != "qm_welcome.htm" and not page.startswith("qm_menu_"):
            yield f"quillmark.hhk: {page} is missing"


def project_files() -> list[str]:
    project = (HELP / "quillmark.hhp").read_text(encoding="cp1252")
    return project.partition("[FILES]\n")[2].split()


def gaps_in_project(texts: dict[str, str]) -> Iterator[str]:
    used = {f"html/{name}" for name in texts}
    for name, text in texts.items():
        for target in LINK.findall(text):
            if not urldefrag(target)[0].endswith(".htm") and target != "":
                used.add(target.removeprefix("../") if target.startswith("../") else f"html/{target}")
    files = project_files()
    for name in sorted(used - set(files)):
        yield f"quillmark.hhp: {name} is missing"
    for name in sorted(set(files) - used):
        yield f"quillmark.hhp: {name} is not used"


def gaps_in_compiled(texts: dict[str, str]) -> Iterator[str]:
    if not shutil.which("chmcmd") or not shutil.which("extract_chmLib"):
        print("the help was not compiled: chmcmd or extract_chmLib is missing", file=sys.stderr)
        return
    with tempfile.TemporaryDirectory() as folder:
        compiled, again = Path(folder, "quillmark.chm"), Path(folder, "again.chm")
        read_back = Path(folder, "read")
        for out in (compiled, again):
            subprocess.run([REPO / "scripts" / "help.sh", Path(folder, f"for-{out.stem}"), out],
                           check=True)
        if compiled.read_bytes() != again.read_bytes():
            yield "quillmark.chm: the same pages gave other bytes"
        subprocess.run(["extract_chmLib", compiled, read_back], check=True, capture_output=True)
        for name in project_files():
            source = HELP / name if name.startswith("html/") else PICTURES / Path(name).name
            copy = read_back / name
            if not copy.is_file() or copy.read_bytes() != source.read_bytes():
                yield f"quillmark.chm: {name} is not in it as it is in the sources"


def problems() -> Iterator[str]:
    texts = pages()
    yield from commands_without_topic(texts)
    yield from dead_links(texts)
    yield from gaps_in_lists(texts)
    yield from gaps_in_project(texts)
    yield from gaps_in_compiled(texts)


def main() -> int:
    found = list(problems())
    print("\n".join(found), end="\n" if found else "")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
