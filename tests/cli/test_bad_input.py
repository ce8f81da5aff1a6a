import unittest

from lisphost import LispHostTest

# Names that tempt a program to split, quote or decode them wrongly.
NAMES = ["two words.lsp", " blank first.lsp", "quo\"te's.lsp", "new\nline.lsp", "Größe €.lsp", "back\\slash.lsp",
         "percent%s%n.lsp", "(paren;thesis).lsp", "\U0001d518nicode.lsp", "-dash.lsp"]


class Programs(LispHostTest):
    def test_a_missing_file_is_named(self):
        self.assert_fails(self.lisphost("run", "missing.lsp"), 3, r"^lisphost: .*missing\.lsp")

    def test_a_directory_is_no_program(self):
        (self.folder / "folder.lsp").mkdir()
        self.assert_fails(self.lisphost("run", "folder.lsp"), 3, r"^lisphost: .*folder\.lsp: is a folder")

    def test_a_binary_file_is_no_program(self):
        self.write("binary.lsp", b"\x7fELF\x02\x01\x01\0\0\0\0" + bytes(range(256)))
        self.assert_fails(self.lisphost("run", "binary.lsp"), 3, r"^lisphost: .*binary\.lsp: is not a text file")

    def test_a_file_that_may_not_be_read_is_named(self):
        self.write("secret.lsp", '(princ "secret")').chmod(0)
        self.assert_fails(self.lisphost("run", "secret.lsp"), 3, r"^lisphost: .*secret\.lsp")

    def test_nothing_of_the_other_programs_is_lost(self):
        self.write("first.lsp", '(princ "first")')
        outcome = self.lisphost("run", "first.lsp", "missing.lsp")
        self.assert_fails(outcome, 3, r"missing\.lsp")
        self.assertEqual(outcome.output.rstrip("\n"), "first")

    def test_unusual_names(self):
        for name in NAMES:
            with self.subTest(name):
                self.write(name, '(princ "ran")')
                self.assert_gives(self.lisphost("run", "./" + name), "ran")

    def test_a_path_of_4096_bytes_cannot_be_opened(self):
        path = "./" + "a/" * 2045 + "x.lsp"
        self.assertGreaterEqual(len(path), 4096 - 1)
        outcome = self.lisphost("run", path)
        self.assertEqual((outcome.status, outcome.output), (3, ""))
        self.assertRegex(outcome.errors, "^lisphost: ")


class HugePrograms(LispHostTest):
    def test_a_single_line_of_100_megabytes(self):
        line = '(setq a "%s")' % ("x" * 990)
        count = 100_000_000 // len(line)
        outcome = self.run_program(line * count + "(princ (strlen a))")
        self.assert_gives(outcome, "990")

    def test_a_single_string_of_100_megabytes(self):
        self.assert_gives(self.run_program('(princ (strlen "%s"))' % ("x" * 100_000_000)), "100000000")

    def test_100000_parentheses_that_stay_open(self):
        self.assert_fails(self.run_program("(" * 100_000), 1, r"^error: .*")

    def test_100000_nested_lists(self):
        depth = 100_000
        outcome = self.run_program("(setq a '%s1%s)\n(setq n 0)\n(while (listp a) (setq a (car a) n (1+ n)))\n(princ n)"
                                   % ("(" * depth, ")" * depth))
        self.assert_gives(outcome, str(depth))

    def test_100000_nested_calls_work_or_give_an_error(self):
        depth = 100_000
        outcome = self.run_program("(princ %s1%s)" % ("(1+ " * depth, ")" * depth))
        if outcome.status == 0:
            self.assertEqual(outcome.output, str(depth + 1))
        else:
            self.assert_fails(outcome, 1, "^error: ")

    def test_a_tangle_of_bytes_is_an_error(self):
        self.assert_fails(self.run_program(b'(princ "\xff\xfe\xc3" ))) \\ . . #'), 1, "^error: ")


unittest.main()
