"""Files that every command must refuse, and passwords. When qmktool refuses, it exits with code 1,
prints one line on standard error that names the file and the reason, prints nothing on standard
output, and writes no file."""

import itertools
import os
import time
import unittest
from pathlib import Path
from typing import Any, Iterable

from support import (COMMANDS, FRONT_SIZE, IS_WINDOWS, NOBODY, PREFIX_SIZE, SAMPLE, V1_0, V1_1,
                     V2_0, Entry, Result, ToolTestCase, cases, make_account, posix_only, run,
                     with_number)

if not IS_WINDOWS:
    import fcntl

NO_ACCOUNT = "not an account file"
ENDS_EARLY = "ends too early"
TOO_LARGE = (-1, -2**31, 0x7FFFFFFF)
READING = ("info", "list", "check")

ENTRIES = [Entry(description=b"Refund", memo=b"in cash", category=b"House"), Entry(type=0)]
DESCRIPTION_AT = FRONT_SIZE + 48
MEMO_AT = DESCRIPTION_AT + 4 + len(ENTRIES[0].description)
CATEGORY_AT = MEMO_AT + 4 + len(ENTRIES[0].memo)
VERSION_AT, COUNT_AT, HEADER_SIZE_AT, BLOCK_SIZE_AT = 4, 8, 12, FRONT_SIZE - 4

PASSWORD = b"Open Sesame 15!"


class RefusalTestCase(ToolTestCase):

    def setUp(self) -> None:
        super().setUp()
        self._turn = 0

    def commands(self) -> Iterable[str]:
        """All commands. On Windows, where a start takes long, only one: the next in turn."""
        self._turn += 1
        return [COMMANDS[self._turn % len(COMMANDS)]] if IS_WINDOWS else COMMANDS

    def assert_all_refuse(self, file: Path, reason: str, **settings: Any) -> None:
        """Every command must refuse the file, leave it as it is, and make no file beside it."""
        readable = os.path.isfile(file) and os.access(file, os.R_OK)
        before = file.read_bytes() if readable else None
        names = self.names_in_folder()
        for command in self.commands():
            with self.subTest(command=command, file=file.name[:40]):
                self.assert_refused(run(*self.words_for(command, file), **settings), file, reason)
                self.assertEqual(self.names_in_folder(), names)
        if before is not None:
            self.assertEqual(file.read_bytes(), before)

    def assert_bytes_refused(self, data: bytes, reason: str) -> None:
        self.assert_all_refuse(self.write("account.qmk", data), reason)


class NoFile(RefusalTestCase):

    def test_a_missing_file(self) -> None:
        self.assert_all_refuse(self.folder / "missing.qmk", "no such file")

    def test_a_missing_folder(self) -> None:
        self.assert_all_refuse(self.folder / "nowhere" / "account.qmk", "no such file")

    def test_a_file_for_a_folder(self) -> None:
        self.write("plain", b"")
        self.assert_all_refuse(self.folder / "plain" / "account.qmk", "no such file")

    def test_an_empty_name(self) -> None:
        for command in READING:
            with self.subTest(command):
                self.assert_refused(run(command, ""), "", "no such file")

    def test_a_folder(self) -> None:
        folder = self.folder / "folder.qmk"
        folder.mkdir()
        self.assert_all_refuse(folder, "not a regular file")

    def test_a_name_of_300_characters(self) -> None:
        self.assert_all_refuse(self.folder / ("n" * 296 + ".qmk"), "name is too long")

    def test_a_path_beyond_the_longest_name(self) -> None:
        """The program must not cut the name to that of another file, which exists here."""
        folder = self.folder / ("d" * 150)
        folder.mkdir()
        longest = 260 - len(str(folder)) - 1
        (folder / ("n" * longest)).write_bytes(SAMPLE.read_bytes())
        self.assert_all_refuse(folder / ("n" * longest + ".qmk"), "name is too long")

    @posix_only
    def test_a_name_with_a_line_break_stays_on_one_line(self) -> None:
        self.assert_one_error_line(run("info", self.folder / "a\nb.qmk"), 1)

    @posix_only
    def test_pipes_and_devices_are_refused_at_once(self) -> None:
        pipe = self.folder / "pipe.qmk"
        os.mkfifo(pipe)
        self.assert_all_refuse(pipe, "not a regular file", timeout=10)
        for device in ("/dev/null", "/dev/zero"):
            self.assert_refused(run("info", Path(device), timeout=10), device, "not a regular file")


class Damaged(RefusalTestCase):

    def test_no_account(self) -> None:
        text = b"Date,Number,Description\n1/1/2004,1001,Rent\n"
        for data in cases((b"", b"\0", b"\x85\x36\x76", bytes(4096), text * 50, b"MZ" + bytes(2000),
                           with_number(make_account(ENTRIES), 0, 0x85367635))):
            with self.subTest(data[:10]):
                self.assert_bytes_refused(data, NO_ACCOUNT)

    def test_versions(self) -> None:
        for version in cases((0, 4095, 8193, 0x7FFFFFFF, -1, -8192)):
            with self.subTest(version=version):
                data = with_number(make_account(ENTRIES), VERSION_AT, version)
                self.assert_bytes_refused(data, "format version")

    def test_header_sizes(self) -> None:
        for size in cases((1265, 4096, *TOO_LARGE)):
            with self.subTest(size=size):
                data = with_number(make_account(ENTRIES), HEADER_SIZE_AT, size)
                self.assert_bytes_refused(data, "header is longer")

    def test_block_sizes(self) -> None:
        for size in cases((49, 1264, *TOO_LARGE)):
            with self.subTest(size=size):
                data = with_number(make_account(ENTRIES), BLOCK_SIZE_AT, size)
                self.assert_bytes_refused(data, "blocks are longer")

    def test_text_lengths(self) -> None:
        fields = ((DESCRIPTION_AT, 255), (MEMO_AT, 255), (CATEGORY_AT, 127))
        for (offset, longest), length in cases(itertools.product(fields, (0, *TOO_LARGE))):
            with self.subTest(offset=offset, length=length):
                # The file is long enough for a text that is one byte too long.
                data = make_account(ENTRIES) + bytes(300)
                data = with_number(data, offset, length or longest + 1)
                self.assert_bytes_refused(data, "longer than its field (in entry 1 of 2)")

    def cut_accounts(self) -> Iterable[tuple[int, bytes]]:
        """Files of all formats that end in the prefix, in the header or in a part of an entry"""
        for version in (V1_0, V1_1, V2_0):
            data = make_account(ENTRIES, version)
            within_entries = range(FRONT_SIZE - 5, len(data), 5)
            for size in (*range(4, PREFIX_SIZE + 2), 600, *within_entries, len(data) - 1):
                yield version, data[:size]

    def test_ends_too_early(self) -> None:
        for version, data in cases(self.cut_accounts()):
            file = self.write("account.qmk", data)
            command = COMMANDS[len(data) % len(COMMANDS)]
            with self.subTest(command, version=version, size=len(data)):
                self.assert_refused(run(*self.words_for(command, file)), file, ENDS_EARLY)
                self.assertEqual(self.names_in_folder(), ["account.qmk"])

    def test_the_entry_that_is_cut_is_told(self) -> None:
        data = make_account(ENTRIES)
        for size, entry in ((len(data) - 1, 2), (FRONT_SIZE + 10, 1)):
            self.assert_bytes_refused(data[:size], f"{ENDS_EARLY} (in entry {entry} of 2)")

    def test_an_absurd_count(self) -> None:
        for entries in ([], ENTRIES):
            data = with_number(make_account(entries), COUNT_AT, 0x7FFFFFFF)
            began = time.monotonic()
            self.assert_bytes_refused(data, ENDS_EARLY)
            if not IS_WINDOWS:
                self.assertLess(time.monotonic() - began, len(COMMANDS))

    def test_an_absurd_count_of_empty_blocks(self) -> None:
        """An entry whose block and texts are empty has 12 bytes. There must not be more entries
        than the file has room for."""
        data = with_number(make_account(), COUNT_AT, 0x7FFFFFFF)
        data = with_number(data, BLOCK_SIZE_AT, 0) + bytes(120)
        self.assert_bytes_refused(data, f"{ENDS_EARLY} (in entry 11 of 2147483647)")

    def test_a_negative_count_reads_as_none(self) -> None:
        for count in (-1, -2**31):
            file = self.write("account.qmk", with_number(make_account(), COUNT_AT, count))
            with self.subTest(count=count):
                self.assertEqual(self.assert_done(run("info", file, "--json")).json()["count"], 0)
                listing = self.assert_done(run("list", file, "--json")).json()
                self.assertEqual((listing["count"], listing["rows"]), (0, []))
                self.assert_done(run("convert", file, self.folder / "out.qmk", "--force"))
                self.assertEqual((self.folder / "out.qmk").read_bytes(), make_account())

    def test_entries_behind_a_negative_count_are_found(self) -> None:
        data = with_number(make_account(ENTRIES), COUNT_AT, -2)
        result = run("check", self.write("account.qmk", data))
        self.assert_one_error_line(result, 1)
        self.assertIn(f"trailing bytes: {len(data) - FRONT_SIZE}".encode(), result.out)


class NotToBeHad(RefusalTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.file = self.write("account.qmk", make_account(ENTRIES))

    def assert_read(self, **settings: Any) -> None:
        for command in READING:
            with self.subTest(command):
                self.assert_done(run(command, self.file, **settings))

    @posix_only
    def test_a_file_that_another_program_holds(self) -> None:
        with open(self.file, "rb") as held:
            fcntl.flock(held, fcntl.LOCK_EX)
            self.assert_all_refuse(self.file, "open in another program")
            fcntl.flock(held, fcntl.LOCK_UN)
            self.assert_read()

    @posix_only
    def test_a_file_that_the_user_may_not_read(self) -> None:
        other_user = self.options_of_other_user()
        self.folder.chmod(0o777)
        self.file.chmod(0)
        self.assert_all_refuse(self.file, "permission denied", **other_user)
        self.file.chmod(0o600)
        self.assertEqual(self.file.read_bytes(), make_account(ENTRIES))

    @posix_only
    def test_a_file_that_the_user_may_only_read(self) -> None:
        other_user = self.options_of_other_user()
        self.file.chmod(0o444)
        self.assert_read(**other_user)
        self.folder.chmod(0o777)
        out = self.folder / "out.qmk"
        self.assert_done(run("convert", self.file, out, **other_user))
        self.assertEqual(out.read_bytes(), self.file.read_bytes())
        if other_user:
            self.assertEqual(out.stat().st_uid, NOBODY)

    def test_a_file_marked_read_only(self) -> None:
        self.file.chmod(0o444)
        self.assert_read()


class Passwords(RefusalTestCase):

    def setUp(self) -> None:
        super().setUp()
        self.file = self.write_account(header={"szPassword": PASSWORD}, entries=ENTRIES)

    def run_with(self, command: str, *options: str) -> Result:
        return run(*self.words_for(command, self.file, "out.qmk"), *options)

    def assert_secret(self, result: Result) -> None:
        for text in (result.out, result.err):
            self.assertNotIn(PASSWORD.lower(), text.lower(), str(result))
            self.assertNotIn(b"szPassword", text, str(result))

    def assert_opens(self, password: str) -> None:
        out = self.folder / "out.qmk"
        for command in COMMANDS:
            with self.subTest(command, password=password):
                result = self.run_with(command, "--password", password)
                self.assert_secret(self.assert_done(result))
        self.assertEqual(out.read_bytes(), self.file.read_bytes())
        out.unlink()

    def test_the_right_one_whatever_its_case(self) -> None:
        password = PASSWORD.decode("ascii")
        for text in (password, password.upper(), password.lower()):
            self.assert_opens(text)

    def test_a_wrong_one(self) -> None:
        right = PASSWORD.decode("ascii")
        for text in cases(("", right[:-1], right + "x", " " + right, right[::-1], "*", "wrong")):
            for command in self.commands():
                with self.subTest(command, password=text):
                    result = self.run_with(command, "--password", text)
                    self.assert_refused(result, self.file, "the password is wrong")
                    self.assert_secret(result)
                    self.assertEqual(self.names_in_folder(), ["account.qmk"])

    def test_a_missing_one(self) -> None:
        for command in COMMANDS:
            with self.subTest(command):
                result = self.run_with(command)
                self.assert_refused(result, self.file, "password protected")
                self.assert_secret(result)
                self.assertEqual(self.names_in_folder(), ["account.qmk"])

    def test_info_tells_that_there_is_one(self) -> None:
        words = ("info", self.file, "--password", PASSWORD.decode("ascii"))
        result = self.assert_done(run(*words, "--json"))
        self.assert_secret(result)
        self.assertIs(result.json()["header"]["bHasPassword"], True)
        self.assertIn(b"Password           yes", self.assert_done(run(*words)).lines())

    def test_info_tells_that_there_is_none(self) -> None:
        header = self.assert_done(run("info", SAMPLE, "--json")).json()["header"]
        self.assertIs(header["bHasPassword"], False)
        self.assertNotIn("szPassword", header)

    def test_none_is_needed_where_there_is_none(self) -> None:
        for password in ("", "anything"):
            with self.subTest(password):
                self.assert_done(run("check", SAMPLE, "--password", password))

    def test_the_last_of_several_counts(self) -> None:
        right = PASSWORD.decode("ascii")
        self.assert_done(self.run_with("check", "--password", "wrong", "--password", right))

    def test_a_password_may_look_like_an_option(self) -> None:
        self.file = self.write_account(header={"szPassword": b"--json"})
        self.assert_done(self.run_with("check", "--password", "--json"))

    def test_a_damaged_file_is_told_before_the_password(self) -> None:
        self.file.write_bytes(self.file.read_bytes()[:-1])
        self.assert_refused(self.run_with("info"), self.file, ENDS_EARLY)


if __name__ == "__main__":
    unittest.main()
