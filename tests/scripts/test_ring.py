"""How a ring counts and tells what its programs say, with a stand-in for a GoogleTest program."""

import contextlib
import io
import os
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

SCRIPTS = Path(__file__).resolve().parents[2] / "scripts"
sys.path.insert(0, str(SCRIPTS))

import ring  # noqa: E402

# Its tests and what each does stand in the file "plan" of the folder that is its first argument:
# lines of a name, a result (ok, fail, skip, once: fails the first time, die) and a text that it
# prints. It runs its own part of them, or those that a filter names, and tells its surroundings.
PROGRAM = r'''
import os, sys
folder, arguments = sys.argv[1], dict(a[2:].split("=", 1) for a in sys.argv[2:])
plan = [line.rstrip("\n").split("|") for line in open(folder + "/plan")]
parts, part = (int(os.environ.get("GTEST_" + n, d)) for n, d in
               (("TOTAL_SHARDS", 1), ("SHARD_INDEX", 0)))
wanted, _, unwanted = arguments.get("gtest_filter", "*").partition("-")
names, others = (wanted or "*").split(":"), unwanted.split(":")
cases, failed = "", False
for index, (name, result, text) in enumerate(plan):
    if (name not in names and names != ["*"]) or name in others or index % parts != part:
        continue
    print(f"[ RUN      ] {name}\n{text}" + os.environ.get("WHERE", ""), flush=True)
    if result == "die":
        sys.exit(3)
    mark = f"{folder}/{name}.ran"
    bad = result == "fail" or result == "once" and not os.path.exists(mark)
    open(mark, "w").close()
    failed |= bad
    word = "[  FAILED  ]" if bad else "[  SKIPPED ]" if result == "skip" else "[       OK ]"
    print(f"{word} {name} (0 ms)", flush=True)
    suite, case = name.split(".")
    inner = '<failure message="bad"/>' if bad else ""
    if result == "skip":
        inner = '<skipped message="place&#10;a reason"/>'
    kind = "skipped" if result == "skip" else "completed"
    cases += f'<testcase name="{case}" status="run" result="{kind}" classname="{suite}">' \
             f"{inner}</testcase>"
path = arguments["gtest_output"].split(":", 1)[1]
open(path, "w").write(f"<testsuites><testsuite>{cases}</testsuite></testsuites>")
sys.exit(failed)
'''


class RingCase(unittest.TestCase):
    def setUp(self) -> None:
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = Path(holder.name)
        (self.folder / "program.py").write_text(PROGRAM, encoding="utf-8")

    def run_ring(self, *plan: str, parts: int = 1, apart: str = "") -> tuple[int, str, str]:
        """The exit code, the counts and what was printed."""
        (self.folder / "plan").write_text("\n".join(plan), encoding="utf-8")
        command = f"{sys.executable} {self.folder}/program.py {self.folder}"
        arguments = ["ring.py", "r", "--counts", f"{self.folder}/counts", "--second-try",
                     *["--program", command] * parts]
        if apart:
            arguments += ["--apart", apart, f"env WHERE=elsewhere {command}"]
        printed = io.StringIO()
        with mock.patch.object(sys, "argv", arguments), contextlib.redirect_stdout(printed):
            code = ring.main()
        counts = (self.folder / "counts").read_text(encoding="ascii").strip()
        return code, counts, printed.getvalue()

    def test_counts_what_passed_and_was_skipped(self) -> None:
        code, counts, printed = self.run_ring("A.one|ok|", "A.two|skip|", "B.three|ok|")
        self.assertEqual((code, counts), (0, "2 0 1"))
        self.assertIn("r: skipped A.two: a reason\n", printed)
        self.assertIn("r: 2 passed, 0 failed, 1 skipped (", printed)

    def test_shows_what_a_failed_test_said(self) -> None:
        code, counts, printed = self.run_ring("A.one|ok|", "A.two|fail|the words of it")
        self.assertEqual((code, counts), (1, "1 1 0"))
        self.assertIn("r: FAILED A.two\n", printed)
        self.assertIn("the words of it\n", printed)

    def test_a_second_try_is_told(self) -> None:
        code, counts, printed = self.run_ring("A.one|once|late", "A.two|ok|")
        self.assertEqual((code, counts), (0, "2 0 0"))
        self.assertIn("r: A.one passed at its second try; the first said\n", printed)
        self.assertIn("late\n", printed)

    def test_many_failures_get_no_second_try(self) -> None:
        code, counts, _ = self.run_ring(*(f"A.n{i}|once|" for i in range(ring.SECOND_TRIES + 1)))
        self.assertEqual((code, counts), (1, f"0 {ring.SECOND_TRIES + 1} 0"))

    def test_a_crash_fails_the_test_that_saw_nothing(self) -> None:
        for words in ("wine: Unhandled page fault on read access to 0",
                      "0024:err:heap:validate_free_block heap 1, block 2: free block overwritten"):
            code, counts, printed = self.run_ring("A.one|ok|" + words, "A.two|ok|")
            self.assertEqual((code, counts.splitlines()[-1]), (1, "1 1 0"))
            self.assertIn(words, printed)

    def test_a_program_that_dies_fails(self) -> None:
        code, counts, printed = self.run_ring("A.one|ok|", "A.two|die|", "A.three|ok|")
        self.assertEqual((code, counts), (1, "1 1 0"))
        self.assertIn("ended with code 3 and without a report", printed)

    def test_a_program_without_tests_fails(self) -> None:
        code, counts, _ = self.run_ring()
        self.assertEqual((code, counts), (1, "0 1 0"))

    def test_parts_run_every_test_once(self) -> None:
        plan = [f"A.n{i}|{'once' if i == 2 else 'ok'}|" for i in range(7)]
        code, counts, printed = self.run_ring(*plan, parts=3)
        self.assertEqual((code, counts), (0, "7 0 0"))
        self.assertIn("A.n2 passed at its second try", printed)
        self.assertEqual(len(list(self.folder.glob("*.ran"))), 7)
        self.assertNotIn("GTEST_TOTAL_SHARDS", os.environ)

    def test_tests_apart_run_once_and_elsewhere(self) -> None:
        plan = ("A.one|fail|first", "A.two|fail|second", "A.three|ok|", "A.four|ok|")
        code, counts, printed = self.run_ring(*plan, parts=2, apart="A.two")
        self.assertEqual((code, counts), (1, "2 2 0"))
        self.assertIn("secondelsewhere\n", printed)
        self.assertNotIn("firstelsewhere", printed)

    def test_figures_are_printed(self) -> None:
        _, _, printed = self.run_ring("A.one|ok|speed: of light", "A.two|ok|slow")
        self.assertIn("r: speed: of light", printed)
        self.assertNotIn("slow", printed)


if __name__ == "__main__":
    unittest.main()
