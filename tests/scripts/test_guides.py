"""What the guides name must exist: files, headers in their examples, classes and functions."""

import re
import unittest
from collections.abc import Iterator
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
CONTRIBUTING = REPO / "CONTRIBUTING.md"
GUIDES = (CONTRIBUTING, REPO / "README.md", REPO / "docs" / "architecture.md")
# A reader who follows the examples of CONTRIBUTING.md makes these files.
EXAMPLES = re.compile(r"(count|tsv)", re.IGNORECASE)

QUOTED = re.compile(r"`([^`\n]+)`")
FILE = re.compile(r"(?:[\w*]+/)+[\w*]*\.?\w*")
INCLUDE = re.compile(r'^ *#include "([^"]+)"', re.MULTILINE)
NAME = re.compile(r"\b(?:QM|V)[A-Z]+[a-z]\w+\b")


def quoted(guide: Path) -> Iterator[str]:
    text = re.sub(r"^ *```.*?^ *```", "", guide.read_text(encoding="utf-8"),
                  flags=re.MULTILINE | re.DOTALL)
    yield from QUOTED.findall(text)


def sources() -> str:
    folders = [path for path in REPO.iterdir()
               if path.is_dir() and path.name not in ("build", "tests", ".git")]
    return "\n".join(path.read_text(encoding="utf-8") for folder in folders
                     for path in folder.rglob("*") if path.suffix in (".h", ".cpp"))


class Guides(unittest.TestCase):
    def test_every_file_exists(self) -> None:
        for guide in GUIDES:
            found = [path for path in quoted(guide) if FILE.fullmatch(path)
                     if not EXAMPLES.search(path) and not path.startswith(("build/", "art/"))]
            self.assertGreater(len(found), 10)
            for path in found:
                self.assertTrue(list(REPO.glob(path.rstrip("/"))), f"{guide.name} names {path}")

    def test_every_header_of_an_example_exists(self) -> None:
        found = INCLUDE.findall(CONTRIBUTING.read_text(encoding="utf-8"))
        self.assertGreater(len(found), 5)
        for path in found:
            self.assertTrue(EXAMPLES.search(path) or (REPO / path).is_file(),
                            f"CONTRIBUTING.md includes {path}")

    def test_every_name_is_one_of_the_sources(self) -> None:
        known = set(NAME.findall(sources()))
        for guide in GUIDES:
            found = {name for text in quoted(guide) for name in NAME.findall(text)}
            self.assertEqual(found - known, set(), guide.name)


if __name__ == "__main__":
    unittest.main()
