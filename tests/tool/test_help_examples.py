"""Checks that every example of a report in the help is real. The command in the comment before the
example must print the lines that the page shows. The page shows several empty lines as one."""

import html
import re
import shlex
import unittest

from support import REPO, SAMPLE, ToolTestCase, run

PAGES = REPO / "help" / "html"
EXAMPLE = re.compile(r"<!-- qmktool (.*?) -->\n<pre>\n(.*?)\n</pre>", re.DOTALL)
REPORTS = 9


class HelpExamples(ToolTestCase):
    def test_every_report_has_an_example_that_is_real(self) -> None:
        pages = sorted(PAGES.glob("qm_report_*.htm"))
        self.assertEqual(len(pages), REPORTS)
        for page in pages:
            with self.subTest(page.name):
                examples = EXAMPLE.findall(page.read_text(encoding="cp1252"))
                self.assertEqual(len(examples), 1)
                command, shown = examples[0]
                words = [str(SAMPLE) if word == SAMPLE.name else word
                         for word in shlex.split(command)]
                result = run(*words)
                self.assertEqual(result.code, 0, str(result))
                lines = result.out.decode("ascii").replace("\r\n", "\n")
                printed = re.sub(r"\n{3,}", "\n\n", lines).strip("\n")
                self.assertEqual(html.unescape(shown), printed)


if __name__ == "__main__":
    unittest.main()
