import json
import os
import resource
import signal
import subprocess
import time
import unittest

from lisphost import FOLDER, LISPHOST, LispHostTest, WINDOWS

# Writes its arguments behind the first into the file that the first one names.
CHILD = FOLDER / ("testchild.exe" if WINDOWS else "testchild")


STARTED = 33 if WINDOWS else 42  # any number above 32 says so

# What the registry says of documents there is in windows/proof.lsp.
NO_DESKTOP = "there are no settings of a desktop, and the user's part of the registry is none of Wine's associations"


class StartedPrograms(LispHostTest):
    def setUp(self):
        super().setUp()
        self.report = self.folder / "report"

    def arguments_of_child(self):
        deadline = time.monotonic() + 20
        while not self.report.exists() and time.monotonic() < deadline:
            time.sleep(0.01)
        return self.report.read_text().split("\n")[:-1]


class Processes(StartedPrograms):
    def test_spawned_programs_get_what_stands_between_the_commas(self):
        self.assert_gives(self.evaluate(f'(acet-sys-spawn 1 "{CHILD}" "{self.report},a,,b c")'), "32\n")
        self.assertEqual(self.arguments_of_child(), ["a", "", "b c"])

    def test_a_wrong_mode_starts_the_program_before_its_message(self):
        self.assert_gives(self.evaluate(f'(acet-sys-spawn 4 "{CHILD}" "{self.report},a")', "(acet-sys-sleep 500)"),
                          "\nError: wrong type of argument.\nnil\nnil\n")
        self.assertEqual(self.arguments_of_child(), ["a"])

    def test_many_programs_can_be_spawned_where_few_files_may_be_open(self):
        limits = resource.getrlimit(resource.RLIMIT_NOFILE)
        resource.setrlimit(resource.RLIMIT_NOFILE, (64, limits[1]))
        try:
            outcome = self.evaluate(f'(repeat 100 (acet-sys-spawn 2 "{CHILD}" "-") (acet-sys-sleep 5))',
                                    f'(acet-sys-spawn 1 "{CHILD}" "{self.report},last")')
        finally:
            resource.setrlimit(resource.RLIMIT_NOFILE, limits)
        self.assert_gives(outcome, "nil\n32\n")
        self.assertEqual(self.arguments_of_child(), ["last"])

    def test_a_spawned_program_ends_with_the_host_and_a_launched_one_goes_on(self):
        self.assert_gives(self.evaluate(f'(acet-sys-spawn 2 "{CHILD}" "{self.report},wait:1000")'), "32\n")
        time.sleep(1.5)
        self.assertFalse(self.report.exists())
        self.assert_gives(self.evaluate(f'(startapp "{CHILD}" "{self.report} wait:1000")'), f"{STARTED}\n")
        self.assertEqual(self.arguments_of_child(), ["wait:1000"])

    @unittest.skipIf(WINDOWS, "a process that is started here has no number of Windows")
    def test_a_wait_for_a_process_ends_with_it(self):
        process = self.child_outside("wait:700")
        if process > 32767:
            self.skipTest("the number is none of 16 bits")
        started = time.monotonic()
        self.assert_gives(self.evaluate(f"(acet-sys-wait {process} 20)", f"(acet-sys-wait {process})"), "0\n0\n")
        self.assertGreater(time.monotonic() - started, 0.5)
        self.assertTrue(self.report.exists())

    def child_outside(self, *arguments):
        process = os.posix_spawn(CHILD, [str(CHILD), str(self.report), *arguments], os.environ)
        self.addCleanup(os.waitpid, process, 0)
        return process

    @unittest.skipIf(WINDOWS, "a process that is started here has no number of Windows")
    def test_a_handle_that_was_opened_to_wait_cannot_terminate(self):
        process = self.child_outside("wait:400")
        if process > 32767:
            self.skipTest("the number is none of 16 bits")
        # 4 is the first handle, which the wait has left open.
        self.assert_gives(self.evaluate(f"(acet-sys-wait {process} 1)", "(acet-sys-term 4)"), "0\nnil\n")
        self.assertEqual(self.arguments_of_child(), ["wait:400"])

    def test_terminating_handle_minus_1_ends_the_host_itself(self):
        outcome = self.evaluate("(acet-sys-term -1)", '(princ "not reached")')
        self.assertEqual((outcome.status, outcome.output, outcome.errors), (0, "", ""))

    @unittest.skipIf(WINDOWS, "there always is one")
    def test_the_command_interpreter_is_defined_where_the_environment_has_none(self):
        self.environment.pop("COMSPEC", None)
        self.assert_gives(self.evaluate('(getenv "COMSPEC")', '(acet-sys-command "exit 2")'), '"/bin/sh"\n512\n')
        self.environment["COMSPEC"] = "/bin/bash"
        self.assert_gives(self.evaluate('(getenv "COMSPEC")'), '"/bin/bash"\n')

    def test_the_last_error_is_that_of_the_runtime_library(self):
        outcome = self.evaluate('(acet-sys-command "exit 0")', "(acet-sys-lasterr)")
        self.assertRegex(outcome.output, r"\A0\n\d+\n\Z")

    @unittest.skipIf(WINDOWS, "there is no signal that ends it")
    def test_a_negative_pause_is_a_very_long_one(self):
        process = subprocess.Popen([LISPHOST, "eval", "(acet-sys-sleep -1)"], cwd=self.folder, env=self.environment)
        self.assertRaises(subprocess.TimeoutExpired, process.wait, 1)
        process.terminate()
        self.assertEqual(process.wait(20), -signal.SIGTERM)


class Transcript(LispHostTest):
    def events(self, *expressions):
        outcome = self.lisphost("eval", *expressions, "--transcript", "events.txt")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        return [json.loads(line) for line in (self.folder / "events.txt").read_text().splitlines()]

    def test_launches_and_tones_are_written_down_in_order(self):
        self.assertEqual(self.events('(startapp "no-such-program" "a b")', "(acet-sys-beep 0)",
                                     f'(startapp "{CHILD}" "-")', "(acet-sys-beep -2)"),
                         [{"event": "shell", "verb": "open", "file": "no-such-program", "parameters": "a b",
                           "result": 2},
                          {"event": "beep", "frequency": 700, "milliseconds": 300},
                          {"event": "shell", "verb": "open", "file": str(CHILD), "parameters": "-", "result": STARTED},
                          {"event": "beep", "frequency": 800, "milliseconds": 300}])

    def test_a_tone_that_cannot_be_is_none(self):
        self.assertEqual(self.events("(acet-sys-beep 32767)"), [])


@unittest.skipIf(WINDOWS, NO_DESKTOP)
class OpenedDocuments(StartedPrograms):
    def opened_documents(self, document):
        """What a program called "viewer", which comes first on PATH, is told to open by wexo_opendefaultapp."""
        programs = self.folder / "programs"
        programs.mkdir()
        (programs / "viewer").symlink_to(CHILD)
        self.environment["PATH"] = f"{programs}:{os.environ['PATH']}"
        self.environment["TESTCHILD_FILE"] = str(self.report)
        self.write(document, b"content")
        outcome = self.lisphost("--transcript", "transcript", "eval", f'(wexo_opendefaultapp "{document}")')
        self.assert_gives(outcome, "nil\n")
        self.assertEqual(json.loads((self.folder / "transcript").read_text()),
                         {"event": "shell", "verb": "open", "file": document, "parameters": "", "result": 42})
        return self.arguments_of_child()

    def test_a_document_is_opened_by_the_program_of_the_registry(self):
        self.write("viewer.reg", "Windows Registry Editor Version 5.00\n\n"
                   "[HKEY_CURRENT_USER\\Software\\Classes\\.lhtest\\shell\\open\\command]\n"
                   '@="viewer \\"%1\\""\n'.encode())
        self.assert_gives(self.lisphost("registry", "import", "viewer.reg"), "")
        self.assertEqual(self.opened_documents("a b#ä.lhtest"), [str(self.folder / "a b#ä.lhtest")])

    def test_codes_in_the_name_of_a_document_are_part_of_the_name(self):
        self.write("viewer.reg", "Windows Registry Editor Version 5.00\n\n"
                   "[HKEY_CURRENT_USER\\Software\\Classes\\.lhtest\\shell\\open\\command]\n"
                   '@="viewer \\"%1\\" -l=%l %2 %* 100%"\n'.encode())
        self.assert_gives(self.lisphost("registry", "import", "viewer.reg"), "")
        document = str(self.folder / "a%L%l%1.lhtest")
        self.assertEqual(self.opened_documents("a%L%l%1.lhtest"), [document, f"-l={document}", "%2", "100%"])

    def set_desktop_program(self, command):
        self.write("data/mime/globs2", b"50:text/x-lhtest:*.lhtest\n")
        self.write("data/applications/viewer.desktop", b"[Desktop Entry]\nType=Application\nName=Viewer\n"
                   b"Exec=" + command + b"\nMimeType=text/x-lhtest;\n")
        self.write("data/applications/mimeapps.list", b"[Default Applications]\ntext/x-lhtest=viewer.desktop\n")
        for variable in ("XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"):
            self.environment[variable] = str(self.folder / "data")

    def test_a_document_is_opened_by_the_program_of_the_desktop(self):
        self.set_desktop_program(b"viewer %f")
        self.assertEqual(self.opened_documents("a b.lhtest"), [str(self.folder / "a b.lhtest")])

    def test_field_codes_of_the_desktop_stand_inside_arguments_too(self):
        self.set_desktop_program(b'viewer --file=%f %i -%c- %% a%%f')
        document = str(self.folder / "a %f %%.lhtest")
        self.assertEqual(self.opened_documents("a %f %%.lhtest"), [f"--file={document}", "--", "%", "a%f"])

    def test_a_program_of_the_desktop_that_names_no_document_gets_it_last(self):
        self.set_desktop_program(b"viewer -x")
        self.assertEqual(self.opened_documents("a.lhtest"), ["-x", str(self.folder / "a.lhtest")])


@unittest.skipIf(WINDOWS, NO_DESKTOP)
class Associations(LispHostTest):
    """A kind of file with a program, in settings of the desktop of the test's own."""

    def setUp(self):
        super().setUp()
        self.write("desktop/mime/globs2", "50:text/x-lisphost-test:*.lhtest\n")
        self.write("desktop/applications/test.desktop",
                   f"[Desktop Entry]\nType=Application\nName=Test\nExec={CHILD} %f\nMimeType=text/x-lisphost-test;\n")
        self.write("desktop/applications/mimeapps.list",
                   "[Default Applications]\ntext/x-lisphost-test=test.desktop\n")
        for variable in ("XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"):
            self.environment[variable] = str(self.folder / "desktop")
        self.document = self.write("my document.lhtest", "text")

    def test_the_program_of_a_document_is_named(self):
        self.assert_gives(self.evaluate(f'(acet_filename_associated_app "{self.document}")',
                                        '(acet_filename_associated_app "my document.lhtest")'),
                          f'"{CHILD}"\n' * 2)

    def test_a_document_is_opened_with_its_program(self):
        # Which takes it for the file of its report, and leaves an empty one.
        self.assert_gives(self.evaluate('(startapp "my document.lhtest")'), "42\n")
        deadline = time.monotonic() + 20
        while self.document.read_text() != "" and time.monotonic() < deadline:
            time.sleep(0.01)
        self.assertEqual(self.document.read_text(), "")


unittest.main()
