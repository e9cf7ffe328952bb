#!/usr/bin/env python3
"""Writes the first inputs of the fuzzers: corpus/*/good_* and bad_*.

The test run reads each of them too: the good ones must be accepted, the bad ones refused. Most
accounts have no header block, which a reader accepts, so that the interesting bytes are not lost
among zeroes.
"""

import struct
from pathlib import Path

MAGIC = 0x35763685
CORPUS = Path(__file__).resolve().parent / "corpus"


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


def good_accounts() -> dict[str, bytes]:
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


def bad_accounts() -> dict[str, bytes]:
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


QIF = (b"!Type:Bank\nD03/14/2004\nN1001\nT-12.50\nPOak Street\nMgate [hinges]\nLHouse\nCX\n^\n"
       b"D3-15-2004\nT1,250.00\nPDeposit - Refund\nc*\n^\n")
CSV = b"Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense\n"
MARKED = (("utf_8", b"\xEF\xBB\xBF", "utf-8"), ("utf_16_big", b"\xFE\xFF", "utf-16-be"),
          ("utf_16_little", b"\xFF\xFE", "utf-16-le"))
TYPES = ("Check", "Deposit", "Withdrawal", "Fee", "Direct Deposit", "Direct Debit", "ATM Deposit",
         "ATM Withdrawal", "Automatic Payment", "Transfer - Credit", "Transfer - Debit",
         "Interest Paid")
XML_TYPES = ("check", "deposit", "withdrawal", "fee", "direct-deposit", "direct-debit",
             "atm-deposit", "atm-withdrawal", "auto-payment", "transfer-credit", "transfer-debit",
             "interest")


def reports() -> dict[str, bytes]:
    """Accounts whose transactions fill the sections and groups of reports."""
    every_byte = bytes(range(1, 256))
    categories = (b"House", b"HOUSE", b"house", b"", b"All", b"Car")
    return {
        "all_types": account(*(entry(8192, block(kind, (2004, 3, kind + 2), kind + 0.5, flags=0),
                                     b"Payee", b"Memo", categories[kind % 6])
                               for kind in range(-1, 13))),
        "all_flags": account(*(entry(8192, block(flags % 12, flags=flags), b"Payee", b"Memo",
                                     b"Car") for flags in range(24))),
        "odd_amounts": account(*(entry(8192, block(kind, amount=amount, flags=0), b"Payee")
                                 for kind in (0, 1, 3, 11)
                                 for amount in (0.0, -0.0, -5.0, 3e38, float("inf"),
                                                float("-inf"), float("nan"), 0.005))),
        "odd_dates": account(*(entry(8192, block(2, day, flags=0, cleared=(2004, 1, 1)))
                               for day in ((0, 0, 0), (65535, 65535, 65535), (2004, 2, 31)))),
        "every_byte": account(*(entry(8192, block(kind, flags=flags), every_byte, every_byte,
                                      every_byte[-127:])
                                for kind in (0, 1) for flags in (0, 4, 16, 17))),
    }


def in_encodings(plain: bytes) -> dict[str, bytes]:
    return {name: mark + plain.decode("latin-1").encode(encoding)
            for name, mark, encoding in MARKED}


def good_qif() -> dict[str, bytes]:
    return {
        "two_records": QIF,
        "two_records_cr_lf": QIF.replace(b"\n", b"\r\n"),
        "two_records_lf_cr": QIF.replace(b"\n", b"\n\r"),
        "two_records_cr": QIF.replace(b"\n", b"\r"),
        **in_encodings(QIF),
        "header_alone": b"!Type:Bank\n",
        "ends_of_records": b"^\n^\n\n^",
        "blank_lines": b"\n\r\n\n",
        "types": b"".join(b"P%s - text\nT%d\n^\n" % (name.encode(), sign)
                          for name in TYPES for sign in (-1, 1)),
        "number_behind_payee": b"PFee - x\nN12\nT-3\n^\nN12\nPFee - x\nT-3\n^\n",
        "dates": b"D1/2\n^\nD1.2.2004\n^\nD2004-1-2\n^\nDx/y/z\n^\nD/-.\n^\nD70000/1/99999\n^\n",
        "amounts": b"T1e38\n^\nT1e39\n^\nT-1e-46\n^\nT$5\n^\nT,,,\n^\nT1,2.3.4\n^\nTnan\n^\n",
        "longest_texts": b"P" + b"p" * 300 + b"\nM" + b"m" * 300 + b"\nL" + b"c" * 300 + b"\n^\n",
        "brackets": b"P[]\nM[[]]\nL[]x]\n^\nP[Fee]\n^\n",
        "a_long_line": b"M" + b"x" * 17000 + b"\n^\n",
        "zero_bytes": b"PA\0B\n\0^\n^\0\n",
        "eight_bit": b"\xE9\nPcaf\xE9\n^\n",
        "unsorted": b"".join(b"D%d/1/2004\nN%d\n^\n" % (month, number)
                             for number, month in enumerate((5, 2, 9, 2, 5), 1)),
        "odd_utf_16": b"\xFF\xFE" + b"^\0\n\0" * 100 + b"^",
    }


def good_csv() -> dict[str, bytes]:
    rows = (CSV + b" 3/14/2004,1001,Oak Street,-12.50,gate hinges,House,True,False,False,False\n"
            b" 3/15/2004,,Deposit - Refund,250.00,,,False,True,True,True\n")
    return {
        "two_records": rows,
        "two_records_cr_lf": rows.replace(b"\n", b"\r\n"),
        **in_encodings(rows),
        "header_alone": CSV,
        "quoted": b'"Date","Description","Debit","Credit"\n"1/2/2004","Smith, J","1,234.50",""\n'
                  b'"1/3/2004","open,to the,end,"7"\n',
        "quoted_rows_alone": b'Date,Payee,Amount\n1/2/2004,"Smith, J",5\n',
        "blank_rows": b"Date,Amount\n\n,\n,,,,\n\n",
        "many_columns": b"Memo," * 40 + b"\n" + b"m," * 40 + b"\n",
        "unknown_columns": b"Xyz,,Tag,Date Cleared,Amount left\n1,2,3,4/5/2006,-7\n",
        "cleared_behind_voided": b"Voided,Cleared,Tax,Expense\ny,yes,Y,n\nno,N,tRuE,yes\n",
        "quotes": b'"""",""\n"\n""\n"""\n",",",\n',
        "types": b"Payee,Amount\n" + b"".join(b"%s - text,%d\n" % (name.encode(), sign)
                                              for name in TYPES for sign in (-1, 1)),
        "no_header": b"\n1/2/2004,5\n",
        "zero_bytes": b"Date,\0,Amount\n1/2/2004,\0,5\n",
    }


def good_xml() -> dict[str, bytes]:
    def document(*records: bytes,
                 front: bytes = b'<?xml version="1.0" standalone="yes"?>\n') -> bytes:
        return front + b"<quillmark>\n" + b"".join(records) + b"</quillmark>\n"

    check = (b'<transaction type="check">\n\t<number>1001</number>\n\t<date>03/14/2004</date>\n'
             b"\t<description>Oak &amp; Street</description>\n\t<amount>12.50</amount>\n"
             b"\t<memo>gate hinges</memo>\n\t<category>House</category>\n"
             b'\t<tag type="expense"></tag>\n\t<tag type="cleared">03/20/2004</tag>\n'
             b"</transaction>\n")
    return {
        "check": document(check),
        "doctype": document(check, front=b"<!DOCTYPE DOCUMENT [\n<!ELEMENT tag (date)?>\n]>\n"),
        "types": document(*(b"<transaction type='%s'><amount>5</amount></transaction>"
                            % name.encode() for name in XML_TYPES)),
        "empty": b"<quillmark/>",
        "unknown_type": document(b"<transaction type='swap'><memo>x</memo></transaction>", check),
        "no_type": document(b"<transaction><date>1/1/2004</date></transaction>"),
        "nested": b"<a><transaction type='fee'><transaction type='deposit'/><memo>m</memo>"
                  b"</transaction></a>",
        "tags": document(b"<transaction type='fee'><tag type='voided'/><tag type='cleared'>1/2/2004"
                         b"</tag><tag type='tax-deductible'/><tag type='date cleared'>1/3/2004"
                         b"</tag></transaction>"),
        "pieces": document(b"<transaction type='fee'><memo>a&lt;b&#10;&gt; &#233;<![CDATA[<&>]]>"
                           b"</memo><date>1/2&#47;2004</date></transaction>"),
        "windows_1252": document(check.replace(b"hinges", b"caf\xE9"),
                                 front=b"<?xml version='1.0' encoding='windows-1252'?>"),
        "latin_1": document(check.replace(b"hinges", b"caf\xE9"),
                            front=b"<?xml version='1.0' encoding='ISO-8859-1'?>"),
        "utf_16": b"\xFF\xFE" + document(check, front=b"").decode().encode("utf-16-le"),
        "entities": b"<!DOCTYPE a [<!ENTITY e 'text'>]><a><transaction type='fee'><memo>&e;&e;"
                    b"</memo></transaction></a>",
        "longest_texts": document(b"<transaction type='fee'><memo>" + b"m" * 300 +
                                  b"</memo></transaction>"),
    }


def bad_xml() -> dict[str, bytes]:
    whole = good_xml()["check"]
    return {
        "nothing": b"",
        "no_document": b"Date,Amount\n",
        "cut": whole[:-3],
        "two_roots": whole + b"<more/>",
        "two_ampersands": whole.replace(b"gate", b"&&"),
        "unknown_encoding": whole.replace(b'standalone="yes"', b'encoding="klingon"'),
        "not_utf_8": whole.replace(b"gate", b"\xE9"),
        "zero_byte": whole.replace(b"gate", b"\0"),
        "endless_entity": b"<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>",
    }


def good_bank() -> dict[str, bytes]:
    german = b"separator=;&dates=dmy&decimal=,&skip=1&columns=Date,Description,Amount\n"
    return {
        "german": german + b"Umsatz\n14.03.2004;Miete;-1.250,00\n",
        "headings": b"\nDate,Payee,Debit,Credit\n3/14/2004,\"Smith, \"\"J\"\"\",5,\n",
        "sign": b"columns=Date,Amount,Sign&dates=ymd\n20040314,5.00,D\n2004-03-15,6,?\n",
        "utf_16": german + b"\xFF\xFE" + "x\n14.03.04;\u0416\u20ac;5\n".encode("utf-16-le"),
        "open_quote": b"columns=Date,Memo,Amount\n3/14/2004,a,5\n3/15/2004,\"b\n,6\n",
        "qif": b"dates=dmy&decimal=,&invert=yes\nDate,Amount\n14.3.04,5\nD14.3'04\nT1.234,5\n^\n",
        "amounts_in_two_columns": b"columns=Date,Amount,Memo&dates=ymd\n"
                                  b"2004-03-14,5.00,D\n2004-03-15,x,4\n",
        "months": b"columns=Date,Amount\n14 Mar 2004,(5.00)\nMar 14 2004,5 DR\n",
    }


def bad_bank() -> dict[str, bytes]:
    return {
        "nothing": b"",
        "headings_alone": b"\nDate,Amount\n",
        "no_headings": b"\n1,2\n3,4\n",
        "profile_alone": b"columns=Date,Amount",
    }


def all_inputs() -> dict[str, dict[str, bytes]]:
    """By folder, and there by what begins the names."""
    return {
        "account": {"good": good_accounts(), "bad": bad_accounts()},
        "report": {"good": reports()},
        "bank": {"good": good_bank(), "bad": bad_bank()},
        "qif": {"good": good_qif(), "bad": {"nothing": b"", "mark_alone": b"\xFE\xFF",
                                            "odd_utf_16": b"\xFF\xFE^\0\n\0^"}},
        "csv": {"good": good_csv(), "bad": {"nothing": b"", "mark_alone": b"\xEF\xBB\xBF"}},
        "xml": {"good": good_xml(), "bad": bad_xml()},
    }


def main() -> None:
    for name, kinds in all_inputs().items():
        folder = CORPUS / name
        folder.mkdir(parents=True, exist_ok=True)
        for kind, inputs in kinds.items():
            for stale in folder.glob(f"{kind}_*"):
                stale.unlink()
            for input_name, content in inputs.items():
                (folder / f"{kind}_{input_name}").write_bytes(content)


if __name__ == "__main__":
    main()
