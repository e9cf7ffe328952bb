#!/usr/bin/env python3
"""Runs one ring of tests: a GoogleTest program and, for some, the command-line tests of qmktool.

Prints the output of the failed tests, the skipped tests with their reasons, the figures that tests
print on lines of their own ("speed: ..."), and one line of counts. Appends these counts as
"PASSED FAILED SKIPPED" to a file. The exit code is 1 if anything failed.

Given N times, --program runs N parts of the tests side by side, each by its own command line.
--apart FILTER COMMAND takes the tests of a GoogleTest filter out of these parts. They run after the
parts, by this command line, which gives them another environment.

With --second-try, a few failed tests run once more by themselves, because tests of windows depend
on the load of the machine. A test that passes then counts as passed, and is printed with the output
of its first try. A crash or a damaged heap does not depend on the load: such a test gets no second
try, and fails even if the test itself noticed nothing.
"""

import argparse
import os
import re
import shlex
import signal
import subprocess
import sys
import time
import unittest
import xml.etree.ElementTree as ElementTree
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field
from pathlib import Path

PROGRAM_LIMIT_S = 1200
TOOL_TEST_LIMIT_S = 300
# More failures than this are no accident and get no second try.
SECOND_TRIES = 5


@dataclass
class Results:
    passed: int = 0
    failures: list[tuple[str, str]] = field(default_factory=list)  # name, output
    skips: list[tuple[str, str]] = field(default_factory=list)  # name, reason
    second_tries: list[tuple[str, str]] = field(default_factory=list)  # name, first output
    figures: list[str] = field(default_factory=list)

    @property
    def ran(self) -> int:
        return self.passed + len(self.failures) + len(self.skips)

    def add(self, other: "Results") -> None:
        self.passed += other.passed
        self.failures += other.failures
        self.skips += other.skips
        self.second_tries += other.second_tries
        self.figures += other.figures


RUN_LINE = re.compile(r"^\[ RUN      \] (\S+)$")
END_LINE = re.compile(r"^\[(       OK |  FAILED  |  SKIPPED )\] (\S+?),? .*\(\d+ ms\)$")


# What Wine prints about a program that crashed or damaged its heap.
DAMAGE = re.compile(r"wine: Unhandled|:err:heap:|:err:seh:.*(exception|overflow)")


def is_damage(text: str) -> bool:
    return DAMAGE.search(text) is not None


def blocks_of(output: str) -> tuple[dict[str, str], str, str]:
    """Splits what a GoogleTest program printed: the text of every test that ended, by its name;
    the name of a test that began and did not end; the text after the last test that ended."""
    blocks: dict[str, str] = {}
    lines: list[str] = []
    running = ended = ""
    for line in output.splitlines():
        begin, end = RUN_LINE.match(line), END_LINE.match(line)
        if begin:
            # What a program prints while it ends belongs to the test that started it.
            if ended and is_damage("\n".join(lines)):
                blocks[ended] += "\n" + "\n".join(lines)
            running, lines = begin[1], []
        lines.append(line)
        if end and end[2] == running:
            # A program that repeats its tests reports each of them several times.
            blocks[running] = "\n".join([blocks[running], *lines] if running in blocks else lines)
            running, ended, lines = "", running, []
    return blocks, running, "\n".join(lines)


def skip_reason(case: ElementTree.Element) -> str:
    message = case.find("skipped")
    text = (message.get("message") or message.text or "") if message is not None else ""
    # The first line is the place in the source.
    return " ".join(text.strip().splitlines()[1:]) or text.strip() or "no reason given"


def report_results(report: Path, blocks: dict[str, str]) -> Results:
    """The results as the program's own XML report tells them."""
    results = Results()
    # A message may contain any byte, whatever encoding the report names.
    tree = ElementTree.fromstring(report.read_text(encoding="latin-1"))
    for case in tree.iter("testcase"):
        name = f"{case.get('classname')}.{case.get('name')}"
        failure = case.find("failure")
        if failure is not None:
            results.failures.append((name, blocks.get(name) or failure.get("message", "")))
        elif case.get("status") == "notrun":
            results.skips.append((name, "disabled in the source"))
        elif case.get("result") == "skipped":
            results.skips.append((name, skip_reason(case)))
        elif is_damage(blocks.get(name, "")):
            results.failures.append((name, blocks[name]))
        else:
            results.passed += 1
    return results


def crash_results(blocks: dict[str, str]) -> Results:
    """The results of a program that died before it wrote its report, up to where it came."""
    results = Results()
    for name, text in blocks.items():
        lines = text.splitlines()
        if "  FAILED  " in lines[-1]:
            results.failures.append((name, text))
        elif is_damage(text):
            results.failures.append((name, text))
        elif "  SKIPPED " in lines[-1]:
            results.skips.append((name, " ".join(lines[2:-1]).strip() or "no reason given"))
        else:
            results.passed += 1
    return results


def run_program(command: list[str], folder: Path, ring: str,
                part: dict[str, str] | None = None) -> Results:
    """Runs a GoogleTest program. If it dies, hangs or runs no test, that counts as a failure."""
    report = folder / f"{ring}.xml"
    log = folder / f"{ring}.log"
    report.unlink(missing_ok=True)
    ending = ""
    # A file, not a pipe: with a pipe, this would wait for programs that are left running.
    with open(log, "wb") as stream:
        try:
            code = subprocess.run(
                [*command, f"--gtest_output=xml:{os.path.relpath(report)}", "--gtest_color=no"],
                stdin=subprocess.DEVNULL, stdout=stream, stderr=subprocess.STDOUT,
                env=os.environ | (part or {}), timeout=PROGRAM_LIMIT_S, check=False).returncode
        except subprocess.TimeoutExpired:
            code, ending = -1, f"did not end within {PROGRAM_LIMIT_S} s"
        except OSError as error:
            code, ending = -1, str(error)
    output = log.read_text(encoding="utf-8", errors="replace").replace("\r\n", "\n")
    blocks, running, rest = blocks_of(output)
    name = Path(command[-1]).name
    try:
        results = report_results(report, blocks)
    except (OSError, ElementTree.ParseError):
        results = crash_results(blocks)
        ending = ending or f"ended with code {code} and without a report"
        results.failures.append((running or name, f"{rest}\n{name} {ending}"))
        return results
    results.figures = [line for line in output.splitlines() if line.startswith("speed: ")]
    if code != 0 and not results.failures:
        what = f"{name} passed its tests and then ended with code {code}"
        results.failures.append((name, f"{rest}\n{what}"))
    if results.ran == 0:
        results.failures.append((name, f"{output}\n{name} ran no test"))
    return results


def run_parts(commands: list[list[str]], folder: Path, ring: str) -> Results:
    """Divides the tests of a program among several runs of it, which go side by side."""
    if len(commands) == 1:
        return run_program(commands[0], folder, ring)
    parts = [{"GTEST_TOTAL_SHARDS": str(len(commands)), "GTEST_SHARD_INDEX": str(index)}
             for index in range(len(commands))]
    names = [f"{ring}-{index}" for index in range(len(commands))]
    results = Results()
    with ThreadPoolExecutor(len(commands)) as pool:
        for part in pool.map(run_program, commands, [folder] * len(commands), names, parts):
            results.add(part)
    return results


def filtered(command: list[str], positive: str, negative: list[str]) -> list[str]:
    """The command line for the tests of one filter without those of others."""
    words = positive + ("-" + ":".join(negative) if negative else "")
    return [*command, f"--gtest_filter={words}"] if words else command


def try_again(results: Results, command: list[str], folder: Path, ring: str) -> None:
    """Runs the failed tests once more, and moves those that pass now from the failures."""
    names = [name for name, _ in results.failures]
    known = all(re.fullmatch(r"\w[\w/]*\.\w[\w/]*", name) for name in names)
    damaged = any(is_damage(text) for _, text in results.failures)
    if not names or not known or damaged or len(names) > SECOND_TRIES:
        return
    again = run_program([*command, f"--gtest_filter={':'.join(names)}"], folder, f"{ring}-again")
    if again.skips or again.ran != len(names):
        return
    failed = {name for name, _ in again.failures}
    results.second_tries = [case for case in results.failures if case[0] not in failed]
    results.failures = [case for case in results.failures if case[0] in failed]
    results.passed += len(results.second_tries)


class ToolResult(unittest.TestResult):
    """Counts every test once, however many of its subtests fail, and stops one that hangs."""

    def __init__(self) -> None:
        super().__init__()
        self.results = Results()
        self.buffer = True
        signal.signal(signal.SIGALRM, self._on_alarm)

    @staticmethod
    def _on_alarm(*_: object) -> None:
        raise TimeoutError(f"the test did not end within {TOOL_TEST_LIMIT_S} s")

    def startTest(self, test: unittest.TestCase) -> None:
        super().startTest(test)
        signal.alarm(TOOL_TEST_LIMIT_S)

    def stopTest(self, test: unittest.TestCase) -> None:
        signal.alarm(0)
        super().stopTest(test)

    def addSuccess(self, test: unittest.TestCase) -> None:
        super().addSuccess(test)
        self.results.passed += 1

    def addSkip(self, test: unittest.TestCase, reason: str) -> None:
        super().addSkip(test, reason)
        self.results.skips.append((test.id(), reason))

    def addExpectedFailure(self, test: unittest.TestCase, err: object) -> None:
        super().addExpectedFailure(test, err)
        self.results.passed += 1

    def gathered(self) -> Results:
        texts: dict[str, str] = {}
        for test, text in self.errors + self.failures:
            owner = getattr(test, "test_case", test)
            label = f"{test.id()}\n{text}" if owner is not test else text
            texts[owner.id()] = texts.get(owner.id(), "") + label
        for test in self.unexpectedSuccesses:
            texts[test.id()] = "passed, though marked as an expected failure\n"
        self.results.failures += list(texts.items())
        return self.results


def run_tool_tests(tool: str, folder: str) -> Results:
    """Runs the command-line tests with `tool` as the program under test."""
    os.environ["QMKTOOL"] = tool
    sys.dont_write_bytecode = True
    result = ToolResult()
    unittest.defaultTestLoader.discover(folder).run(result)
    results = result.gathered()
    if results.ran == 0:
        results.failures.append((folder, f"{folder} holds no test"))
    return results


def print_results(ring: str, results: Results, seconds: float) -> None:
    for name, text in results.failures:
        print(f"{ring}: FAILED {name}\n{text.rstrip()}\n")
    for name, text in results.second_tries:
        print(f"{ring}: {name} passed at its second try; the first said\n{text.rstrip()}\n")
    for name, reason in results.skips:
        print(f"{ring}: skipped {name}: {reason}")
    for line in results.figures:
        print(f"{ring}: {line}")
    print(f"{ring}: {results.passed} passed, {len(results.failures)} failed, "
          f"{len(results.skips)} skipped ({seconds:.1f} s)", flush=True)


def conclude(ring: str, results: Results, seconds: float, counts: Path) -> int:
    """Prints the results, appends their counts to a file, and returns the exit code."""
    print_results(ring, results, seconds)
    with open(counts, "a", encoding="ascii") as stream:
        stream.write(f"{results.passed} {len(results.failures)} {len(results.skips)}\n")
    return 1 if results.failures else 0


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("ring", help="the name to print")
    parser.add_argument("--program", required=True, action="append",
                        help="command line of the GoogleTest program")
    parser.add_argument("--apart", nargs=2, action="append", default=[],
                        metavar=("FILTER", "COMMAND"), help="tests with a command of their own")
    parser.add_argument("--tool", help="command line of the qmktool under test")
    parser.add_argument("--tool-tests", default="tests/tool", help="folder of the qmktool tests")
    parser.add_argument("--second-try", action="store_true", help="run failed tests once more")
    parser.add_argument("--counts", type=Path, required=True, help="file to append the counts to")
    options = parser.parse_args()

    # When this script is killed, it must first end the program that it waits for.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    began = time.monotonic()
    options.counts.parent.mkdir(parents=True, exist_ok=True)
    commands, folder = [shlex.split(line) for line in options.program], options.counts.parent
    results = Results()
    kinds = [(commands, "", [positive for positive, _ in options.apart])]
    kinds += [([shlex.split(line)], positive, []) for positive, line in options.apart]
    for number, (kind, positive, negative) in enumerate(kinds):
        name = f"{options.ring}-apart{number}" if number else options.ring
        found = run_parts([filtered(command, positive, negative) for command in kind], folder, name)
        if options.second_try:
            try_again(found, kind[0], folder, name)
        results.add(found)
    if options.tool:
        results.add(run_tool_tests(options.tool, options.tool_tests))
    return conclude(options.ring, results, time.monotonic() - began, options.counts)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        sys.exit(130)
