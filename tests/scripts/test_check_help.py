"""Tests of scripts/check_help.py: it finds what it is there to find."""

import sys
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
import check_help  # noqa: E402


class CheckHelp(unittest.TestCase):
    def setUp(self) -> None:
        self.texts = check_help.pages()

    def test_the_sources_are_whole(self) -> None:
        self.assertEqual(list(check_help.dead_links(self.texts)), [])
        self.assertEqual(list(check_help.commands_without_topic(self.texts)), [])

    def test_a_command_without_topic_is_found(self) -> None:
        page = self.texts["qm_menu_file.htm"]
        self.texts["qm_menu_file.htm"] = page.replace('id="saveas"', "")
        self.assertEqual(list(check_help.commands_without_topic(self.texts)),
                         ["IDM_FILE_SAVEAS has no topic qm_menu_file.htm#saveas"])

    def test_a_menu_without_page_is_found(self) -> None:
        del self.texts["qm_menu_view.htm"]
        self.assertIn("IDM_VIEW_TOOLBAR has no topic qm_menu_view.htm#toolbar",
                      list(check_help.commands_without_topic(self.texts)))

    def test_links_to_nothing_are_found(self) -> None:
        for target in ("gone.htm", "qm_keys.htm#gone", "#gone", "../images/gone.png", "gone.css"):
            texts = self.texts | {"new.htm": f'<a href="{target}">x</a>'}
            self.assertEqual(len(list(check_help.dead_links(texts))), 1, target)

    def test_a_page_that_no_list_names_is_found(self) -> None:
        texts = self.texts | {"new.htm": ""}
        self.assertEqual(list(check_help.gaps_in_lists(texts)),
                         ["quillmark.hhc: new.htm is missing", "quillmark.hhk: new.htm is missing"])
        self.assertEqual(list(check_help.gaps_in_project(texts)),
                         ["quillmark.hhp: html/new.htm is missing"])

    def test_a_file_of_the_project_that_nothing_uses_is_found(self) -> None:
        del self.texts["qm_keys.htm"]
        self.assertIn("quillmark.hhp: html/qm_keys.htm is not used",
                      list(check_help.gaps_in_project(self.texts)))


if __name__ == "__main__":
    unittest.main()
