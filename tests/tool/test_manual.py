"""The manual page and the completion for bash, which scripts/manual.py makes from the help"""

import re
import subprocess
import sys
import unittest

from support import IS_WINDOWS, PROGRAM, SCRIPTS, ToolTestCase, run


@unittest.skipIf(IS_WINDOWS, "packages for Windows have no manual page")
class ManualTests(ToolTestCase):

    def setUp(self) -> None:
        super().setUp()
        subprocess.run([sys.executable, "-B", SCRIPTS / "manual.py", PROGRAM[-1], self.folder],
                       check=True)
        self.page = self.folder / "qmktool.1"
        text = run("--help").out.decode()
        self.options = re.findall(r"^  (--[a-z-]+) ", text, re.MULTILINE)
        self.commands = re.findall(r"^  qmktool (\w+) ", text, re.MULTILINE)

    def completed(self, *words: str) -> list[str]:
        """The words that the completion offers for the last one."""
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); '
                  'compopt() { :; }; _qmktool; printf "%s\\n" "${COMPREPLY[@]}"')
        result = subprocess.run(["bash", "-c", script, "bash", self.folder / "qmktool.bash",
                                 "qmktool", *words], cwd=self.folder, check=True,
                                capture_output=True, encoding="utf-8")
        self.assertEqual(result.stderr, "")
        return result.stdout.split()

    def test_the_page_tells_every_command_and_option(self) -> None:
        page = self.page.read_text(encoding="ascii").replace("\\-", "-")
        self.assertGreater(len(self.options), 20)
        for option in self.options:
            self.assertIn(f"\n.TP\n\\fB{option}\\fR", page)
        for command in self.commands:
            self.assertIn(f"\\fBqmktool\\fR \\fB{command}\\fR ", page)
        for line in run("--help").out.decode().splitlines():
            if found := re.match(r"  --\S+(?: \S+)? {2,}([^,;:]+)", line):
                sentence = re.escape(found[1].strip()).replace(r"\ ", r"\s+")
                self.assertRegex(page, re.compile(sentence, re.IGNORECASE))

    def test_commands_are_completed(self) -> None:
        offered = self.completed("")
        for command in (*self.commands, "help", "--version", "--help"):
            self.assertIn(command, offered)
        self.assertEqual(self.completed("conv"), ["convert"])
        self.assertEqual(self.completed("help", "conv"), ["convert"])

    def test_options_are_those_of_the_command(self) -> None:
        for command in self.commands:
            if command == "help":
                continue
            own = re.findall(r"^  (--[a-z-]+) ", run("help", command).out.decode(), re.MULTILINE)
            self.assertEqual(self.completed(command, "-"), own, command)

    def test_each_option_is_named_once(self) -> None:
        page = self.page.read_text(encoding="ascii").replace("\\-", "-")
        self.assertEqual(sorted(set(self.options)), sorted(self.options))
        for option in self.options:
            self.assertEqual(page.count(f"\n.TP\n\\fB{option}\\fR"), 1, option)
        for command in self.commands:
            offered = self.completed(command, "-")
            self.assertEqual(sorted(set(offered)), sorted(offered), command)

    def test_values_of_an_option_are_those_of_the_command(self) -> None:
        shown, read = ["cp1252", "utf-8"], ["auto", "utf-8", "utf-16", "cp1252", "latin1"]
        for command, words in (("info", shown), ("list", shown), ("report", shown),
                               ("convert", read), ("import", read)):
            self.assertEqual(self.completed(command, "--encoding", ""), words, command)
        for command in ("convert", "import"):
            self.assertEqual(self.completed(command, "--from", ""), ["qif", "csv", "xml"], command)
        self.assertEqual(self.completed("convert", "--to", "c"), ["csv"])

    def test_values_are_completed(self) -> None:
        self.assertEqual(self.completed("convert", "--format", ""), ["1.0", "1.1", "2.0"])
        self.assertEqual(self.completed("report", "--kind", "v"), ["voided"])
        self.assertEqual(self.completed("list", "--from", ""), [])

    def test_files_are_completed(self) -> None:
        self.write("a.qmk", b"")
        self.assertEqual(self.completed("info", "a"), ["a.qmk"])
        self.assertEqual(self.completed("report", "--pdf", "a"), ["a.qmk"])


if __name__ == "__main__":
    unittest.main()
