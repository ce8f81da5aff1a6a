import unittest

from lisphost import LispHostTest, WINDOWS, possible_names, quoted

NAMES = possible_names(["two words", "quo\"te's", "new\nline", "Größe €", "percent%s%n", "\U0001d518nicode"])


class Ini(LispHostTest):
    def test_a_directory_gives_nil_and_stays(self):
        self.write("folder.ini/inside.txt", "kept")
        outcome = self.evaluate('(acet-ini-get "folder.ini")', '(acet-ini-get "folder.ini" "A" "b" "c")',
                                '(acet-ini-set "folder.ini" "A" "b" "c")')
        self.assert_gives(outcome, "nil\nnil\nnil\n")
        self.assertEqual((self.folder / "folder.ini/inside.txt").read_text(), "kept")

    def test_a_file_that_may_not_be_read_or_written_gives_nil_and_stays(self):
        file = self.write("secret.ini", "[A]\nb=c\n")
        file.chmod(0)
        outcome = self.evaluate('(acet-ini-get "secret.ini" "A" "b" "default")',
                                '(acet-ini-set "secret.ini" "A" "b" "d")')
        self.assert_gives(outcome, "nil\nnil\n")
        file.chmod(0o600)
        self.assertEqual(file.read_text(), "[A]\nb=c\n")

    def test_a_file_in_a_folder_that_may_not_be_written_is_not_made(self):
        (self.folder / "closed").mkdir(mode=0o500)
        self.assert_gives(self.evaluate('(acet-ini-set "closed/new.ini" "A" "b" "c")'), "nil\n")
        self.assertEqual(list((self.folder / "closed").iterdir()), [])

    def test_unusual_names(self):
        for name in NAMES:
            with self.subTest(name):
                file = quoted(name + ".ini")
                outcome = self.evaluate(f'(acet-ini-set {file} "A" "b" "c")', f'(acet-ini-get {file} "A" "b")')
                self.assert_gives(outcome, 'T\n"c"\n')
                self.assertEqual((self.folder / (name + ".ini")).read_text().strip(), "[A]\nb=c")

    def test_a_path_of_4096_bytes_gives_nil(self):
        file = quoted("a/" * 2045 + "ab.ini")
        self.assert_gives(self.evaluate(f'(acet-ini-get {file} "A" "b" "c")'), "nil\n")


class Files(LispHostTest):
    def test_unusual_names(self):
        for name in NAMES:
            with self.subTest(name):
                folder, file = quoted(name), quoted(name + "/a " + name)
                outcome = self.evaluate(f"(acet-file-mkdir {folder})", f'(close (open {file} "w"))',
                                        f"(acet-file-attr {file})", f"(acet-file-move {file} {quoted(name + '/b')})",
                                        f'(vl-directory-files {folder} nil 1)', f"(acet-file-chdir {folder})",
                                        '(acet-file-remove "b")')
                self.assert_gives(outcome, f'T\nnil\n32\nT\n("b")\n{folder}\n1\n')

    @unittest.skipIf(WINDOWS, "a folder's permissions bind nothing that is in it")
    def test_a_folder_that_may_not_be_written_keeps_what_it_holds(self):
        self.write("closed/file.txt", "kept")
        (self.folder / "closed").chmod(0o500)
        outcome = self.evaluate('(acet-file-remove "closed/file.txt" T)', '(acet-file-move "closed/file.txt" "b")',
                                '(acet-file-mkdir "closed/below")', '(acet-file-rmdir "closed")')
        self.assert_gives(outcome, "0\nnil\nnil\nnil\n")
        self.assertEqual((self.folder / "closed/file.txt").read_text(), "kept")

    def test_the_message_shows_the_path_as_it_is(self):
        for name in NAMES:
            with self.subTest(name):
                self.assert_gives(self.evaluate(f"(acet-file-attr {quoted(name)})"),
                                  f"\nError: Unable to get the file attributes: {name}.\nnil\n")

    def test_a_path_of_4096_bytes_gives_the_failure_of_each_function(self):
        path = "a/" * 2048
        file, shown = quoted(path), path.replace("/", "\\") if WINDOWS else path
        outcome = self.evaluate(f"(acet-file-attr {file} 1)", f"(acet-file-chdir {file})",
                                f'(acet-file-move {file} "b")', f"(acet-file-remove {file})")
        self.assertEqual(outcome.status, 0, outcome.errors)
        self.assertEqual(outcome.output, f"nil\n\nError: Unable to change the current directory: {shown}\n"
                                         "nil\nnil\n0\n")

    @unittest.skipIf(WINDOWS, "paths there may have 32,767 characters")
    def test_a_path_of_4096_bytes_is_no_folder_to_make(self):
        self.assert_gives(self.evaluate(f'(acet-file-mkdir {quoted("a/" * 2048)})'), "nil\n")


unittest.main()
