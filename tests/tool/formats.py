"""A second statement of the exchange formats, to compare the program with: the bytes that each
writer makes of the entries of an account, and the entries that each reader makes of a file."""

import re
import xml.etree.ElementTree as ElementTree
from dataclasses import replace
from typing import Callable, Iterable

import rules
from rules import CREDITS, DEBITS, EXPENSE, NOT_CLEARED, TAX, VOIDED, as_single
from support import IS_WINDOWS, Day, Entry

LINE_END = b"\r\n" if IS_WINDOWS else b"\n"
KINDS = ("qif", "csv", "xml")

# How a reader finds a type: it compares the start of the text with these, in this order and without
# regard to case.
TYPE_NAMES = (("Check", 0), ("Deposit", 1), ("Withdrawal", 2), ("Fee", 3), ("Direct Deposit", 4),
              ("direct-deposit", 4), ("Direct Debit", 5), ("direct-debit", 5), ("ATM Deposit", 6),
              ("atm-deposit", 6), ("ATM Withdrawal", 7), ("atm-withdrawal", 7),
              ("Automatic Payment", 8), ("auto-payment", 8), ("Transfer - Credit", 9),
              ("transfer-credit", 9), ("Transfer - Debit", 10), ("transfer-debit", 10),
              ("Interest Paid", 11), ("interest", 11))

XML_TYPES = ("check", "deposit", "withdrawal", "fee", "direct-deposit", "direct-debit",
             "atm-deposit", "atm-withdrawal", "auto-payment", "transfer-credit", "transfer-debit",
             "interest")
XML_FRONT = b"""<?xml version="1.0" standalone="yes"?>
<!DOCTYPE DOCUMENT [
<!ELEMENT quillmark    (transaction)*>
<!ELEMENT transaction  (number?, date, description?, amount, memo?, category?, tag*)>
<!ATTLIST transaction  type (check | deposit | withdrawal | fee | direct-deposit | direct-debit | \
atm-deposit | atm-withdrawal | auto-payment | transfer-credit | transfer-debit | interest) \
#REQUIRED>
<!ELEMENT number       (#PCDATA)*>
<!ELEMENT date         (#PCDATA)*>
<!ELEMENT description  (#PCDATA)*>
<!ELEMENT amount       (#PCDATA)*>
<!ELEMENT memo         (#PCDATA)*>
<!ELEMENT category     (#PCDATA)*>
<!ELEMENT tag          (date)?>
<!ATTLIST tag          type (voided | expense | tax-deductible | cleared) #REQUIRED>
]>

<quillmark>
"""
CSV_HEADER = b"Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense"

# The values of a record before its fields are read.
NEW = Entry(type=0, day=Day(2000, 1, 1), number=0, amount=0.0, flags=NOT_CLEARED,
            cleared=Day(2000, 1, 1), description=b"", memo=b"", category=b"")


def as_file(lines: Iterable[bytes]) -> bytes:
    return b"".join(line + LINE_END for line in lines)


def unsigned(entry: Entry) -> bytes:
    return b"%.2f" % float("%.2f" % as_single(entry.amount))


def signed(entry: Entry) -> bytes:
    return (b"-" if entry.type in DEBITS else b"") + unsigned(entry)


def payee(entry: Entry) -> bytes:
    return rules.description_text(replace(entry, flags=0))


def slashed(day: Day) -> bytes:
    return b"%02d/%02d/%d" % (day.month, day.day, day.year)


# ---- The writers. The entries come in the order of the register.

def write_qif(entries: Iterable[Entry]) -> bytes:
    lines = [b"!Type:Bank"]
    for entry in entries:
        if entry.flags & VOIDED:
            continue
        lines.append(b"D" + slashed(entry.day))
        lines += [b"N%d" % entry.number] if entry.type == 0 else []
        lines.append(b"T" + signed(entry))
        for letter, text in ((b"P", payee(entry)), (b"M", entry.memo), (b"L", entry.category)):
            lines += [letter + text] if text else []
        lines += [] if entry.flags & NOT_CLEARED else [b"CX"]
        lines.append(b"^")
    return as_file(lines)


def write_csv(entries: Iterable[Entry]) -> bytes:
    def truth(holds: int) -> bytes:
        return b"True" if holds else b"False"

    return as_file([CSV_HEADER] + [b",".join((
        b"%2d/%2d/%d" % (entry.day.month, entry.day.day, entry.day.year),
        b"%d" % entry.number if entry.type == 0 else b"", payee(entry), signed(entry), entry.memo,
        entry.category, truth(~entry.flags & NOT_CLEARED), truth(entry.flags & VOIDED),
        truth(entry.flags & TAX), truth(entry.flags & EXPENSE))) for entry in entries])


def escaped(text: bytes) -> bytes:
    """Replaces only the first of several ampersands."""
    text = text.replace(b"&", b"&amp;", 1).replace(b"<", b"&lt;").replace(b">", b"&gt;")
    return text.replace(b"'", b"&apos;").replace(b'"', b"&quot;")


def write_xml(entries: Iterable[Entry]) -> bytes:
    lines = XML_FRONT.splitlines()
    for entry in entries:
        if not 0 <= entry.type < len(XML_TYPES):
            continue
        lines.append(b'<transaction type="%s">' % XML_TYPES[entry.type].encode())
        lines += [b"\t<number>%d</number>" % entry.number] if entry.type == 0 else []
        lines.append(b"\t<date>%s</date>" % slashed(entry.day))
        if entry.type == 0 and entry.description:
            lines.append(b"\t<description>%s</description>" % escaped(entry.description))
        lines.append(b"\t<amount>%s</amount>" % unsigned(entry))
        for name, text in ((b"memo", entry.memo), (b"category", entry.category)):
            lines += [b"\t<%s>%s</%s>" % (name, escaped(text), name)] if text else []
        for flag, name in ((VOIDED, b"voided"), (EXPENSE, b"expense"), (TAX, b"tax-deductible")):
            lines += [b'\t<tag type="%s"></tag>' % name] if entry.flags & flag else []
        if not entry.flags & NOT_CLEARED:
            lines.append(b'\t<tag type="cleared">%s</tag>' % slashed(entry.cleared or entry.day))
        lines.append(b"</transaction>")
    return as_file([*lines, b"</quillmark>"])


WRITERS: dict[str, Callable[[Iterable[Entry]], bytes]] = {
    "qif": write_qif, "csv": write_csv, "xml": write_xml}


def in_order(entries: Iterable[Entry]) -> list[Entry]:
    """The entries by date. An import corrects nothing; only the reader of account files does."""
    return sorted(entries, key=lambda entry: entry.day)


# ---- The readers, for the files that the writers above make.

def read_day(text: bytes) -> Day:
    month, day, year = map(int, text.split(b"/"))
    return Day(year, month, day)


def type_named(text: bytes) -> int:
    for name, number in TYPE_NAMES:
        if text.lower().startswith(name.lower().encode()):
            return number
    return -1


def with_payee(entry: Entry, text: bytes) -> Entry:
    """A text that begins with the name of a type gives that type. The rest is the description."""
    number = type_named(text)
    if number < 0:
        return replace(entry, description=text[:255] or entry.description)
    entry = replace(entry, type=number)
    shown = rules.description_text(entry)
    if number and len(text) > len(shown):
        entry = replace(entry, description=text[len(shown):][:255])
    return entry


def settled(entry: Entry) -> Entry:
    """Ends a record in QIF and CSV: the sign of the amount decides between debit and credit."""
    if entry.amount > 0:
        number = entry.type if entry.type in CREDITS else 1
    elif entry.type == 0:
        number = 0 if entry.number else 2
    else:
        number = entry.type if entry.type in DEBITS | {11} else 2
    return replace(entry, type=number, amount=abs(entry.amount),
                   cleared=max(entry.cleared or entry.day, entry.day))


def read_qif(data: bytes) -> list[Entry]:
    entries = []
    entry = NEW
    for line in data.splitlines():
        letter, rest = line[:1], line[1:]
        bare = rest.replace(b"[", b"").replace(b"]", b"")
        if letter == b"C" and rest[:1] in b"xX":
            entry = replace(entry, flags=entry.flags & ~NOT_CLEARED)
        elif letter == b"D":
            entry = replace(entry, day=read_day(rest))
        elif letter == b"L" and bare:
            entry = replace(entry, category=bare[:127])
        elif letter == b"M" and bare:
            entry = replace(entry, memo=bare[:255])
        elif letter == b"N":
            entry = replace(entry, number=int(rest), type=0)
        elif letter == b"P":
            entry = with_payee(entry, bare)
        elif letter == b"T":
            entry = replace(entry, amount=as_single(float(rest)))
        elif letter == b"^":
            entries.append(settled(entry))
            entry = NEW
    return entries


def read_csv(data: bytes) -> list[Entry]:
    """For files whose texts contain no comma."""
    entries = []
    for line in data.splitlines()[1:]:
        day, number, text, amount, memo, category, *tags = line.split(b",")
        entry = replace(NEW, day=read_day(day), number=int(number or 0),
                        amount=as_single(float(amount)), memo=memo[:255], category=category[:127])
        entry = with_payee(entry, text)
        cleared, voided, tax, expense = (tag == b"True" for tag in tags)
        flags = 0 if cleared else NOT_CLEARED
        flags = flags | VOIDED | NOT_CLEARED if voided else flags
        flags = flags & NOT_CLEARED | TAX if tax else flags
        flags = flags & NOT_CLEARED | EXPENSE if expense else flags
        entries.append(settled(replace(entry, flags=flags)))
    return entries


def read_xml(data: bytes) -> list[Entry]:
    """Takes the values as they are; no rule changes them."""
    text = re.sub(rb"<!DOCTYPE.*?\]>", b"", data, flags=re.DOTALL)
    return [xml_entry(element) for element in ElementTree.fromstring(text)]


def xml_entry(element: ElementTree.Element) -> Entry:
    def text_of(name: str) -> bytes:
        return (element.findtext(name) or "").encode()

    flags, cleared = NOT_CLEARED, Day(2000, 1, 1)
    for tag in element.iter("tag"):
        kind = tag.get("type")
        if kind == "voided":
            flags = VOIDED | NOT_CLEARED
        elif kind in ("expense", "tax-deductible"):
            flags = flags & NOT_CLEARED | (EXPENSE if kind == "expense" else TAX)
        else:
            flags, cleared = flags & ~NOT_CLEARED, read_day((tag.text or "").encode())
    return Entry(type=XML_TYPES.index(element.get("type", "")), day=read_day(text_of("date")),
                 number=int(text_of("number") or 1000), amount=as_single(float(text_of("amount"))),
                 flags=flags, cleared=cleared, description=text_of("description"),
                 memo=text_of("memo"), category=text_of("category"))


READERS: dict[str, Callable[[bytes], list[Entry]]] = {
    "qif": read_qif, "csv": read_csv, "xml": read_xml}
