#!/usr/bin/env python3
"""Makes an account file (.qmk) from a readable text source.

This script writes the file format independently of the program. It follows docs/file-format.md
alone, so that a file made here checks the program's own reader.

A source is UTF-8 text. Blank lines and lines that begin with # are ignored. It has two sections.
[account] holds "name = value" lines; HEADER_FIELDS below lists the names and their kinds. A field
that is not named keeps the value of a new account. [transactions] holds one entry a line:

    DATE TYPE [NUMBER] AMOUNT STATE [TAG] | DESCRIPTION | MEMO | CATEGORY

DATE is year-month-day. TYPE is a name from TYPES; check alone takes a NUMBER. AMOUNT is
positive, the type gives the sign. STATE is "open", "voided" or "cleared DATE". TAG is "tax" or
"expense". Texts at the end of the line may be left out. Entries may be in any order. The file gets
them in the same order, and entries of one day keep it in the register.
"""

import argparse
import re
import struct
import sys
from dataclasses import dataclass
from datetime import date
from decimal import Decimal
from pathlib import Path
from typing import Callable, NamedTuple

MAGIC = 0x35763685
FORMATS = {"1.0": 4096, "1.1": 4352, "2.0": 8192}
SCRAMBLED_BLOCK_VERSION = 4096
CATEGORY_VERSION = 8192
HEADER_SIZE = 1264
BLOCK_SIZE = 48

CODE_PAGE = "cp1252"
BLANK = 0x20
LOST_BYTE = 0xDF

DESCRIPTION_SIZE, MEMO_SIZE, CATEGORY_SIZE = 256, 256, 128
LARGEST_CHECK_NUMBER = 9999999
LARGEST_AMOUNT = Decimal("1e10")
FIRST_YEAR, LAST_YEAR = 1752, 3000
# A fresh record carries this number, and entries other than checks never change it.
UNUSED_NUMBER = 1000

FLAG_VOIDED, FLAG_EXPENSE, FLAG_TAX, FLAG_NOT_CLEARED = 1, 2, 4, 16
TAGS = {"tax": FLAG_TAX, "expense": FLAG_EXPENSE}


class TransactionType(NamedTuple):
    value: int
    sign: int


TYPES = {
    "check": TransactionType(0, -1),
    "deposit": TransactionType(1, +1),
    "withdrawal": TransactionType(2, -1),
    "fee": TransactionType(3, -1),
    "direct-deposit": TransactionType(4, +1),
    "direct-debit": TransactionType(5, -1),
    "atm-deposit": TransactionType(6, +1),
    "atm-withdrawal": TransactionType(7, -1),
    "auto-payment": TransactionType(8, -1),
    "transfer-credit": TransactionType(9, +1),
    "transfer-debit": TransactionType(10, -1),
    "interest": TransactionType(11, +1),
}
CHECK = TYPES["check"]


class HeaderField(NamedTuple):
    name: str
    offset: int
    size: int
    kind: str
    default: str


# Bytes that no row covers (53, 1039, 1214 to 1215, 1221 to 1223) are reserved and stay zero.
HEADER_FIELDS = (
    HeaderField("account number", 0, 32, "text", ""),
    HeaderField("date opened", 32, 16, "date", ""),
    HeaderField("minimum balance", 48, 4, "amount", "0"),
    HeaderField("read only", 52, 1, "flag", "no"),
    HeaderField("password", 54, 16, "text", ""),
    HeaderField("bank name", 70, 128, "text", ""),
    HeaderField("bank address", 198, 128, "text", ""),
    HeaderField("bank city", 326, 64, "text", ""),
    HeaderField("bank state", 390, 64, "text", ""),
    HeaderField("bank zip", 454, 16, "text", ""),
    HeaderField("bank phone", 470, 16, "text", ""),
    HeaderField("bank homepage", 486, 128, "text", ""),
    HeaderField("holder name", 614, 128, "text", ""),
    HeaderField("holder address", 742, 128, "text", ""),
    HeaderField("holder city", 870, 64, "text", ""),
    HeaderField("holder state", 934, 64, "text", ""),
    HeaderField("holder zip", 998, 16, "text", ""),
    HeaderField("holder phone", 1014, 16, "text", ""),
    HeaderField("grid lines", 1030, 1, "flag", "yes"),
    HeaderField("show date", 1031, 1, "flag", "yes"),
    HeaderField("show number", 1032, 1, "flag", "yes"),
    HeaderField("show description", 1033, 1, "flag", "yes"),
    HeaderField("show debit", 1034, 1, "flag", "yes"),
    HeaderField("show credit", 1035, 1, "flag", "yes"),
    HeaderField("show balance", 1036, 1, "flag", "yes"),
    HeaderField("show memo", 1037, 1, "flag", "yes"),
    HeaderField("show tag", 1038, 1, "flag", "yes"),
    HeaderField("width date", 1040, 4, "signed", "55"),
    HeaderField("width number", 1044, 4, "signed", "50"),
    HeaderField("width description", 1048, 4, "signed", "250"),
    HeaderField("width debit", 1052, 4, "signed", "60"),
    HeaderField("width credit", 1056, 4, "signed", "60"),
    HeaderField("width balance", 1060, 4, "signed", "75"),
    HeaderField("width memo", 1064, 4, "signed", "240"),
    HeaderField("width tag", 1068, 4, "signed", "30"),
    HeaderField("font style", 1072, 4, "unsigned", "0"),
    HeaderField("font color", 1076, 4, "unsigned", "0x00000000"),
    HeaderField("font face", 1080, 128, "text", "MS Shell Dlg"),
    HeaderField("font size", 1208, 4, "signed", "8"),
    HeaderField("shaded lines", 1212, 1, "flag", "yes"),
    HeaderField("show cleared", 1213, 1, "flag", "yes"),
    HeaderField("width cleared", 1216, 4, "signed", "30"),
    HeaderField("show category", 1220, 1, "flag", "no"),
    HeaderField("width category", 1224, 4, "signed", "240"),
    HeaderField("display period", 1228, 4, "unsigned", "0"),
    HeaderField("period from", 1232, 16, "date", ""),
    HeaderField("period to", 1248, 16, "date", ""),
)
FIELD_BY_NAME = {field.name: field for field in HEADER_FIELDS}


def scramble(region: bytes) -> bytes:
    """Complements all bytes but blanks, then reverses each whole group of four."""
    turned = bytes(byte if byte == BLANK else byte ^ 0xFF for byte in region)
    whole = len(turned) - len(turned) % 4
    groups = (turned[start:start + 4][::-1] for start in range(0, whole, 4))
    return b"".join(groups) + turned[whole:]


def require_kept(region: bytes, what: str) -> None:
    if LOST_BYTE in region:
        raise ValueError(f"{what} would hold a byte 0xDF, which comes back as a blank")


def pack_text(text: str, size: int) -> bytes:
    """The text's bytes without terminator; it must leave room for one in a field of size."""
    if re.search(r"[\x00-\x1f\x7f]", text):
        raise ValueError("a text holds a control character")
    try:
        packed = text.encode(CODE_PAGE)
    except UnicodeEncodeError:
        raise ValueError(f"a text holds a character outside {CODE_PAGE}") from None
    if len(packed) > size - 1:
        raise ValueError(f"a text of {len(packed)} characters where {size - 1} fit")
    return packed


def parse_date(text: str) -> date:
    match = re.fullmatch(r"([0-9]{4})-([0-9]{2})-([0-9]{2})", text)
    if not match:
        raise ValueError(f"'{text}' is not a date in the form 2004-02-29")
    try:
        day = date(*map(int, match.groups()))
    except ValueError:
        raise ValueError(f"no such day: {text}") from None
    if not FIRST_YEAR <= day.year <= LAST_YEAR:
        raise ValueError(f"year of {text} outside {FIRST_YEAR} to {LAST_YEAR}")
    return day


def pack_date(day: date) -> bytes:
    """Year, month, day of the week (unused), day, and four unused words for the time."""
    return struct.pack("<8H", day.year, day.month, 0, day.day, 0, 0, 0, 0)


def parse_amount(text: str) -> Decimal:
    if not re.fullmatch(r"[0-9]+(\.[0-9]{1,2})?", text):
        raise ValueError(f"'{text}' is not a positive amount in the form 12.34")
    amount = Decimal(text)
    if amount > LARGEST_AMOUNT:
        raise ValueError(f"amount {text} is above {LARGEST_AMOUNT:f}")
    return amount


def pack_amount(amount: Decimal) -> bytes:
    packed = struct.pack("<f", amount)
    if Decimal("%.2f" % struct.unpack("<f", packed)) != amount:
        raise ValueError(f"amount {amount} is not kept to the cent in single precision")
    return packed


def parse_whole_number(text: str, smallest: int, largest: int) -> int:
    if not re.fullmatch(r"-?[0-9]+|0[xX][0-9a-fA-F]+", text):
        raise ValueError(f"'{text}' is not a whole number")
    number = int(text, 16) if text[:2].lower() == "0x" else int(text)
    if not smallest <= number <= largest:
        raise ValueError(f"{text} is outside {smallest} to {largest}")
    return number


def pack_flag(text: str) -> bytes:
    if text not in ("yes", "no"):
        raise ValueError(f"'{text}' is neither yes nor no")
    return bytes([text == "yes"])


HEADER_PACKERS: dict[str, Callable[[str, int], bytes]] = {
    "text": lambda text, size: pack_text(text, size).ljust(size, b"\0"),
    "date": lambda text, size: pack_date(parse_date(text)) if text else bytes(size),
    "amount": lambda text, size: pack_amount(parse_amount(text)),
    "flag": lambda text, size: pack_flag(text),
    "signed": lambda text, size: struct.pack(
        "<i", parse_whole_number(text, -2**31, 2**31 - 1)),
    "unsigned": lambda text, size: struct.pack("<I", parse_whole_number(text, 0, 2**32 - 1)),
}


class Header:
    """The header block in plain form; starts as that of a new account."""

    def __init__(self) -> None:
        self._block = bytearray(HEADER_SIZE)
        self._named: set[str] = set()
        for field in HEADER_FIELDS:
            self._put(field, field.default)

    def set_from_line(self, line: str) -> None:
        name, equals, value = (part.strip() for part in line.partition("="))
        if not equals:
            raise ValueError("expected 'name = value'")
        if name not in FIELD_BY_NAME:
            raise ValueError(f"unknown name '{name}'")
        if name in self._named:
            raise ValueError(f"'{name}' is given twice")
        self._named.add(name)
        self._put(FIELD_BY_NAME[name], value)

    def _put(self, field: HeaderField, value: str) -> None:
        packed = HEADER_PACKERS[field.kind](value, field.size)
        require_kept(packed, f"'{field.name}'")
        self._block[field.offset:field.offset + field.size] = packed

    def encode(self) -> bytes:
        return scramble(bytes(self._block))


@dataclass(frozen=True)
class Transaction:
    type: TransactionType
    day: date
    number: int
    amount: Decimal
    flags: int
    cleared: date
    description: bytes
    memo: bytes
    category: bytes

    def counts_as_available(self) -> bool:
        return not self.flags & FLAG_VOIDED

    def counts_as_cleared(self) -> bool:
        return not self.flags & (FLAG_VOIDED | FLAG_NOT_CLEARED)

    def encode(self, version: int) -> bytes:
        texts = [self.description, self.memo]
        if version >= CATEGORY_VERSION:
            texts.append(self.category)
        return self._encode_block(version) + b"".join(map(encode_text, texts))

    def _encode_block(self, version: int) -> bytes:
        block = (struct.pack("<i", self.type.value) + pack_date(self.day)
                 + struct.pack("<I", self.number) + pack_amount(self.amount)
                 + struct.pack("<I", self.flags) + pack_date(self.cleared))
        if version != SCRAMBLED_BLOCK_VERSION:
            return block
        require_kept(block, "the date, number or amount")
        return scramble(block)


def encode_text(text: bytes) -> bytes:
    require_kept(text, "a text")
    return struct.pack("<I", len(text)) + scramble(text)


class Words:
    """The words of an entry in front of its texts, taken one after the other."""

    def __init__(self, text: str) -> None:
        self._words = text.split()

    def take(self, what: str) -> str:
        if not self._words:
            raise ValueError(f"the {what} is missing")
        return self._words.pop(0)

    def take_if_left(self) -> str | None:
        return self._words.pop(0) if self._words else None

    def require_end(self) -> None:
        if self._words:
            raise ValueError(f"'{self._words[0]}' is not expected here")


def parse_type(text: str) -> TransactionType:
    if text not in TYPES:
        raise ValueError(f"unknown type '{text}', not one of: {', '.join(TYPES)}")
    return TYPES[text]


def parse_state(words: Words, day: date) -> tuple[int, date]:
    """The flags and the cleared date of the words from the state on."""
    state = words.take("state (open, voided or cleared)")
    if state == "voided":
        return FLAG_VOIDED | FLAG_NOT_CLEARED, day
    flags, cleared = FLAG_NOT_CLEARED, day
    if state == "cleared":
        flags, cleared = 0, parse_date(words.take("cleared date"))
        if cleared < day:
            raise ValueError(f"cleared {cleared}, before its own date {day}")
    elif state != "open":
        raise ValueError(f"unknown state '{state}', not one of: open, voided, cleared")
    tag = words.take_if_left()
    if tag is not None and tag not in TAGS:
        raise ValueError(f"unknown tag '{tag}', not one of: {', '.join(TAGS)}")
    return flags | TAGS.get(tag or "", 0), cleared


def parse_texts(texts: list[str]) -> list[bytes]:
    sizes = (DESCRIPTION_SIZE, MEMO_SIZE, CATEGORY_SIZE)
    if len(texts) > len(sizes):
        raise ValueError("more than three texts: description, memo, category")
    texts = texts + [""] * (len(sizes) - len(texts))
    return [pack_text(text.strip(), size) for text, size in zip(texts, sizes)]


def parse_transaction(line: str) -> Transaction:
    particulars, *texts = line.split("|")
    words = Words(particulars)
    day = parse_date(words.take("date"))
    kind = parse_type(words.take("type"))
    number = UNUSED_NUMBER
    if kind is CHECK:
        number = parse_whole_number(words.take("check number"), 1, LARGEST_CHECK_NUMBER)
    amount = parse_amount(words.take("amount"))
    flags, cleared = parse_state(words, day)
    words.require_end()
    if not amount and not flags & FLAG_VOIDED:
        raise ValueError("an amount of 0 is for voided entries only")
    return Transaction(kind, day, number, amount, flags, cleared, *parse_texts(texts))


class Account:
    """What has been read of a source so far."""

    def __init__(self, version: int) -> None:
        self.version = version
        self.header = Header()
        self.entries: list[bytes] = []
        self.balance = Decimal("0.00")
        self.available = Decimal("0.00")

    def add_from_line(self, line: str) -> None:
        transaction = parse_transaction(line)
        self.entries.append(transaction.encode(self.version))
        signed = transaction.type.sign * transaction.amount
        self.balance += signed if transaction.counts_as_cleared() else 0
        self.available += signed if transaction.counts_as_available() else 0

    def encode(self) -> bytes:
        prefix = struct.pack("<IIiI", MAGIC, self.version, len(self.entries), HEADER_SIZE)
        sizes = struct.pack("<I", BLOCK_SIZE)
        return prefix + self.header.encode() + sizes + b"".join(self.entries)


class SourceReader:
    """Feeds the lines of a source to the account, each to the section that it stands in."""

    def __init__(self, account: Account) -> None:
        self._unread = {
            "[account]": account.header.set_from_line,
            "[transactions]": account.add_from_line,
        }
        self._take_line = self._refuse_line

    def read_line(self, line: str) -> None:
        if not line or line.startswith("#"):
            return
        if line.startswith("["):
            if line not in self._unread:
                raise ValueError(f"section {line} is unknown or given twice")
            self._take_line = self._unread.pop(line)
        else:
            self._take_line(line)

    @staticmethod
    def _refuse_line(line: str) -> None:
        raise ValueError("a line in front of the first section, [account] or [transactions]")


def read_source(path: Path, version: int) -> Account:
    """Raises ValueError with file, line and reason for a malformed source."""
    account = Account(version)
    reader = SourceReader(account)
    for number, line in enumerate(path.read_bytes().split(b"\n"), start=1):
        try:
            reader.read_line(line.decode("utf-8").strip())
        except UnicodeDecodeError:
            raise ValueError(f"{path}:{number}: the line is not UTF-8") from None
        except ValueError as error:
            raise ValueError(f"{path}:{number}: {error}") from None
    return account


def parse_arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(description="Makes an account file from a text source.")
    parser.add_argument("source", type=Path, metavar="SOURCE.txt")
    parser.add_argument("out", type=Path, metavar="OUT.qmk", help="replaced if it exists")
    parser.add_argument("--format", choices=FORMATS, default="2.0")
    return parser.parse_args()


def main() -> int:
    arguments = parse_arguments()
    try:
        if arguments.out.exists() and arguments.out.samefile(arguments.source):
            raise ValueError(f"{arguments.out}: the source itself would be replaced")
        account = read_source(arguments.source, FORMATS[arguments.format])
        arguments.out.write_bytes(account.encode())
    except (OSError, ValueError) as error:
        print(f"make_sample: {error}", file=sys.stderr)
        return 1
    print(f"{arguments.out}: format {arguments.format}, {len(account.entries)} transactions, "
          f"balance {account.balance:.2f}, available {account.available:.2f}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
