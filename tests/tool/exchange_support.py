"""What the tests of qmktool's exchange formats share."""

import random
from dataclasses import replace
from pathlib import Path
from typing import Any, Iterable

import rules
from rules import EXPENSE, NOT_CLEARED, TAX, VOIDED
from support import Day, Entry, ToolTestCase, load_json, run

NOT_XML = "it is not a well-formed XML document"
SAFE = b"abcdefghijklmnopqrstuvwxyzABCXYZ0123456789 .:;!?*+=/#@_-"


def plain_entries(count: int, seed: int = 11) -> list[Entry]:
    """Valid entries of all types and tags, not in the order of their dates, with texts that every
    format can hold."""
    source = random.Random(seed)

    def text(longest: int) -> bytes:
        middle = bytes(source.choices(SAFE, k=source.choice((0, 1, 8, longest - 2))))
        return b"q" + middle + b"z" if source.random() < 0.8 else b""

    def entry() -> Entry:
        day = Day(source.randint(1998, 2004), source.randint(1, 12), source.randint(1, 28))
        flags = source.choice((0, NOT_CLEARED, VOIDED | NOT_CLEARED, TAX, EXPENSE | NOT_CLEARED))
        return Entry(source.randrange(12), day, source.randint(1, 9999999),
                     source.randint(1, 5000000) / 100, flags, day._replace(year=day.year + 1),
                     text(200), text(255), text(127))

    return [*(entry() for _ in range(count)), replace(entry(), day=Day(2005, 1, 1), flags=0)]


def shown(entries: Iterable[Entry]) -> list[dict[str, Any]]:
    """The fields that `list` prints of entries, in the order of the register; amounts are of single
    precision."""
    return [{"lType": entry.type, "dtDate": list(entry.day), "lNumber": entry.number,
             "fAmount": "%.9g" % rules.as_single(entry.amount), "lFlags": entry.flags,
             "dtCleared": list(entry.cleared or entry.day),
             "szDescription": entry.description.decode("latin-1"),
             "szMemo": entry.memo.decode("latin-1"),
             "szCategory": entry.category.decode("latin-1")}
            for entry in rules.register_order(entries)]


class ExchangeTestCase(ToolTestCase):

    def assert_converts(self, source: Path | str, out: str, *options: str) -> bytes:
        """Returns the bytes of OUT."""
        path = self.folder / out
        path.unlink(missing_ok=True)
        self.assert_done(run("convert", source, path, *options))
        self.assertFalse([name for name in self.names_in_folder() if ".part-" in name])
        return path.read_bytes()

    def assert_lists(self, account: Path, entries: Iterable[Entry]) -> None:
        result = self.assert_done(run("list", account, "--json"))
        rows = load_json(result.out, parse_float=str)["rows"]
        expected = shown(entries)
        self.assertEqual([{**{key: row[key] for key in expected[0]}, "fAmount": str(row["fAmount"])}
                          for row in rows] if expected else rows, expected)

    def assert_nothing_new(self, *names: str) -> None:
        self.assertEqual(self.names_in_folder(), sorted(names))
