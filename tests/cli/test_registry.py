import unittest
from random import Random

from lisphost import WINDOWS, LispHostTest, Outcome

HEADER = "Windows Registry Editor Version 5.00\r\n\r\n"
KEY = r"HKEY_CURRENT_USER\Software\Test of the command"
OWN = "the registry is the system's own"
LISP_KEY = KEY.replace("\\", "\\\\")


def spoiled(content, random):
    """The bytes with something wrong: some changed, some gone, some doubled, or the end cut off."""
    content = bytearray(content)
    for _ in range(random.randint(1, 6)):
        start = random.randrange(2, len(content))
        end = min(len(content), start + random.choice((1, 2, 7, 60)))
        kind = random.randrange(4)
        if kind == 0:
            content[start:end] = random.randbytes(end - start)
        elif kind == 1:
            del content[start:end]
        elif kind == 2:
            content[start:start] = content[start:end] * random.choice((1, 500))
        else:
            del content[start:]
        if len(content) < 3:
            break
    return bytes(content)


def registry_text(*lines):
    return (HEADER + "\r\n".join(lines) + "\r\n").encode("utf-16")  # with a mark


class Registry(LispHostTest):
    def setUp(self):
        super().setUp()
        if WINDOWS:  # whose own registry is there for every run
            self.import_text(registry_text(f"[-{KEY}]"))

    def import_text(self, content):
        self.write("in.reg", content)
        return self.lisphost("registry", "import", "in.reg")

    def exported(self, *keys):
        self.assert_gives(self.lisphost("registry", "export", "out.reg", *keys), "")
        content = (self.folder / "out.reg").read_bytes()
        self.assertEqual(content[:2], b"\xff\xfe")
        return content.decode("utf-16")

    def read(self, name):
        return self.evaluate(f'(vl-registry-read "{LISP_KEY}" "{name}")').output.strip()


class Import(Registry):
    def test_takes_over_values_of_every_type(self):
        self.assert_gives(self.import_text(registry_text(
            f"[{KEY}]", '@="unnamed"', r'"t"="C:\\a \"b\""', '"d"=dword:0000002a', '"b"=hex:01,02,\\', "  03",
            '"e"=hex(2):25,00,41,00,25,00,00,00', '"m"=hex(7):61,00,00,00,62,00,00,00,00,00', "",
            f"[{KEY}\\Zürich 図面]")), "")
        self.assertEqual([self.read(name) for name in ("", "t", "d", "b", "e", "m")],
                         ['"unnamed"', r'"C:\\a \"b\""', "42", "(3 1 2 3)", '"%A%"', '(7 "a" "b")'])
        self.assertEqual(self.evaluate(f'(vl-registry-descendents "{LISP_KEY}")').output.strip(), '("Zürich 図面")')

    def test_removes_keys_and_values(self):
        self.import_text(registry_text(f"[{KEY}]", '"a"="1"', '"b"="2"', f"[{KEY}\\Below\\Deep]"))
        self.assert_gives(self.import_text(registry_text(f"[-{KEY}\\Below]", f"[{KEY}]", '"a"=-', '"missing"=-',
                                                         f"[-{KEY}\\Missing]")), "")
        self.assertEqual([self.read("a"), self.read("b")], ["nil", '"2"'])
        self.assertEqual(self.evaluate(f'(vl-registry-descendents "{LISP_KEY}")').output.strip(), "nil")

    def test_reads_the_older_form_in_eight_bits(self):
        self.assert_gives(self.import_text(f'REGEDIT4\r\n\r\n[{KEY}]\r\n"t"="h\xe4"\r\n"e"=hex(2):e4,00\r\n'
                                           .encode("cp1252")), "")
        self.assertEqual([self.read("t"), self.read("e")], ['"hä"', '"ä"'])

    def test_reads_utf_8(self):
        self.assert_gives(self.import_text((HEADER + f'[{KEY}]\n"t"="図面"\n').encode()), "")
        self.assertEqual(self.read("t"), '"図面"')

    def test_takes_the_freedoms_that_windows_takes(self):
        self.assert_gives(self.import_text(("\r\n" + HEADER + "\r\n".join([
            f"[{KEY}] ; a comment", '"a"=hex:01,02,', '"b"=hex:01,\\', "; a comment", "  02", ""])).encode("utf-16")), "")
        self.assertEqual([self.read("a"), self.read("b")], ["(3 1 2)", "(3 1 2)"])

    def test_errors_name_their_lines_and_nothing_is_taken_over(self):
        outcome = self.import_text(registry_text(f"[{KEY}]", '"a"="1"', '"b"=bad', '"c', '"d"="4"'))
        self.assertEqual(outcome, Outcome(1, "", "lisphost: in.reg: line 5: no data of a known form\n"
                                                 "lisphost: in.reg: line 6: '=' is missing\n"))
        self.assertEqual(self.read("a"), "nil")

    def test_a_file_that_is_no_registry_text_is_refused(self):
        self.assert_fails(self.import_text("[HKEY_CURRENT_USER\\x]\n"), 1, "line 1: the first line does not say")
        self.assert_fails(self.import_text(b"\0\1\2"), 3, "in.reg: is not a text file")
        self.assert_fails(self.lisphost("registry", "import", "missing.reg"), 3, "missing.reg: no such file")

    def test_garbage_is_refused_with_a_reason_and_changes_nothing_or_is_understood(self):
        text = registry_text(f"[{KEY}]", '"t"="text"', '"d"=dword:0000002a', '"b"=hex:01,02,\\', "  03",
                             f"[{KEY}\\Below]", '"m"=hex(7):61,00,00,00,00,00')
        self.assert_gives(self.import_text(text), "")
        watched = [KEY] if WINDOWS else []  # where other programs write elsewhere
        before, statuses = self.exported(*watched), set()
        for seed in range(25):
            outcome = self.import_text(spoiled(text, Random(seed)))
            statuses.add(outcome.status)
            after = self.exported(*watched)
            with self.subTest(seed=seed, outcome=outcome):
                self.assertIn(outcome.status, (0, 1, 3))
                self.assertEqual(outcome.errors != "", outcome.status != 0)
                self.assertTrue(outcome.status == 0 or after == before)
            before = after
        self.assertIn(1, statuses)

    @unittest.skipIf(WINDOWS, OWN)
    def test_a_registry_that_cannot_be_written_is_left_as_it_was(self):
        folder = self.profile / "lisphost" / "registry"
        self.import_text(registry_text(f"[{KEY}]", '"a"="1"'))
        folder.chmod(0o555)
        self.addCleanup(folder.chmod, 0o755)
        (folder / "HKEY_CURRENT_USER.reg").chmod(0o444)
        outcome = self.import_text(registry_text(f"[{KEY}]", '"a"="2"'))
        self.assertEqual(outcome.status, 1)
        self.assertIn("cannot be", outcome.errors)
        self.assertEqual(self.read("a"), '"1"')

    def test_many_values_are_one_change(self):
        lines = [f'"{number}"=dword:{number:08x}' for number in range(20000)]
        self.assert_gives(self.import_text(registry_text(f"[{KEY}]", *lines)), "")
        self.assertEqual(self.read("19999"), "19999")


class Export(Registry):
    def test_writes_the_keys_as_windows_does(self):
        self.evaluate(f'(vl-registry-write "{LISP_KEY}\\\\Below" "n" "C:\\\\a")', f'(vl-registry-write "{LISP_KEY}" nil 42)')
        self.assertEqual(self.exported(KEY), HEADER + f"[{KEY}]\r\n@=dword:0000002a\r\n\r\n"
                         f'[{KEY}\\Below]\r\n"n"="C:\\\\a"\r\n\r\n')

    def test_without_keys_the_whole_registry_is_written(self):
        self.evaluate(f'(vl-registry-write "{LISP_KEY}" "n" "user")',
                      '(vl-registry-write "HKEY_LOCAL_MACHINE\\\\Software\\\\X" "n" "machine")')
        text = self.exported()
        self.assertIn(f'[{KEY}]\r\n"n"="user"\r\n', text)
        self.assertIn('[HKEY_LOCAL_MACHINE\\Software\\X]\r\n"n"="machine"\r\n', text)

    @unittest.skipIf(WINDOWS, OWN)
    def test_what_is_exported_can_be_imported_elsewhere(self):
        self.import_text(registry_text(f"[{KEY}]", '"a"="1"', '"b"=hex(0):', f"[{KEY}\\x\\y]", '@="\r\n"'))
        text = self.exported(KEY)
        self.profile = self.folder / "other"
        self.environment |= {"HOME": str(self.profile), "XDG_DATA_HOME": str(self.profile)}
        self.assert_fails(self.lisphost("registry", "export", "out.reg", KEY), 1, "no such key")
        self.assert_gives(self.import_text(text.encode("utf-16")), "")
        self.assertEqual(self.exported(KEY), text)

    def test_names_that_begin_with_a_byte_order_mark_are_written_whole(self):
        content = registry_text(f"[{KEY}]", '"\ufeffa"="1"', "", f"[{KEY}\\\ufeffBelow]", '"b"="2"')
        self.assert_gives(self.import_text(content), "")
        text = self.exported(KEY)
        self.assertIn('\r\n"\ufeffa"="1"\r\n', text)
        self.assertIn(f'\r\n[{KEY}\\\ufeffBelow]\r\n"b"="2"\r\n', text)

    def test_a_key_that_is_not_there_is_an_error(self):
        for key in (r"HKEY_CURRENT_USER\Missing", "HKCU", "x"):
            self.assert_fails(self.lisphost("registry", "export", "out.reg", key), 1, "no such key")
        self.assertFalse((self.folder / "out.reg").exists())

    def test_a_file_that_cannot_be_written_is_an_error(self):
        self.assert_fails(self.lisphost("registry", "export", "missing/out.reg"), 3, "missing/out.reg: ")

    def test_usage(self):
        for arguments in (["registry"], ["registry", "export"], ["registry", "import"], ["registry", "list", "x.reg"]):
            self.assert_fails(self.lisphost(*arguments), 2, ".")


@unittest.skipIf(WINDOWS, OWN)
class Store(Registry):
    def test_lives_in_the_folder_of_the_profile(self):
        self.assert_gives(self.lisphost("--profile", "p", "eval", f'(vl-registry-write "{LISP_KEY}" "n" "1")'), '"1"\n')
        self.assertIn(b'"n"="1"\n; end\n', (self.folder / "p/registry/HKEY_CURRENT_USER.reg").read_bytes())
        self.assertEqual(self.read("n"), "nil")

    def test_nothing_is_written_by_a_program_that_reads(self):
        self.assert_gives(self.lisphost("--profile", "p", "eval", "1", f'(vl-registry-read "{LISP_KEY}")'), "1\nnil\n")
        self.assertFalse((self.folder / "p/registry").exists())

    def test_texts_with_a_nul_are_refused_and_nothing_is_written(self):
        for call in (f'"{LISP_KEY}" "name" "a\\000b"', f'"{LISP_KEY}" "na\\000me" "a"', f'"{LISP_KEY}\\000x" "name" "a"',
                     f"""\"{LISP_KEY}\" "name" '(7 "a" "b\\000c")"""):
            self.assert_gives(self.evaluate(f"(vl-registry-write {call})", f'(vl-registry-descendents "{LISP_KEY}" T)',
                                            f'(vl-registry-read "{LISP_KEY}" "name")'), "nil\nnil\nnil\n")

    def test_a_damaged_file_is_kept_and_said(self):
        path = self.write("p/registry/HKEY_CURRENT_USER.reg", f'{HEADER}[{KEY}]\n"a"="1"\nnonsense\n; end\n')
        damaged = path.read_bytes()
        outcome = self.lisphost("--profile", "p", "eval", f'(vl-registry-read "{LISP_KEY}" "a")')
        self.assertEqual((outcome.status, outcome.output), (0, '"1"\n'))
        self.assertRegex(outcome.errors, r"^lisphost: .*HKEY_CURRENT_USER\.reg: line 5: neither a key.*"
                                         r"; the next change keeps the file under another name\n$")
        self.assertEqual(path.read_bytes(), damaged)
        copy = path.parent / "HKEY_CURRENT_USER.reg.damaged-1"
        self.assertFalse(copy.exists())
        outcome = self.lisphost("--profile", "p", "eval", f'(vl-registry-write "{LISP_KEY}" "b" "2")')
        self.assertEqual((outcome.status, outcome.output), (0, '"2"\n'))
        self.assertRegex(outcome.errors, r"; the file as it was is kept as HKEY_CURRENT_USER\.reg\.damaged-1\n$")
        self.assertEqual(copy.read_bytes(), damaged)
        self.assert_gives(self.lisphost("--profile", "p", "eval", f'(vl-registry-read "{LISP_KEY}" "a")'), '"1"\n')


unittest.main()
