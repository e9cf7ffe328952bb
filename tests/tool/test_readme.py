"""Every example of the README is real: the blocks marked `console` are run, and what the program
prints must be what the README shows.

A line that starts with `$ ` is a command; the lines after it are its output. The commands run in
order in one folder, which holds a copy of the samples. A line that ends in ` ...` stands for every
line that begins so, and a line `...` for any number of lines. A failure is told on standard error
by one line, which the README shows like output.
"""

import re
import shlex
import shutil
import unittest
from pathlib import Path
from typing import Iterator, NamedTuple

from support import REPO, ToolTestCase, run

GUIDES = ("README.md", "CONTRIBUTING.md", "docs/architecture.md")
BLOCK = re.compile(r"^```console\n(.*?)^```$", re.MULTILINE | re.DOTALL)
CUT = " ..."
LEFT_OUT = "..."
PROMPT = "$ "


class Example(NamedTuple):
    command: str
    shown: list[str]

    def words(self) -> list[str]:
        program, *words = shlex.split(self.command)
        assert program == "qmktool", f"only qmktool can be run here, not '{self.command}'"
        return words


def examples_of(text: str) -> Iterator[Example]:
    for block in BLOCK.findall(text):
        example = None
        for line in block.splitlines():
            if line.startswith(PROMPT):
                if example:
                    yield example
                example = Example(line.removeprefix(PROMPT), [])
            else:
                assert example, f"a block starts with '{line}', which is no command"
                example.shown.append(line)
        if example:
            yield example


def pattern_of(shown: list[str]) -> str:
    """A regular expression that matches the lines of an example."""
    parts = []
    for line in shown:
        if line == LEFT_OUT:
            parts.append(r"(?:.*\n)*?")
        elif line.endswith(CUT):
            parts.append(re.escape(line.removesuffix(CUT)) + r".*\n")
        else:
            parts.append(re.escape(line) + r" *\n")
    return "".join(parts)


class Guides(ToolTestCase):

    def run_examples(self, guide: Path) -> int:
        count = 0
        for example in examples_of(guide.read_text(encoding="utf-8")):
            result = run(*example.words(), cwd=self.folder)
            # The lines of CSV end in two characters, those of the README in one.
            printed = (result.out + result.err).decode("utf-8").replace("\r\n", "\n")
            with self.subTest(guide=guide.name, command=example.command):
                self.assertRegex(printed, rf"\A{pattern_of(example.shown)}\Z", str(result))
            count += 1
        return count

    def test_every_example_prints_what_is_shown(self) -> None:
        shutil.copytree(REPO / "samples", self.folder / "samples")
        counts = {guide: self.run_examples(REPO / guide) for guide in GUIDES}
        self.assertGreaterEqual(counts["README.md"], 6)

    def test_an_example_that_is_not_so_is_found(self) -> None:
        for shown in (["Balance: 1.00"], ["..."], ["Bal ..."], []):
            with self.subTest(shown=shown):
                matches = re.fullmatch(pattern_of(shown), "Balance: 2.00\nAvailable: 2.00\n")
                self.assertEqual(bool(matches), shown == ["..."])


if __name__ == "__main__":
    unittest.main()
