"""qmktool convert between account files and the exchange formats: what it reads and writes."""

import unittest
from pathlib import Path
from typing import Iterable

import formats
import rules
from exchange_support import ExchangeTestCase, plain_entries
from formats import KINDS, READERS, WRITERS
from rules import CREDITS, DEBITS, NOT_CLEARED, VOIDED
from support import (IS_WINDOWS, OLD_BYTES, SAMPLE, V1_0, V2_0, Day, Entry, cases, make_account,
                     run)

NO_TRANSACTIONS = "the account has no transactions"
LAST_IS_VOIDED = ("the last transaction is voided, and a QIF file cannot end with one that it "
                  "leaves out")
LAST_IS_UNKNOWN = ("the last transaction is of an unknown type, and an XML file cannot end with "
                   "one that it leaves out")


class OutOfAnAccount(ExchangeTestCase):
    """Compares the output with the bytes that the rules of the format give."""

    def assert_writes(self, entries: list[Entry], kinds: Iterable[str] = KINDS) -> None:
        account = self.write_account("in.qmk", entries)
        for kind in kinds:
            with self.subTest(kind):
                expected = WRITERS[kind](rules.register_order(entries))
                self.assertEqual(self.assert_converts(account, f"out.{kind}"), expected)

    def test_all_types_and_tags(self) -> None:
        self.assert_writes(plain_entries(60))

    def test_the_household(self) -> None:
        entries = [Entry(row["lType"], Day(*row["dtDate"]), row["lNumber"], row["fAmount"],
                         row["lFlags"], Day(*row["dtCleared"]), row["szDescription"].encode(),
                         row["szMemo"].encode(), row["szCategory"].encode())
                   for row in run("list", SAMPLE, "--json").json()["rows"]]
        for kind in KINDS:
            with self.subTest(kind):
                self.assertEqual(self.assert_converts(SAMPLE, f"out.{kind}"),
                                 WRITERS[kind](entries))

    def test_one_record_of_each_as_it_stands_in_the_file(self) -> None:
        """The same, with the bytes spelled out."""
        entries = [Entry(0, Day(2004, 3, 4), 1001, 12.5, 0, Day(2004, 3, 9), b"Oak Street",
                         b"gate hinges", b"House"),
                   Entry(4, Day(2004, 11, 15), 7, 1234.565, 18, None, b"Pay")]
        account = self.write_account("in.qmk", entries)
        end = formats.LINE_END
        for kind, lines in {
                "qif": [b"!Type:Bank", b"D03/04/2004", b"N1001", b"T-12.50", b"POak Street",
                        b"Mgate hinges", b"LHouse", b"CX", b"^", b"D11/15/2004", b"T1234.56",
                        b"PDirect Deposit - Pay", b"^"],
                "csv": [b"Date,Number,Payee,Amount,Memo,Category,Cleared,Voided,Tax,Expense",
                        b" 3/ 4/2004,1001,Oak Street,-12.50,gate hinges,House,True,False,False,"
                        b"False",
                        b"11/15/2004,,Direct Deposit - Pay,1234.56,,,False,False,False,True"],
                "xml": [*formats.XML_FRONT.splitlines(), b'<transaction type="check">',
                        b"\t<number>1001</number>", b"\t<date>03/04/2004</date>",
                        b"\t<description>Oak Street</description>", b"\t<amount>12.50</amount>",
                        b"\t<memo>gate hinges</memo>", b"\t<category>House</category>",
                        b'\t<tag type="cleared">03/09/2004</tag>', b"</transaction>",
                        b'<transaction type="direct-deposit">', b"\t<date>11/15/2004</date>",
                        b"\t<amount>1234.56</amount>", b'\t<tag type="expense"></tag>',
                        b"</transaction>", b"</quillmark>"]}.items():
            with self.subTest(kind):
                self.assertEqual(self.assert_converts(account, f"out.{kind}"),
                                 end.join(lines) + end)

    def test_texts_that_a_format_does_not_carry_go_out_as_they_stand(self) -> None:
        text = bytes(byte for byte in range(32, 256) if byte not in b"\x7f\xdf")
        self.assert_writes([Entry(type, description=text, memo=text, category=text[:127])
                            for type in (0, 1)])

    def test_only_the_first_ampersand_is_escaped_in_XML(self) -> None:
        entry = Entry(0, memo=b"a & b & c", description=b"<'&\">")
        account = self.write_account("in.qmk", [entry])
        data = self.assert_converts(account, "out.xml")
        self.assertIn(b"<memo>a &amp; b & c</memo>", data)
        self.assertIn(b"<description>&lt;&apos;&amp;&quot;&gt;</description>", data)

    def test_what_a_format_leaves_out_is_told(self) -> None:
        voided = Entry(flags=VOIDED | NOT_CLEARED)
        account = self.write_account("in.qmk", [voided, Entry(type=12), voided, Entry(), Entry()])
        for kind, told in (("qif", b"QIF, 3 transactions, 2 voided ones left out"),
                           ("csv", b"CSV, 5 transactions"),
                           ("xml", b"XML, 4 transactions, 1 of an unknown type left out")):
            with self.subTest(kind):
                result = self.assert_done(run("convert", account, f"out.{kind}", cwd=self.folder))
                self.assertEqual(result.out, b"out.%s: %s\n" % (kind.encode(), told))

    def test_a_type_outside_the_table_has_no_payee_and_no_sign(self) -> None:
        self.assert_writes([Entry(type=0), Entry(type=3)])
        account = self.write_account("in.qmk", [Entry(type=99, description=b"x"), Entry(type=1)])
        data = self.assert_converts(account, "out.csv")
        self.assertEqual(data.split(formats.LINE_END)[1],
                         b" 3/14/2004,,,10.00,,,True,False,False,False")

    def test_extensions_in_any_case(self) -> None:
        account = self.write_account("in.QMK", [Entry()])
        for name, kind in (("a.QIF", "qif"), ("b.Csv", "csv"), (".xml", "xml"),
                           ("c.qmk.qif", "qif")):
            with self.subTest(name):
                self.assertEqual(self.assert_converts(account, name),
                                 WRITERS[kind]([Entry()]))

    def test_a_password_is_asked_for(self) -> None:
        account = self.write_account("in.qmk", [Entry()], header={"szPassword": b"Sesame"})
        out = self.folder / "out.csv"
        self.assert_refused(run("convert", account, out), account, "password protected")
        self.assert_refused(run("convert", account, out, "--password", "x"), account, "wrong")
        self.assert_done(run("convert", account, out, "--password", "sesame"))
        self.assertNotIn(b"Sesame", out.read_bytes())

    def test_many_transactions(self) -> None:
        entries = [Entry(day=Day(1990 + index // 360, index // 30 % 12 + 1, index % 28 + 1),
                         number=index) for index in range(5000)]
        self.assert_writes(entries)


class Obstacles(ExchangeTestCase):
    """Accounts for which an export would never end. qmktool refuses them."""

    def assert_obstacle(self, source: Path, out: str, reason: str) -> None:
        (self.folder / out).write_bytes(OLD_BYTES)
        for options in ((), ("--force",)):
            result = run("convert", source, self.folder / out, *options, timeout=20)
            self.assert_refused(result, source)
            self.assertTrue(result.err.endswith(f"': {reason}\n".encode()), result.err)
        self.assertEqual((self.folder / out).read_bytes(), OLD_BYTES)
        (self.folder / out).unlink()
        self.assert_refused(run("convert", source, self.folder / out, timeout=20), source, reason)
        self.assert_nothing_new(source.name)

    def test_an_account_without_transactions(self) -> None:
        account = self.write_account("in.qmk")
        for kind in KINDS:
            with self.subTest(kind):
                self.assert_obstacle(account, f"out.{kind}", NO_TRANSACTIONS)

    def test_the_sentence_word_for_word(self) -> None:
        self.write_account("in.qmk")
        self.assertEqual(run("convert", "in.qmk", "out.xml", cwd=self.folder).err,
                         b"qmktool: cannot export 'in.qmk': the account has no transactions\n")

    def test_a_last_transaction_that_is_voided(self) -> None:
        """The last one by date counts, wherever it is in the file."""
        voided = Entry(flags=VOIDED | NOT_CLEARED, day=Day(2004, 5, 1))
        for entries in ([voided], [Entry(), voided], [voided, Entry()]):
            with self.subTest(count=len(entries)):
                account = self.write_account("in.qmk", entries)
                self.assert_obstacle(account, "out.QIF", LAST_IS_VOIDED)
                for kind in ("csv", "xml"):
                    self.assertEqual(self.assert_converts(account, f"out.{kind}"),
                                     WRITERS[kind](rules.register_order(entries)))
                    (self.folder / f"out.{kind}").unlink()

    def test_a_voided_one_before_the_last_is_none(self) -> None:
        entries = [Entry(flags=VOIDED | NOT_CLEARED), Entry(day=Day(2004, 5, 1))]
        account = self.write_account("in.qmk", entries)
        self.assertEqual(self.assert_converts(account, "out.qif"), formats.write_qif(entries))

    def test_a_last_transaction_of_an_unknown_type(self) -> None:
        """The last one by date counts, wherever it is in the file."""
        unknown = Entry(type=77, day=Day(2004, 5, 1))
        for entries in ([unknown], [Entry(), unknown], [unknown, Entry()]):
            with self.subTest(count=len(entries)):
                account = self.write_account("in.qmk", entries)
                self.assert_obstacle(account, "out.XML", LAST_IS_UNKNOWN)
                for kind, told in (("qif", b"QIF"), ("csv", b"CSV")):
                    name = f"out.{kind}"
                    result = self.assert_done(run("convert", account, name, cwd=self.folder))
                    plural = b"s" if len(entries) > 1 else b""
                    self.assertEqual(result.out, b"%s: %s, %d transaction%s\n"
                                     % (name.encode(), told, len(entries), plural))
                    (self.folder / name).unlink()

    def test_one_of_an_unknown_type_before_the_last_is_none(self) -> None:
        entries = [Entry(type=77), Entry(day=Day(2004, 5, 1))]
        account = self.write_account("in.qmk", entries)
        self.assertEqual(self.assert_converts(account, "out.xml"), formats.write_xml(entries))

    def test_exchange_files_without_transactions(self) -> None:
        for name, data in (("in.qif", b"!Type:Bank\n"), ("in.csv", formats.CSV_HEADER),
                           ("in.xml", formats.write_xml([]))):
            for kind in (*KINDS, "qmk"):
                with self.subTest(name, kind=kind):
                    source = self.write(name, data)
                    self.assert_refused(run("convert", source, self.folder / f"out.{kind}"), source,
                                        "it holds no transaction")
                    self.assert_nothing_new(name)
                    source.unlink()


class IntoAnAccount(ExchangeTestCase):

    def assert_reads(self, name: str, data: bytes, entries: list[Entry]) -> Path:
        account = self.folder / "out.qmk"
        self.assert_converts(self.write(name, data), "out.qmk")
        self.assert_lists(account, entries)
        return account

    def test_what_the_writers_write(self) -> None:
        entries = rules.register_order(plain_entries(60))
        for kind in KINDS:
            with self.subTest(kind):
                data = WRITERS[kind](entries)
                self.assert_reads(f"in.{kind}", data, READERS[kind](data))

    @unittest.skipIf(IS_WINDOWS, "a new account takes its font from Windows")
    def test_the_bytes_of_the_new_account(self) -> None:
        entries = rules.register_order(plain_entries(20))
        for kind in KINDS:
            data = WRITERS[kind](entries)
            source = self.write(f"in.{kind}", data)
            for options, version in (((), V2_0), (("--format", "2.0"), V2_0),
                                     (("--format", "1.0"), V1_0)):
                with self.subTest(kind, options=options):
                    expected = make_account(formats.in_order(READERS[kind](data)), version)
                    self.assertTrue(self.assert_converts(source, "out.qmk", *options) == expected,
                                    "other bytes than expected")

    def test_what_is_told(self) -> None:
        self.write("in.qif", b"!Type:Bank\nD1/2/2004\nT-5\nLHouse\n^\nD1/3/2004\nT5\n^\n")
        for options, told in (((), b"format 2.0, 2 transactions"),
                              (("--format", "1.1"),
                               b"format 1.1, 2 transactions, 1 categories left out")):
            result = run("convert", "in.qif", "out.qmk", *options, "--force", cwd=self.folder)
            self.assertEqual(self.assert_done(result).out,
                             b"out.qmk: %s%s\n" % (told, rules.ORDER_GUESSED))

    def test_foreign_QIF(self) -> None:
        data = (b"!Type:Bank\r\nD1/5/2004\r\nT-1,234.56\r\nN77\r\nPBank [of] Oaks\r\nC*\r\n^\r\n"
                b"!Account\r\nD1-4-2004\nT20.00\nPdeposit - rent\nCx\nd9/9/1999\n^\n^\n"
                b"D12/31/2004\nPlost without its end\n")
        self.assert_reads("in.QIF", data, [
            Entry(2, Day(2000, 1, 1), 0, 0.0, NOT_CLEARED, None, b""),
            Entry(1, Day(2004, 1, 4), 0, 20.0, 0, None, b" - rent"),
            Entry(0, Day(2004, 1, 5), 77, 1234.56, NOT_CLEARED, None, b"Bank of Oaks")])

    def test_foreign_CSV(self) -> None:
        data = (b'"Check Number","Date","Debit","Credit","Description","Cleared","Tag"\n'
                b'"12","3/1/2004","1,234.50","","Smith, John","yes","x"\n'
                b'"","3/2/2004","","7.25","Feeding Program","NO",""\n\n')
        self.assert_reads("in.csv", data, [
            Entry(2, Day(2000, 1, 1), 0, 0.0, NOT_CLEARED, None, b""),
            Entry(0, Day(2004, 3, 1), 12, 1234.5, 0, None, b"Smith John"),
            Entry(1, Day(2004, 3, 2), 0, 7.25, NOT_CLEARED, None, b"ding Program")])

    def test_foreign_XML(self) -> None:
        data = (b'<?xml version="1.0" encoding="Windows-1252"?><Anything><Transaction '
                b'TYPE="DepositOfOthers"><date>5/6/2004</date><amount>-5.00</amount>'
                b"<memo>caf\xe9 &amp; bar</memo></Transaction><transaction type='swap'>"
                b"<amount>1</amount></transaction></Anything>")
        self.assert_reads("in.xml", data, [
            Entry(1, Day(2004, 5, 6), 1000, -5.0, NOT_CLEARED, None, b"",
                  "café & bar".encode())])

    def test_text_in_other_encodings(self) -> None:
        text = "!Type:Bank\nD1/2/2004\nT3\nPcaf\u00e9\n^\n"
        for encoding, mark, payee in (("utf-16-le", b"\xff\xfe", b"caf\xe9"),
                                      ("utf-16-be", b"\xfe\xff", b"caf\xe9"),
                                      ("utf-8", b"\xef\xbb\xbf", "caf\u00e9".encode())):
            with self.subTest(encoding):
                self.assert_reads("in.qif", mark + text.encode(encoding), [
                    Entry(1, Day(2004, 1, 2), 0, 3.0, NOT_CLEARED, None, payee)])

    def test_unsorted_days(self) -> None:
        days = [Day(2004, month, 1) for month in (5, 2, 9, 2, 5)]
        data = formats.write_csv([Entry(0, day, 100 + index, 1.0)
                                  for index, day in enumerate(days)])
        self.assert_reads("in.csv", data, formats.read_csv(data))


class BetweenExchangeFormats(ExchangeTestCase):

    def test_each_into_each(self) -> None:
        entries = rules.register_order(plain_entries(40))
        for kind in KINDS:
            data = WRITERS[kind](entries)
            source = self.write(f"in.{kind}", data)
            held = formats.in_order(READERS[kind](data))
            for wanted in KINDS:
                with self.subTest(kind, out=wanted):
                    self.assertEqual(self.assert_converts(source, f"out.{wanted}"),
                                     WRITERS[wanted](held))

    def test_a_round_trip_of_the_household_through_XML(self) -> None:
        """Only the descriptions of types other than check and their hidden numbers get lost."""
        self.assert_converts(SAMPLE, "out.xml")
        self.assert_converts(self.folder / "out.xml", "back.qmk")
        rows = [run("list", file, "--json").json()["rows"]
                for file in (SAMPLE, self.folder / "back.qmk")]
        kept = ("lType", "dtDate", "fAmount", "lFlags", "szMemo", "szCategory")
        self.assertEqual(*([{key: row[key] for key in kept} for row in part] for part in rows))
        self.assertEqual(*([(row["lNumber"], row["szDescription"]) for row in part
                            if row["lType"] == 0] for part in rows))

    def test_out_may_be_in(self) -> None:
        entries = rules.register_order(plain_entries(10))
        data = formats.write_csv(entries)
        file = self.write("in.csv", data)
        self.assert_refused(run("convert", file, file), file, "--force")
        self.assertEqual(file.read_bytes(), data)
        self.assert_done(run("convert", file, file, "--force"))
        self.assertEqual(file.read_bytes(),
                         formats.write_csv(formats.in_order(formats.read_csv(data))))
        self.assert_nothing_new("in.csv")

    def test_sides_survive_the_way_round(self) -> None:
        for type in cases(sorted(DEBITS | CREDITS)):
            with self.subTest(type=type):
                data = formats.write_csv([Entry(type)])
                self.assertEqual(self.assert_converts(self.write("in.csv", data), "out.qif"),
                                 formats.write_qif(formats.read_csv(data)))


if __name__ == "__main__":
    unittest.main()
