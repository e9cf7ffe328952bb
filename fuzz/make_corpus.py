#!/usr/bin/env python3
"""Writes the first inputs of the account reader's fuzzer: corpus/account/good_* and bad_*.

The test run reads each of them too: the good ones must be accepted, the bad ones refused. Most have
no header block, which a reader accepts, so that the interesting bytes are not lost among zeroes.
"""

import struct
from pathlib import Path

MAGIC = 0x35763685
FOLDER = Path(__file__).resolve().parent / "corpus" / "account"


def scrambled(plain: bytes) -> bytes:
    turned = bytes(byte if byte == 0x20 else byte ^ 0xFF for byte in plain)
    whole = len(turned) // 4 * 4
    groups = b"".join(turned[i:i + 4][::-1] for i in range(0, whole, 4))
    return groups + turned[whole:]


def number(value: int) -> bytes:
    return struct.pack("<I", value & 0xFFFFFFFF)


def date(year: int, month: int, day: int) -> bytes:
    return struct.pack("<8H", year, month, 0, day, 0, 0, 0, 0)


def block(kind: int = 0, day: tuple[int, int, int] = (2004, 3, 14), amount: float = 12.5,
          flags: int = 16, cleared: tuple[int, int, int] | None = None) -> bytes:
    return (struct.pack("<i", kind) + date(*day) + struct.pack("<IfI", 1000, amount, flags)
            + date(*(cleared or day)))


def text(plain: bytes) -> bytes:
    return number(len(plain)) + scrambled(plain)


def entry(version: int, plain_block: bytes, *texts: bytes) -> bytes:
    all_texts = [*texts, b"", b"", b""][:3 if version >= 8192 else 2]
    stored = scrambled(plain_block) if version == 4096 else plain_block
    return stored + b"".join(map(text, all_texts))


def account(*entries: bytes, version: int = 8192, count: int | None = None, header: bytes = b"",
            header_size: int | None = None, block_size: int = 48) -> bytes:
    return (number(MAGIC) + number(version) + number(len(entries) if count is None else count)
            + number(len(header) if header_size is None else header_size) + scrambled(header)
            + number(block_size) + b"".join(entries))


def full_header() -> bytes:
    header = bytearray(1264)
    for offset, name in ((0, b"12-345"), (54, b"secret"), (70, b"First Example Bank"),
                         (1080, b"Sans")):
        header[offset:offset + len(name)] = name
    struct.pack_into("<8i", header, 1040, 55, 50, 250, 60, 60, 75, 240, 30)
    struct.pack_into("<I", header, 1228, 4)
    header[1232:1264] = date(2014, 1, 1) + date(2015, 12, 31)
    return bytes(header)


def two_entries(version: int, header: bytes = b"") -> bytes:
    return account(
        entry(version, block(day=(2004, 3, 14), flags=0), b"Oak Street", b"gate hinges", b"House"),
        entry(version, block(1, (2004, 3, 15), 250.0), b"Refund"), version=version, header=header)


def good_inputs() -> dict[str, bytes]:
    header = full_header()
    return {
        **{f"empty_{version}": account(version=version, header=header)
           for version in (4096, 4352, 8192)},
        **{f"two_entries_{version}": two_entries(version)
           for version in (4096, 4352, 5000, 8192)},
        "two_entries_with_header": two_entries(8192, header),
        "unsorted": account(*(entry(8192, block(day=(2004, month, 1)), b"entry")
                              for month in (5, 2, 9, 2, 5))),
        "one_day": account(*(entry(8192, block(kind), b"entry") for kind in range(12))),
        "longest_texts": account(entry(8192, block(), b"d" * 255, b"m" * 255, b"c" * 127)),
        "blanks_and_df": account(entry(8192, block(), b" \xDF a\xDF", b"    ", b"\xDF" * 5)),
        "year_2015_4096": account(entry(4096, block(day=(2015, 6, 1))), version=4096),
        "year_2015_8192": account(entry(8192, block(day=(2015, 6, 1)))),
        "cleared_early": account(entry(8192, block(cleared=(2004, 3, 13)))),
        "voided_and_cleared": account(entry(8192, block(flags=1))),
        "mended_flags_df_4096": account(entry(4096, block(flags=0xCF)), version=4096),
        "zero_within_texts": account(entry(8192, block(), b"ab\0cd", b"\0", b"c")),
        "header_all_ones": account(header=b"\x01" * 1264),
        "header_all_blanks": account(header=b" " * 1264),
        "header_of_70": account(header=header[:70]),
        "header_of_1042": account(header=header[:1042]),
        **{f"block_of_{size}_{version}":
           account(entry(version, block()[:size], b"text"), version=version, block_size=size)
           for size, version in ((0, 8192), (18, 8192), (47, 8192), (18, 4096), (46, 4096))},
        "negative_count": account(entry(8192, block()), count=-1),
        "trailing_bytes": account() + b"trailing",
        "odd_amounts": account(*(entry(8192, block(amount=amount))
                                 for amount in (float("inf"), float("nan"), -1.0, 1e-45))),
    }


def bad_inputs() -> dict[str, bytes]:
    sound = two_entries(8192)
    one = entry(8192, block(), b"text", b"memo", b"category")
    return {
        "nothing": b"",
        "magic_alone": sound[:4],
        "magic": b"\x84" + sound[1:],
        **{f"version_{version & 0xFFFFFFFF}": two_entries(version)
           for version in (0, 4095, 8193, -1)},
        "header_of_1265": account(header=b"\x01" * 1265),
        "header_absurd": account(header_size=0xFFFFFFFF),
        "header_beyond_the_end": account(header_size=1264),
        "block_of_49": account(block() + b"\0" + text(b"") * 3, count=1, block_size=49),
        "block_absurd": account(one, block_size=0x80000000),
        "description_of_256": account(entry(8192, block(), b"d" * 256)),
        "memo_of_256": account(entry(8192, block(), b"", b"m" * 256)),
        "category_of_128": account(entry(8192, block(), b"", b"", b"c" * 128)),
        "text_absurd": account(block() + number(0x80000000) + text(b"") * 2, count=1),
        "text_beyond_the_end": account(block() + number(255) + b"text", count=1),
        "count_absurd": account(one, count=0x7FFFFFFF),
        "count_one_more": account(one, one, count=3),
        **{f"cut_at_{size}": sound[:size] for size in (6, 11, 15, 19, 30, 69, 80, 110)},
        "cut_before_the_last_byte": sound[:-1],
    }


def main() -> None:
    FOLDER.mkdir(parents=True, exist_ok=True)
    for kind, inputs in (("good", good_inputs()), ("bad", bad_inputs())):
        for stale in FOLDER.glob(f"{kind}_*"):
            stale.unlink()
        for name, content in inputs.items():
            (FOLDER / f"{kind}_{name}").write_bytes(content)


if __name__ == "__main__":
    main()
