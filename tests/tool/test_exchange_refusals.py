"""qmktool convert with exchange files that it refuses, with hostile ones, and with ones that it
cannot write."""

import os
import random
import threading
import time
import unittest
from pathlib import Path
from typing import Any

import formats
import rules
from exchange_support import NOT_XML, ExchangeTestCase, plain_entries
from formats import KINDS, WRITERS
from support import DONE, IS_WINDOWS, OLD_BYTES, USAGE, Entry, Result, cases, posix_only, run

if not IS_WINDOWS:
    import resource


class Refused(ExchangeTestCase):

    def assert_all_refuse(self, source: Path, reason: str, **settings: Any) -> None:
        """Converts into every kind of file. The program must refuse and leave no file behind."""
        names = self.names_in_folder()
        for out in cases(("out.qmk", *(f"out.{kind}" for kind in KINDS))):
            with self.subTest(source.name, out=out):
                result = run("convert", source, self.folder / out, **settings)
                self.assert_refused(result, source, reason)
                self.assertTrue(result.err.startswith(b"qmktool: cannot import '"), result.err)
                self.assertEqual(self.names_in_folder(), names)

    def test_missing_files_and_folders(self) -> None:
        folder = self.folder / "folder.csv"
        folder.mkdir()
        for kind in KINDS:
            self.assert_all_refuse(self.folder / f"missing.{kind}", "no such file")
        self.assert_all_refuse(self.folder / "nowhere" / "in.qif", "no such file")
        self.assert_all_refuse(folder, "not a regular file")

    def test_empty_files(self) -> None:
        for kind in KINDS:
            self.assert_all_refuse(self.write(f"in.{kind}", b""), "the file is empty")

    def test_a_mark_alone_is_no_line(self) -> None:
        for mark in (b"\xff\xfe", b"\xfe\xff", b"\xef\xbb\xbf", b"\xff\xfe\n"):
            for kind in ("qif", "csv"):
                self.assert_all_refuse(self.write(f"in.{kind}", mark), "it holds no line of text")

    def test_documents_that_are_not_well_formed(self) -> None:
        whole = formats.write_xml(plain_entries(3))
        bombs = (b"<!DOCTYPE a [" + b"".join(
            b'<!ENTITY e%d "%s">' % (depth, b"&e%d;" % (depth - 1) * 10 if depth else b"x" * 1000)
            for depth in range(12)) + b"]><transaction type='fee'><memo>&e11;</memo></transaction>")
        for data in cases((b"no document", whole[:-5], whole + b"<more/>", whole.replace(
                b"</quillmark>", b"</other>"), b"<a>&nothing;</a>", b"<a>\xff\xfe</a>",
                b'<?xml version="1.0" encoding="klingon"?><a/>', b"\0" * 5000, b"<a" * 20000,
                b"date,amount\n1/1/2004,5\n", b" " * 1000, bombs)):
            with self.subTest(data[:20]):
                self.assert_all_refuse(self.write("in.xml", data), NOT_XML, timeout=60)

    def test_a_memo_of_two_ampersands_does_not_come_back(self) -> None:
        account = self.write_account("in.qmk", [Entry(memo=b"a & b & c")])
        self.assert_converts(account, "out.xml")
        out = self.folder / "out.xml"
        self.assert_refused(run("convert", out, self.folder / "new.qmk"), out, NOT_XML)
        self.assert_nothing_new("in.qmk", "out.xml")

    def test_a_format_of_accounts_is_for_accounts(self) -> None:
        self.write_account("in.qmk", [Entry()])
        result = run("convert", "in.qmk", "out.csv", "--format", "1.0", cwd=self.folder)
        self.assertEqual((result.code, result.out), (USAGE, b""), str(result))
        self.assertEqual(result.err, b"qmktool: --format is for account files, and 'out.csv' is "
                                     b"none (see qmktool --help)\n")
        self.assert_nothing_new("in.qmk")

    @posix_only
    def test_pipes_and_unreadable_files(self) -> None:
        pipe = self.folder / "pipe.csv"
        os.mkfifo(pipe)
        self.assert_all_refuse(pipe, "not a regular file", timeout=10)
        other_user = self.options_of_other_user()
        self.folder.chmod(0o777)
        closed = self.write("in.qif", b"!Type:Bank\n^\n")
        closed.chmod(0)
        self.assert_all_refuse(closed, "permission denied", **other_user)


class Hostile(ExchangeTestCase):
    """A text file is read whatever it contains, and the resulting account is valid."""

    def test_any_bytes(self) -> None:
        source = random.Random(5)
        letters = b"CDLMNPT^!,\"'\r\n\t/-.$[]0123456789" * 3 + bytes(range(256))
        for index in cases(range(12)):
            kind = ("qif", "csv")[index % 2]
            # The last record is a good one, because the program refuses a file without any.
            data = (b"Date,Payee,Amount\n" + bytes(source.choices(letters, k=20000))
                    + (b"\n^\nD1/2/2004\nT5\n^\n" if kind == "qif" else b"\n1/2/2004,x,5\n"))
            with self.subTest(kind, index=index):
                self.assert_converts(self.write(f"in.{kind}", data), "out.qmk")
                self.assert_done(run("list", self.folder / "out.qmk", "--json")).json()

    def test_lines_and_cells_without_end(self) -> None:
        for name, data in (("in.qif", b"P" + b"x" * 1000000 + b"\nT5\n^\n"),
                           ("in.csv", b"Date" + b"," * 1000000 + b"\n1/2/2004"),
                           ("in.csv", b'"Payee",Date\n,1/2/2004\n"' + b"x,\"" * 300000),
                           ("in.qif", b"\n" * 200000 + b"T5\n^\n"),
                           ("in.qif", b"T" + b"9" * 5000 + b"\nN" + b"9" * 5000 + b"\n^\n")):
            with self.subTest(name, data=data[:10]):
                began = time.monotonic()
                self.assert_converts(self.write(name, data), "out.qmk")
                self.assertLess(time.monotonic() - began, 30)
                self.assert_done(run("list", self.folder / "out.qmk", "--json")).json()

    def test_numbers_of_all_sizes(self) -> None:
        """An amount too large for single precision becomes infinite and is shown as no number."""
        cells = (b"1e39", b"-1e39", b"nan", b"inf", b"0x10", b"1e-50", b"--5", b"5-", b"$5")
        data = b"Date,Amount\n" + b"".join(b"1/%d/2004,%s\n" % (day, cell)
                                           for day, cell in enumerate(cells, 1))
        self.assert_converts(self.write("in.csv", data), "out.qmk")
        rows = self.assert_done(run("list", self.folder / "out.qmk", "--json")).json()["rows"]
        self.assertEqual([row["fAmount"] for row in rows],
                         [None, None, 0, 0, 0, 0, 0, 5, 0])

    def test_deep_and_long_documents(self) -> None:
        deep = (b"<a>" * 50000 + b"<transaction type='fee'><amount>5</amount></transaction>"
                + b"</a>" * 50000)
        long = (b"<a><transaction type='check'><memo>" + b"m &amp; " * 100000
                + b"</memo><amount>5</amount></transaction></a>")
        nested = b"<a>" + b"<transaction type='fee'>" * 2000 + b"<amount>5</amount>" + b"</transaction>" * 2000 + b"</a>"
        for data, count in ((deep, 1), (long, 1), (nested, 1)):
            self.assert_converts(self.write("in.xml", data), "out.qmk")
            listing = self.assert_done(run("list", self.folder / "out.qmk", "--json")).json()
            self.assertEqual(listing["count"], count)


class Replacing(ExchangeTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.entries = rules.register_order(plain_entries(30))
        self.source = self.write_account("in.qmk", self.entries)
        self.out = self.folder / "out.csv"
        self.expected = formats.write_csv(self.entries)

    def convert(self, *options: str, **settings: Any) -> Result:
        return run("convert", self.source, self.out, *options, **settings)

    def assert_kept(self, result: Result, reason: str) -> None:
        self.assert_refused(result, self.out, reason)
        self.assertEqual(self.out.read_bytes(), OLD_BYTES)
        self.assert_nothing_new("in.qmk", self.out.name)

    def test_an_existing_out_needs_force(self) -> None:
        for kind in KINDS:
            self.out = self.folder / f"out.{kind}"
            with self.subTest(kind):
                self.out.write_bytes(OLD_BYTES)
                self.assert_kept(self.convert(),
                                 "the file exists already (replace it with --force)")
                self.assert_done(self.convert("--force"))
                self.assertEqual(self.out.read_bytes(), WRITERS[kind](self.entries))
                self.assert_nothing_new("in.qmk", self.out.name)
                self.out.unlink()

    def test_an_account_made_of_an_exchange_file_needs_force(self) -> None:
        source, out = self.write("in.csv", self.expected), self.folder / "out.qmk"
        out.write_bytes(OLD_BYTES)
        self.assert_refused(run("convert", source, out), out, "--force")
        self.assertEqual(out.read_bytes(), OLD_BYTES)
        self.assert_done(run("convert", source, out, "--force"))
        self.assert_lists(out, formats.read_csv(self.expected))

    def test_a_refused_in_leaves_out_alone(self) -> None:
        self.out.write_bytes(OLD_BYTES)
        self.source = self.write("in.xml", b"<open>")
        self.assert_refused(self.convert("--force"), self.source, NOT_XML)
        self.assertEqual(self.out.read_bytes(), OLD_BYTES)

    def test_folders_in_the_way(self) -> None:
        self.out.mkdir()
        for options in ((), ("--force",)):
            self.assert_refused(self.convert(*options), self.out, "not a regular file")
        self.out = self.folder / "nowhere" / "out.csv"
        self.assert_refused(self.convert("--force"), self.out, "no such file")
        self.assert_nothing_new("in.qmk", "out.csv")
        self.assertEqual(self.names_in_folder(self.folder / "out.csv"), [])

    def test_what_others_stage_beside_it_stays(self) -> None:
        """Such a file comes from a run that was killed, or from one that runs at the same time."""
        self.write("out.csv.part-1", OLD_BYTES)
        (self.folder / "out.csv.part-2").mkdir()
        self.assert_done(self.convert())
        self.assertEqual(self.out.read_bytes(), self.expected)
        self.assertEqual((self.folder / "out.csv.part-1").read_bytes(), OLD_BYTES)
        self.assert_nothing_new("in.qmk", "out.csv", "out.csv.part-1", "out.csv.part-2")

    def test_a_name_that_is_too_long(self) -> None:
        self.out = self.folder / ("n" * 296 + ".csv")
        self.assert_refused(self.convert(), self.out)
        self.assert_nothing_new("in.qmk")

    @posix_only
    def test_a_folder_and_a_file_that_may_not_be_written(self) -> None:
        other_user = self.options_of_other_user()
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o755)
        self.assert_refused(self.convert(**other_user), self.out, "permission denied")
        self.folder.chmod(0o755)
        self.out.write_bytes(OLD_BYTES)
        for mode in (0o444, 0o666):  # the file, then only the folder
            self.out.chmod(mode)
            self.folder.chmod(0o777 if mode == 0o444 else 0o555)
            self.assert_kept(self.convert("--force", **other_user), "permission denied")

    @posix_only
    def test_permissions_and_links_stay(self) -> None:
        target = self.write("target.csv", OLD_BYTES)
        target.chmod(0o640)
        self.out.symlink_to("target.csv")
        self.assert_done(self.convert("--force"))
        self.assertTrue(self.out.is_symlink())
        self.assertEqual(target.read_bytes(), self.expected)
        self.assertEqual(target.stat().st_mode & 0o777, 0o640)

    @posix_only
    def test_pipes_and_devices(self) -> None:
        os.mkfifo(self.out)
        self.assert_refused(self.convert("--force", timeout=10), self.out, "not a regular file")


@posix_only
class NeverHalfWritten(ExchangeTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.entries = rules.register_order([Entry(memo=b"m" * 250)] * 4000)
        self.source = self.write_account("in.qmk", self.entries)

    def test_a_full_volume(self) -> None:
        with self.small_volume() as volume:
            for kind in KINDS:
                out = volume / f"out.{kind}"
                with self.subTest(kind):
                    self.assert_refused(run("convert", self.source, out), out, "not enough room")
                    self.assertEqual(self.names_in_folder(volume), [])
                    out.write_bytes(OLD_BYTES)
                    result = run("convert", self.source, out, "--force")
                    self.assert_refused(result, out, "not enough room")
                    self.assertEqual(out.read_bytes(), OLD_BYTES)
                    self.assertEqual(self.names_in_folder(volume), [out.name])
                    out.unlink()

    def test_a_limit_of_the_file_size(self) -> None:
        for kind in KINDS:
            out = self.folder / f"out.{kind}"
            with self.subTest(kind):
                result = run("convert", self.source, out, restore_signals=False,
                             preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE,
                                                                   (100000, 100000)))
                self.assert_refused(result, out, "not enough room")
                self.assert_nothing_new("in.qmk")

    def test_a_reader_sees_the_old_file_or_the_new_one(self) -> None:
        out = self.write("out.qif", OLD_BYTES)
        seen: set[bytes] = set()
        looked, ended = threading.Event(), threading.Event()

        def watch() -> None:
            last = False
            while not last:
                last = ended.is_set()
                seen.add(out.read_bytes())
                looked.set()

        watcher = threading.Thread(target=watch)
        watcher.start()
        looked.wait()
        codes = {run("convert", self.source, out, "--force").code for _ in range(5)}
        ended.set()
        watcher.join()
        self.assertEqual(codes, {DONE})
        self.assertTrue(seen == {OLD_BYTES, formats.write_qif(self.entries)},
                        [len(data) for data in seen])


if __name__ == "__main__":
    unittest.main()
