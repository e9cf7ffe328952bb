"""A second statement of the rules of the register, to compare the program with."""

import struct
import unicodedata
from dataclasses import dataclass, replace
from typing import Any, Iterable

from support import V1_0, V2_0, Day, Entry

LABELS = ("Check", "Deposit", "Withdrawal", "Fee", "Direct Deposit", "Direct Debit", "ATM Deposit",
          "ATM Withdrawal", "Automatic Payment", "Transfer - Credit", "Transfer - Debit",
          "Interest Paid")
DEBITS = {0, 2, 3, 5, 7, 8, 10}
CREDITS = {1, 4, 6, 9, 11}

VOIDED, EXPENSE, TAX, NOT_CLEARED = 1, 2, 4, 16
TAG_LETTERS = ((VOIDED, b"V"), (EXPENSE, b"E"), (TAX, b"T"), (NOT_CLEARED, b"NC"))

# Characters that take no column of a terminal, and the soft hyphen, which takes one.
ZERO_WIDTH = "\u200b\u200c\u200d"
SOFT = "\xad"

LONGEST_TEXT = 255
LONGEST_MONEY = 31

COLUMNS = ("Date", "Number", "Description", "Debit", "Credit", "Balance", "Tag", "Memo",
           "Category")
RIGHT_ALIGNED = {"Date", "Number", "Debit", "Credit", "Balance"}


@dataclass(frozen=True)
class Row:
    """What the register shows of one entry; column texts are bytes."""
    position: int
    entry: Entry
    columns: dict[str, bytes]
    decoration: int


@dataclass(frozen=True)
class Register:
    rows: list[Row]
    balance: float
    available: float


def lose_bytes(region: bytes) -> bytes:
    """The bytes of a region after scrambling and unscrambling."""
    return region.replace(b"\xdf", b" ")


def as_single(amount: float) -> float:
    return struct.unpack("<f", struct.pack("<f", amount))[0]


def as_read(entry: Entry, version: int = V2_0) -> Entry:
    """The entry as the program holds it after reading."""
    held = replace(entry, amount=as_single(entry.amount), cleared=entry.cleared or entry.day,
                   description=read_text(entry.description), memo=read_text(entry.memo),
                   category=read_text(entry.category) if version >= V2_0 else b"")
    if version == V1_0:
        held = unscrambled_block(held)
    if held.cleared < held.day:
        held = replace(held, cleared=held.day)
    return replace(held, flags=held.flags | NOT_CLEARED) if held.flags & VOIDED else held


def read_text(text: bytes) -> bytes:
    return lose_bytes(text).partition(b"\0")[0]


def unscrambled_block(entry: Entry) -> Entry:
    def through(form: str, value: Any) -> Any:
        return struct.unpack(form, lose_bytes(struct.pack(form, value)))[0]

    def day_through(day: Day) -> Day:
        return Day(*(through("<H", part) for part in day))

    return replace(entry, type=through("<i", entry.type), day=day_through(entry.day),
                   number=through("<I", entry.number), amount=through("<f", entry.amount),
                   flags=through("<I", entry.flags), cleared=day_through(entry.cleared))


def register_order(entries: Iterable[Entry], version: int = V2_0) -> list[Entry]:
    """The entries as the program reads them, by date. Those of one day keep their order."""
    return sorted((as_read(entry, version) for entry in entries), key=lambda entry: entry.day)


def side_of(entry: Entry) -> int:
    return -1 if entry.type in DEBITS else 1 if entry.type in CREDITS else 0


def date_text(day: Day) -> bytes:
    return b"%2d/%2d/%02d" % (day.month, day.day, day.year % 100)


def number_text(entry: Entry) -> bytes:
    signed, = struct.unpack("<i", struct.pack("<I", entry.number))
    return b"%5d" % signed if entry.type == 0 else b" " * 5


def description_text(entry: Entry) -> bytes:
    text = entry.description
    if entry.type != 0:
        text = LABELS[entry.type].encode()
        if len(entry.description) >= 2:
            text += b" - " + entry.description
    text = text[:LONGEST_TEXT]
    return (text + b"   (voided)" if entry.flags & VOIDED else text)[:LONGEST_TEXT]


def money_text(form: bytes, value: float) -> bytes:
    return (form % value)[:LONGEST_MONEY]


def tag_text(entry: Entry) -> bytes:
    return b", ".join(letters for flag, letters in TAG_LETTERS if entry.flags & flag)


def column_texts(entry: Entry, shown_balance: float) -> dict[str, bytes]:
    if not 0 <= entry.type < len(LABELS):
        return dict.fromkeys(COLUMNS, b"")
    amount = money_text(b"%10.2f", entry.amount)
    debit, credit = (amount, b"") if side_of(entry) < 0 else (b"", amount)
    texts = (date_text(entry.day), number_text(entry), description_text(entry), debit, credit,
             money_text(b"%.2f", shown_balance), tag_text(entry), entry.memo, entry.category)
    return dict(zip(COLUMNS, texts, strict=True))


def decoration_of(entry: Entry, shown_balance: float) -> int:
    mark = 16 if entry.flags & VOIDED else 0 if entry.flags & NOT_CLEARED else 32
    sign = 1 if shown_balance >= 0 else 2
    tag = 4 if entry.flags & TAX else 8 if entry.flags & EXPENSE else 0
    return mark | sign | tag


def register_of(entries: Iterable[Entry], version: int = V2_0, cleared_balance: bool = False,
                period: tuple[Day, Day] | None = None) -> Register:
    balance = available = 0.0
    rows = []
    for position, entry in enumerate(register_order(entries, version)):
        signed = side_of(entry) * float("%.2f" % entry.amount) if side_of(entry) else 0.0
        if not entry.flags & VOIDED:
            available += signed
            balance += 0.0 if entry.flags & NOT_CLEARED else signed
        shown = balance if cleared_balance else available
        if period is None or period[0] <= entry.day <= period[1]:
            rows.append(Row(position, entry, column_texts(entry, shown),
                            decoration_of(entry, shown)))
    return Register(rows, balance, available)


def shown_character(character: str) -> str:
    """The character as a terminal may get it, so that it is never a command."""
    code = ord(character)
    if code < 0x20 or code == 0x7F:
        return chr(0x2400 + code if code < 0x20 else 0x2421)
    category = unicodedata.category(character)
    if category in ("Cc", "Zl", "Zp") or (category == "Cf" and character not in ZERO_WIDTH + SOFT):
        return f"\\u{code:04X}"
    return character


def shown(text: bytes, encoding: str = "cp1252") -> str:
    """The characters of a text. A byte that is no character becomes its number."""
    decoded = text.decode(encoding, "surrogateescape")
    return "".join(f"\\x{ord(one) - 0xDC00:02X}" if 0xDC80 <= ord(one) <= 0xDCFF
                   else shown_character(one) for one in decoded)


def columns_of(text: str) -> int:
    """How many columns of a terminal the characters take."""
    def width(one: str) -> int:
        if unicodedata.category(one) in ("Mn", "Me") or one in ZERO_WIDTH:
            return 0
        return 2 if unicodedata.east_asian_width(one) in "WF" else 1
    return sum(map(width, text))


def text_line(line: dict[str, str], widths: dict[str, int]) -> bytes:
    """One line of cells, without blanks at its end."""
    text, missing = "", 0
    for column in COLUMNS:
        blanks = widths[column] - columns_of(line[column])
        missing += blanks if column in RIGHT_ALIGNED else 0
        if line[column]:
            text += " " * missing + line[column]
            missing = 0
        missing += (0 if column in RIGHT_ALIGNED else blanks) + 2
    return text.encode()


def text_lines(register: Register, encoding: str = "cp1252") -> list[bytes]:
    """The listing for people: headings, rows, two sums."""
    table = [{column: column.encode() for column in COLUMNS}]
    table += [row.columns for row in register.rows]
    table = [{column: shown(text, encoding) for column, text in line.items()} for line in table]
    widths = {column: max(columns_of(line[column]) for line in table) for column in COLUMNS}
    lines = [text_line(line, widths) for line in table]
    return lines + [b"Balance:   %.2f" % register.balance, b"Available: %.2f" % register.available]


ORDER_GUESSED = b", month and day perhaps exchanged: every day is below 13 (see --dates)"


def order_note(days: Iterable[Day]) -> bytes:
    """The remark about dates that were read month first when no day above 12 proves that order."""
    told = [day for day in days if day != Day(2000, 1, 1) and 1 <= day.month <= 12]
    doubtful = any(day.day != day.month for day in told) and all(day.day < 13 for day in told)
    return ORDER_GUESSED if doubtful else b""
