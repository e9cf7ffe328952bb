"""qmktool convert: the bytes that it writes, and that it leaves files alone when it fails."""

import itertools
import os
import random
import threading
import unittest
from pathlib import Path
from typing import Any

import rules
from support import (DONE, FRONT_SIZE, IS_ROOT, IS_WINDOWS, OLD_BYTES, SAMPLE, V1_0, V1_1, V2_0,
                     Day, Entry, Result, ToolTestCase, cases, make_account, posix_only, run)

if not IS_WINDOWS:
    import fcntl
    import resource
    import signal

FORMATS = {"1.0": V1_0, "1.1": V1_1, "2.0": V2_0}
HEADER = {"szAccountNumber": b"12-345", "szPassword": b"", "szBankName": b"First Example Bank",
          "dtOpened": Day(2003, 1, 2), "lWidthMemo": 99, "bShowTag": 0, "lDisplayPeriod": 3,
          "dtPeriodFrom": Day(2004, 1, 1), "dtPeriodTo": Day(2004, 12, 31)}


def some_entries(count: int, seed: int = 7) -> list[Entry]:
    """Sound entries, out of order, with texts of any bytes but the two that get lost."""
    source = random.Random(seed)
    letters = [byte for byte in range(1, 256) if byte != 0xDF]

    def text(longest: int) -> bytes:
        return bytes(source.choices(letters, k=source.choice((0, 1, 3, 4, 5, longest))))

    return [Entry(source.randrange(12), Day(source.randint(1999, 2004), source.randint(1, 12), 15),
                  source.randint(1, 9999), source.randint(1, 99999) / 4,
                  source.choice((0, 16, 17, 2, 20)), None, text(255), text(255), text(127))
            for _ in range(count)]


def written(entries: list[Entry], version: int, read_as: int = 0, **options: Any) -> bytes:
    """The file of these entries as the program holds them after reading a file of version read_as,
    by default of the same version."""
    held = rules.register_order(entries, read_as or version)
    return make_account(held, version, **options)


class ConvertTestCase(ToolTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.out = self.folder / "out.qmk"

    def convert(self, source: Path, *options: str, **settings: Any) -> Result:
        return run("convert", source, self.out, *options, **settings)

    def assert_converts(self, data: bytes, expected: bytes, *options: str) -> Result:
        source = self.write("in.qmk", data)
        self.out.unlink(missing_ok=True)
        result = self.assert_done(self.convert(source, *options))
        self.assertTrue(self.out.read_bytes() == expected, "other bytes than expected")
        self.assertEqual(source.read_bytes(), data)
        self.assertEqual(self.names_in_folder(), ["in.qmk", "out.qmk"])
        return result

    def assert_kept(self, result: Result, reason: str, kept: bytes = OLD_BYTES,
                    out: Path | None = None) -> None:
        """The program must refuse because of OUT, leave it as it is, and make no file beside it."""
        out = out or self.out
        names = {"in.qmk", out.name} if out.parent == self.folder else {out.name}
        self.assert_refused(result, out, reason)
        self.assertEqual(out.read_bytes(), kept)
        self.assertEqual(set(self.names_in_folder(out.parent)), names)


class Bytes(ConvertTestCase):
    """Compares the output with files that the encoder of make_sample writes."""

    def test_the_same_version_without_a_format(self) -> None:
        for version in cases((V1_0, V1_1, 5000, 8191, V2_0)):
            with self.subTest(version=version):
                entries = some_entries(20, version)
                data = make_account(entries, version, HEADER)
                self.assert_converts(data, written(entries, version, header=HEADER))

    def test_each_format_into_each(self) -> None:
        entries = some_entries(20)
        versions = (*FORMATS.values(), 5000)
        for version, (name, wanted) in cases(itertools.product(versions, FORMATS.items())):
            with self.subTest(version=version, format=name):
                data = make_account(entries, version, HEADER)
                expected = written(entries, wanted, read_as=version, header=HEADER)
                result = self.assert_converts(data, expected, "--format", name)
                self.assertIn(f"format {name}, 20 transactions".encode(), result.out)

    def test_dropped_categories_are_told(self) -> None:
        entries = [Entry(category=b"House"), Entry(), Entry(category=b"Food")]
        data = make_account(entries)
        for name, left_out in (("1.0", True), ("1.1", True), ("2.0", False)):
            with self.subTest(name):
                expected = written(entries, FORMATS[name])
                out = self.assert_converts(data, expected, "--format", name).out
                self.assertEqual(b"2 categories left out" in out, left_out, out)
                self.assertEqual(b"categor" in out, left_out, out)

    def test_the_household(self) -> None:
        result = self.assert_done(self.convert(SAMPLE, "--format", "1.0"))
        self.assertIn(b"out.qmk: format 1.0, 447 transactions", result.out)
        listing = self.assert_done(run("list", self.out, "--json")).json()
        sums = [round(listing[key], 6) for key in ("dBalance", "dAvailable")]
        self.assertEqual(sums, [4195.04, 3757.5])
        self.assertEqual({row["szCategory"] for row in listing["rows"]}, {""})

    def test_what_reading_mended_is_written_mended(self) -> None:
        entries = [Entry(cleared=Day(2004, 1, 1)), Entry(flags=1), Entry(memo=b"a\0b")]
        data = make_account(entries) + b"trailing bytes"
        self.assert_converts(data, written(entries, V2_0))
        self.assert_done(run("check", self.out))

    def test_bytes_that_scrambling_loses(self) -> None:
        """A year 2015 outlives formats 1.1 and 2.0 and becomes 1824 in a scrambled block."""
        entries = [Entry(day=Day(2015, 5, 1), description=b"stra\xdfe", number=0xDF)]
        for version, year in ((V1_0, 1824), (V1_1, 2015), (V2_0, 2015)):
            with self.subTest(version=version):
                name = next(name for name, word in FORMATS.items() if word == version)
                self.assert_converts(make_account(entries), written(entries, version, V2_0),
                                     "--format", name)
                row, = self.assert_done(run("list", self.out, "--json")).json()["rows"]
                self.assertEqual((row["dtDate"][0], row["szDescription"]), (year, "stra e"))

    def test_an_empty_account(self) -> None:
        data = make_account(header=HEADER)
        self.assertEqual(len(data), FRONT_SIZE)
        self.assert_converts(data, data)

    def test_the_unused_words_of_a_date_are_kept(self) -> None:
        data = bytearray(make_account([Entry()]))
        words = range(FRONT_SIZE + 4, FRONT_SIZE + 20, 2)
        for number in (2, 4, 5, 6, 7):  # day of the week, and the four of the time
            data[words[number]] = number
        self.assert_converts(bytes(data), bytes(data))


class Names(ConvertTestCase):

    def test_the_extension_in_any_case(self) -> None:
        for name, out in (("in.QMK", "out.Qmk"), ("a.b.qmK", ".qmk")):
            with self.subTest(name):
                source = self.write(name, SAMPLE.read_bytes())
                self.assert_done(run("convert", source, self.folder / out))

    def test_other_extensions_of_out(self) -> None:
        source = self.write("in.qmk", SAMPLE.read_bytes())
        for name in cases(("out.txt", "out.TXT", "out", "out.qmk.bak", "out.qm", "qmk",
                            "out.qmk ", "out.csv ", "out.qi", "xml")):
            with self.subTest(name):
                self.assert_refused(run("convert", source, self.folder / name),
                                    self.folder / name, "qmk")
        self.assertEqual(self.names_in_folder(), ["in.qmk"])

    def test_other_extensions_of_in(self) -> None:
        for name in ("in.txt", "in", "in.qmk~", "in.csv~"):
            with self.subTest(name):
                source = self.write(name, SAMPLE.read_bytes())
                self.assert_refused(self.convert(source), source, "qmk")
                self.assertFalse(self.out.exists())

    def test_a_dot_in_a_folder_is_no_extension(self) -> None:
        folder = self.folder / "books.qmk"
        folder.mkdir()
        source = self.write("in.qmk", SAMPLE.read_bytes())
        self.assert_refused(run("convert", source, folder / "out"), folder / "out", "qmk")


class Replacing(ConvertTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.source = self.write("in.qmk", SAMPLE.read_bytes())
        self.expected = self.sorted_sample()

    def sorted_sample(self) -> bytes:
        self.assert_done(self.convert(self.source))
        data = self.out.read_bytes()
        self.out.unlink()
        return data

    def test_an_existing_out_needs_force(self) -> None:
        self.out.write_bytes(OLD_BYTES)
        self.assert_kept(self.convert(self.source), "--force")
        self.assert_done(self.convert(self.source, "--force"))
        self.assertEqual(self.out.read_bytes(), self.expected)
        self.assertEqual(self.names_in_folder(), ["in.qmk", "out.qmk"])

    def test_force_without_an_out_is_no_fault(self) -> None:
        self.assert_done(self.convert(self.source, "--force"))
        self.assertEqual(self.out.read_bytes(), self.expected)

    def test_out_may_be_in(self) -> None:
        self.assert_refused(run("convert", self.source, self.source), self.source, "--force")
        self.assertEqual(self.source.read_bytes(), SAMPLE.read_bytes())
        self.assert_done(run("convert", self.source, self.source, "--force"))
        self.assertEqual(self.source.read_bytes(), self.expected)
        self.assertEqual(self.names_in_folder(), ["in.qmk"])

    def test_a_folder_that_is_missing(self) -> None:
        self.out = self.folder / "nowhere" / "out.qmk"
        for options in ((), ("--force",)):
            with self.subTest(options=options):
                self.assert_refused(self.convert(self.source, *options), self.out, "no such file")
        self.assertEqual(self.names_in_folder(), ["in.qmk"])

    def test_an_out_that_is_a_folder(self) -> None:
        self.out.mkdir()
        for options in ((), ("--force",)):
            with self.subTest(options=options):
                self.assert_refused(self.convert(self.source, *options), self.out)
        self.assertEqual(self.names_in_folder(), ["in.qmk", "out.qmk"])
        self.assertEqual(self.names_in_folder(self.out), [])

    def test_a_refused_in_leaves_out_alone(self) -> None:
        self.out.write_bytes(OLD_BYTES)
        self.source.write_bytes(SAMPLE.read_bytes()[:-1])
        self.assert_refused(self.convert(self.source, "--force"), self.source, "ends too early")
        self.assertEqual(self.out.read_bytes(), OLD_BYTES)

    def test_an_out_in_the_working_folder(self) -> None:
        self.assert_done(run("convert", "in.qmk", "out.qmk", cwd=self.folder))
        self.assertEqual(self.out.read_bytes(), self.expected)

    @posix_only
    def test_an_out_that_another_program_holds(self) -> None:
        self.out.write_bytes(OLD_BYTES)
        with open(self.out, "rb") as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            self.assert_kept(self.convert(self.source, "--force"), "open in another program")
        self.assert_done(self.convert(self.source, "--force"))

    @posix_only
    def test_an_out_that_is_a_pipe(self) -> None:
        os.mkfifo(self.out)
        for options in ((), ("--force",)):
            with self.subTest(options=options):
                result = self.convert(self.source, *options, timeout=10)
                self.assert_refused(result, self.out, "not a regular file")

    @posix_only
    def test_a_link_stays_and_its_file_is_replaced(self) -> None:
        target = self.write("target.qmk", OLD_BYTES)
        self.out.symlink_to("target.qmk")
        self.assert_done(self.convert(self.source, "--force"))
        self.assertTrue(self.out.is_symlink())
        self.assertEqual(target.read_bytes(), self.expected)

    @posix_only
    def test_the_permissions_stay(self) -> None:
        self.out.write_bytes(OLD_BYTES)
        self.out.chmod(0o640)
        self.assert_done(self.convert(self.source, "--force"))
        self.assertEqual(self.out.stat().st_mode & 0o777, 0o640)

    @posix_only
    def test_a_folder_and_a_file_that_may_not_be_written(self) -> None:
        other_user = self.options_of_other_user()
        self.folder.chmod(0o555)
        self.addCleanup(self.folder.chmod, 0o755)
        result = self.convert(self.source, **other_user)
        self.assert_refused(result, self.out, "permission denied")
        self.folder.chmod(0o777)
        self.out.write_bytes(OLD_BYTES)
        self.out.chmod(0o444)
        self.assert_kept(self.convert(self.source, "--force", **other_user), "permission denied")

    @unittest.skipIf(not IS_WINDOWS or IS_ROOT, "the mark of a file binds Windows users alone")
    def test_an_out_marked_read_only(self) -> None:
        self.out.write_bytes(OLD_BYTES)
        self.out.chmod(0o444)
        self.assert_kept(self.convert(self.source, "--force"), "permission denied")


@posix_only
class NeverHalfWritten(ConvertTestCase):
    """A volume without room, a writer that is killed, a reader at the wrong moment."""

    def setUp(self) -> None:
        super().setUp()
        self.data = make_account([Entry(memo=b"m" * 250)] * 4000)
        self.source = self.write("in.qmk", self.data)

    def limit_file_size(self, **settings: Any) -> Result:
        """Converts under a limit of the file size that is too small for the output."""
        limit = (len(self.data) // 2, len(self.data) // 2)
        return self.convert(self.source, "--force", **settings,
                            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, limit))

    def test_a_full_volume(self) -> None:
        with self.small_volume() as volume:
            self.out = volume / "out.qmk"
            for options in ((), ("--force",)):
                with self.subTest(options=options):
                    result = self.convert(self.source, *options)
                    self.assert_refused(result, self.out, "not enough room")
                    self.assertEqual(self.names_in_folder(volume), [])
            self.out.write_bytes(OLD_BYTES)
            self.assert_kept(self.convert(self.source, "--force"), "not enough room")

    def test_a_limit_of_the_file_size(self) -> None:
        # The system sends SIGXFSZ when a file reaches the limit. This process ignores it, and the
        # program inherits that.
        result = self.limit_file_size(restore_signals=False)
        self.assert_refused(result, self.out, "not enough room")
        self.assertEqual(self.names_in_folder(), ["in.qmk"])
        self.out.write_bytes(OLD_BYTES)
        self.assert_kept(self.limit_file_size(restore_signals=False), "not enough room")

    def test_killed_while_it_writes(self) -> None:
        self.out.write_bytes(OLD_BYTES)
        result = self.limit_file_size()
        self.assertEqual(result.code, -signal.SIGXFSZ, str(result))
        self.assertEqual(self.out.read_bytes(), OLD_BYTES)
        self.assertEqual(self.source.read_bytes(), self.data)

    def test_a_reader_sees_the_old_file_or_the_new_one(self) -> None:
        self.out.write_bytes(OLD_BYTES)
        seen: set[bytes] = set()
        looked, ended = threading.Event(), threading.Event()

        def watch() -> None:
            last = False
            while not last:
                last = ended.is_set()
                seen.add(self.out.read_bytes())
                looked.set()

        watcher = threading.Thread(target=watch)
        watcher.start()
        looked.wait()
        codes = {self.convert(self.source, "--force").code for _ in range(5)}
        ended.set()
        watcher.join()
        self.assertEqual(codes, {DONE})
        self.assertTrue(seen == {OLD_BYTES, self.data}, [len(data) for data in seen])


if __name__ == "__main__":
    unittest.main()
