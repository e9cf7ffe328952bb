"""The picture in docs/architecture.md against the table of includes: same folders, same arrows."""

import re
import sys
import unittest
from pathlib import Path

REPO = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(REPO / "scripts"))

from check_includes import ROOMS  # noqa: E402

DOT = REPO / "docs" / "architecture.dot"
GUIDE = REPO / "docs" / "architecture.md"
# Shown as text in the guide, not drawn.
NOT_DRAWN = {"fuzz", "bench", "tests/support", "tests/core", "tests/e2e", "tests/win"}
ARROW = re.compile(r"^ *(\w+) -> (\w+)$", re.MULTILINE)

Arrows = dict[str, set[str]]


def drawn() -> Arrows:
    arrows: Arrows = {}
    for start, end in ARROW.findall(DOT.read_text(encoding="utf-8")):
        arrows.setdefault(start, set()).add(end)
    return arrows


def reached(arrows: Arrows, start: str) -> set[str]:
    """All that can be reached from a folder along the arrows."""
    found: set[str] = set()
    waiting = [start]
    while waiting:
        new = arrows.get(waiting.pop(), set()) - found
        found |= new
        waiting += new
    return found


class Architecture(unittest.TestCase):
    def setUp(self) -> None:
        self.allowed = {room: set(may.split()) for room, may in ROOMS.items()
                        if room not in NOT_DRAWN}

    def test_the_picture_has_only_allowed_arrows(self) -> None:
        for start, ends in drawn().items():
            for end in ends:
                self.assertIn(end, self.allowed[start], f"{start} -> {end}")

    def test_every_allowed_arrow_follows_from_the_picture(self) -> None:
        arrows = drawn()
        for start, ends in self.allowed.items():
            for end in ends:
                self.assertIn(end, reached(arrows, start), f"{start} -> {end}")

    def test_the_guide_tells_of_every_folder(self) -> None:
        text = GUIDE.read_text(encoding="utf-8")
        for room in ROOMS:
            self.assertIn(f"`{room.split('/')[0]}/", text)


if __name__ == "__main__":
    unittest.main()
