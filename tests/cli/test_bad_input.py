import subprocess
import unittest

from lisphost import FOLDER, LISPHOST, TIMEOUT, WINDOWS, LispHostTest, possible_names

# Names that tempt a program to split, quote or decode them wrongly.
NAMES = possible_names([
    "two words.lsp", " blank first.lsp", "quo\"te's.lsp", "new\nline.lsp", "Größe €.lsp", "back\\slash.lsp",
    "percent%s%n.lsp", "(paren;thesis).lsp", "\U0001d518nicode.lsp", "-dash.lsp"])


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


class Arguments(LispHostTest):
    @unittest.skipIf(WINDOWS, "they are UTF-16 there")
    def test_arguments_that_are_not_utf_8_are_refused(self):
        for arguments in ((b"eval", b'(princ "\xe9")'), (b"run", b"caf\xe9.lsp"), (b"run", b"a.lsp", b"--", b"\xff")):
            with self.subTest(arguments):
                outcome = self.lisphost(*arguments)
                self.assertEqual((outcome.status, outcome.output), (2, ""))
                self.assertEqual(outcome.errors, "lisphost: the arguments have to be UTF-8\n")

    def test_expressions_from_a_stream_may_be_windows_1252(self):
        process = subprocess.run([LISPHOST, "repl"], input='(princ "é")(princ)'.encode("cp1252"), capture_output=True,
                                 cwd=self.folder, env=self.environment, timeout=TIMEOUT)
        self.assertEqual(process.stdout.decode(), 'é\n"é"\n')

    def test_a_module_that_was_cut_short_cannot_be_read(self):
        whole = (FOLDER / "LispExtension.tx").read_bytes()
        for size in (0, 3, 40, 100, 3000, len(whole) // 2):
            with self.subTest(size):
                self.write("cut.tx", whole[:size])
                self.assert_fails(self.lisphost("--module", "cut.tx", "eval", "1"), 3,
                                  r"^lisphost: .*cut\.tx: not a library of this system, or not all of it\n$")
                self.assert_gives(self.evaluate('(arxload "cut.tx" "no")'), '"no"\n')


unittest.main()
