"""The example that cleans texts: what it does to them, and that a second run picks up the options of the first."""

import shutil
import unittest
from pathlib import Path

from lisphost import LispHostTest

EXAMPLE = Path(__file__).resolve().parents[2] / "examples" / "clean-texts"


class CleanTexts(LispHostTest):
    def setUp(self) -> None:
        super().setUp()
        for name in ("clean-texts.lsp", "texts.txt"):
            shutil.copy(EXAMPLE / name, self.folder)

    def clean(self, *options: str) -> tuple[list[str], list[str]]:
        """What a run shows of its options, and of the texts."""
        outcome = self.lisphost("--profile", "kept", "run", "clean-texts.lsp", "--", *options)
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        lines = outcome.output.splitlines()
        return lines[:5], lines[5:]

    def test_texts_are_cleaned_by_the_rules(self):
        self.assertEqual(self.clean()[1], [
            "1: Ground floor", "2: Kitchen 12.40 m²", "3: Bath room 6.15 m²", "4: Living Rm. 24.90 m²",
            "5: Ceiling height 2.52 m", "6: See detail A, sheet 3", "7: Stair 18 x 17.5 / 28", "8: North elevation",
            "6 of 8 texts changed"])

    def test_a_second_run_picks_up_the_options_of_the_first(self):
        first_options, first_texts = self.clean("rules=codes,words", "line=<%2>", "case=ignore")
        second_options, second_texts = self.clean()
        self.assertEqual(first_options, ["Run 1", "  list=texts.txt (default)", "  rules=codes,words", "  line=<%2>",
                                         "  case=ignore"])
        self.assertEqual(second_options, ["Run 2", "  list=texts.txt (kept)", "  rules=codes,words (kept)",
                                          "  line=<%2> (kept)", "  case=ignore (kept)"])
        self.assertEqual(first_texts[3], "<Living  room   24,90 m²>")
        self.assertEqual(second_texts, first_texts)

    def test_an_option_that_is_given_again_takes_the_place_of_the_kept_one(self):
        self.clean("line=%2")
        self.assertEqual(self.clean("line=%1/%2")[1][0], "1/Ground floor")
        self.assertEqual(self.clean()[1][0], "1/Ground floor")

    def test_options_that_cannot_be_used_are_not_kept(self):
        self.assertEqual(self.clean("list=missing.txt"), (["There is no list missing.txt"], []))
        self.assertEqual(self.clean("rules=blanks,rubbish"), (["There is no rule rubbish"], []))
        self.assertEqual(self.clean()[0][:3], ["Run 1", "  list=texts.txt (default)",
                                               "  rules=codes,blanks,measures,words (default)"])


if __name__ == "__main__":
    unittest.main()
