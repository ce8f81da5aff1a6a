import json
import os
import pty
import resource
import select
import shutil
import signal
import subprocess
import tempfile
import time
import unittest
from errno import EPERM, ENOSYS
from pathlib import Path

from lisphost import FOLDER, LISPHOST, TIMEOUT, WINDOWS, LispHostTest, Outcome, begin_in_the_foreground


NONE = "there is no sandbox"
MEMORY = Path("/dev/shm")


def folders_can_be_made_in_memory() -> bool:
    """Not where the file system is full or may not be written."""
    if not any(line.split()[1:3] == [str(MEMORY), "tmpfs"] for line in Path("/proc/mounts").read_text().splitlines()):
        return False
    try:
        with tempfile.TemporaryDirectory(dir=MEMORY):
            return True
    except OSError:
        return False


def files_below(folder: Path) -> list[Path]:
    """Those that are there: the folders of other runs come and go."""
    return [Path(parent, name) for parent, _, names in os.walk(folder) for name in names]


def holds(file: Path, text: str) -> bool:
    """Whether it is there and has the text in it."""
    try:
        return file.is_file() and text.encode() in file.read_bytes()
    except (FileNotFoundError, PermissionError):
        return False


class SandboxTest(LispHostTest):
    """The program stands in a folder of its own; what it must not reach stands beside it."""

    def setUp(self) -> None:
        super().setUp()
        self.secret = self.write("outside/secret.txt", "secret\n")
        self.outside = self.secret.parent

    def run_sandboxed(self, program, *options):
        self.write("inside/program.lsp", program)
        return self.lisphost("--sandbox", *options, "run", "inside/program.lsp")

    def assert_refused(self, outcome, output, *refusals):
        """The program goes on with its functions' failure values; each refusal is a line."""
        self.assertEqual((outcome.status, outcome.output), (0, output))
        self.assertEqual(outcome.errors.splitlines(), [f"lisphost: sandbox: refused {refusal}" for refusal in refusals])


@unittest.skipIf(WINDOWS, NONE)
class Files(SandboxTest):
    def test_the_programs_own_folder_can_be_read(self):
        self.write("inside/data/list.txt", "first\n")
        outcome = self.run_sandboxed(f'(princ (read-line (open "{self.folder}/inside/data/list.txt" "r")))')
        self.assert_gives(outcome, "first")

    def test_the_drawings_folder_can_be_read(self):
        self.write("drawings/points.txt", "first\n")
        self.assert_gives(self.lisphost("--save", "drawings/d.dxf", "eval", "1"), "1\n")
        read = f'(if (setq f (open "{self.folder}/drawings/points.txt" "r")) (read-line f))'
        self.assert_gives(self.lisphost("--sandbox", "--drawing", "drawings/d.dxf", "eval", read), '"first"\n')
        self.assert_refused(self.lisphost("--sandbox", "eval", read), "nil\n",
                            f"opening {self.folder}/drawings/points.txt")
        self.assert_refused(self.lisphost("--sandbox", "--drawing", "drawings/d.dxf", "eval",
                                          f'(open "{self.secret}" "r")'), "nil\n", f"opening {self.secret}")

    def test_beside_a_link_and_beside_what_it_leads_to_can_be_read(self):
        self.write("a/beside-file.lsp", '"file"')
        self.write("b/beside-link.lsp", '"link"')
        self.write("a/program.lsp", f'''
            (princ (list (load "{self.folder}/a/beside-file") (load "{self.folder}/b/beside-link")))''')
        (self.folder / "b/program.lsp").symlink_to("../a/program.lsp")
        self.assert_gives(self.lisphost("--sandbox", "run", "b/program.lsp"), "(file link)")

    def test_beside_a_link_to_the_drawing_can_be_read(self):
        self.write("a/note.txt", "file\n")
        self.write("b/note.txt", "link\n")
        self.assert_gives(self.lisphost("--save", "a/d.dxf", "eval", "1"), "1\n")
        (self.folder / "b/d.dxf").symlink_to("../a/d.dxf")
        read = [f'(read-line (open "{self.folder}/{name}/note.txt" "r"))' for name in "ab"]
        self.assert_gives(self.lisphost("--sandbox", "--drawing", "b/d.dxf", "eval", *read), '"file"\n"link"\n')

    def test_a_program_can_load_another_one_beside_it(self):
        self.write("inside/library.lsp", '(princ "loaded")')
        self.assert_gives(self.run_sandboxed('(load "library")'), "loaded")

    def test_other_files_cannot_be_read(self):
        self.assert_refused(self.run_sandboxed(f'(princ (open "{self.secret}" "r"))'), "nil",
                            f"opening {self.secret}")

    def test_a_symbolic_link_leads_nowhere(self):
        (self.folder / "inside").mkdir()
        link = self.folder / "inside/link.txt"
        link.symlink_to(self.secret)
        self.assert_refused(self.run_sandboxed(f'(princ (open "{link}" "r"))'), "nil", f"opening {link}")

    def test_dots_lead_nowhere(self):
        path = f"{self.folder}/inside/../outside/secret.txt"
        self.assert_refused(self.run_sandboxed(f'(princ (open "{path}" "r"))'), "nil", f"opening {path}")

    def test_a_change_of_the_current_folder_opens_nothing(self):
        outcome = self.run_sandboxed(f'(acet-file-chdir "{self.outside}") (princ (open "secret.txt" "r"))')
        self.assert_refused(outcome, "nil", "opening secret.txt")

    def test_the_process_files_are_out_of_reach(self):
        for path in ("/proc/self/environ", "/proc/self/mem", "/proc/1/environ",
                     f"/proc/self/root{self.secret}"):
            with self.subTest(path):
                self.assert_refused(self.run_sandboxed(f'(princ (open "{path}" "r"))'), "nil", f"opening {path}")

    def test_nothing_can_be_written_not_even_beside_the_program(self):
        path = f"{self.folder}/inside/new.txt"
        self.assert_refused(self.run_sandboxed(f'(princ (open "{path}" "w"))'), "nil", f"opening {path}")
        self.assertFalse(Path(path).exists())

    def test_nothing_can_be_removed_moved_or_made(self):
        outcome = self.run_sandboxed(f"""
            (princ (list (acet-file-remove "{self.secret}")
                         (acet-file-move "{self.folder}/inside/program.lsp" "{self.outside}/program.lsp")
                         (acet-file-mkdir "{self.outside}/new")
                         (vl-file-delete "{self.secret}")))""")
        self.assert_refused(outcome, "(0 nil nil nil)", f"removing {self.secret}",
                            f"moving {self.folder}/inside/program.lsp", f"making {self.outside}/new",
                            f"removing {self.secret}")
        self.assertEqual(sorted(path.name for path in self.outside.iterdir()), ["secret.txt"])
        self.assertTrue((self.folder / "inside/program.lsp").exists())

    def test_attributes_cannot_be_changed(self):
        before = os.stat(self.secret).st_mode
        outcome = self.run_sandboxed(f'(princ (acet-file-attr "{self.secret}" 1))')
        self.assert_refused(outcome, "nil", "a change of attributes")
        self.assertEqual(os.stat(self.secret).st_mode, before)

    def test_a_folder_can_be_opened_for_writing(self):
        outcome = self.run_sandboxed(f"""
            (setq file (open "{self.outside}/new.txt" "w"))
            (princ "text" file)
            (close file)
            (acet-file-remove "{self.secret}")""", "--allow-write", str(self.outside))
        self.assert_gives(outcome, "")
        self.assertEqual([path.name for path in self.outside.iterdir()], ["new.txt"])

    def test_a_temporary_folder_is_there_and_goes_away(self):
        outcome = self.run_sandboxed("""
            (setq name (strcat (getenv "TMPDIR") "/note.txt") file (open name "w"))
            (princ "text" file)
            (close file)
            (princ (read-line (open name "r")))
            (princ name)""")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        self.assertTrue(outcome.output.startswith("text" + tempfile.gettempdir()), outcome.output)
        self.assertFalse(Path(outcome.output.removeprefix("text")).parent.exists())

    def test_expressions_have_no_folder_of_their_own(self):
        path = self.write("list.txt", "first\n")
        outcome = self.lisphost("--sandbox", "eval", f'(open "{path}" "r")')
        self.assert_refused(outcome, "nil\n", f"opening {path}")


@unittest.skipIf(WINDOWS, NONE)
class Settings(SandboxTest):
    """Registry and profile store."""

    KEY = r"HKEY_CURRENT_USER\\Software\\Test"
    READ = f"""(princ (vl-registry-read "{KEY}" "name")) (princ (acet_get_config "name"))"""
    WRITE = f"""(princ (vl-registry-write "{KEY}" "name" "theirs")) (princ (acet_set_config "name" "theirs"))"""

    def test_the_users_own_are_neither_seen_nor_changed(self):
        self.assert_gives(self.run_program(self.WRITE.replace("theirs", "mine")), "minenil")
        before = {path: path.read_bytes() for path in self.profile.rglob("*") if path.is_file()}
        self.assertGreaterEqual(len(before), 2)
        self.assert_gives(self.run_sandboxed(self.READ + self.WRITE + self.READ), "nil" + "theirsnil" + "theirstheirs")
        self.assertEqual({path: path.read_bytes() for path in self.profile.rglob("*") if path.is_file()}, before)
        self.assert_gives(self.run_program(self.READ), "minemine")

    def test_what_one_program_writes_is_gone_for_the_next(self):
        for _ in range(2):
            self.assert_gives(self.run_sandboxed(self.READ + self.WRITE), "nil" + "theirsnil")

    def test_they_are_in_memory_and_nowhere_in_the_temporary_folder(self):
        if not folders_can_be_made_in_memory():
            self.skipTest("this system keeps no files in memory")
        temporary = self.folder / "temporary"
        temporary.mkdir()
        self.environment["TMPDIR"] = str(temporary)
        self.write("inside/program.lsp", self.WRITE + """
            (close (open "inside/begun" "w"))
            (while (not (findfile "inside/enough")))""")
        before = set(MEMORY.iterdir())
        process = subprocess.Popen([LISPHOST, "--sandbox", "--allow-write", "inside", "run", "inside/program.lsp"],
                                   cwd=self.folder, env=self.environment, stdout=subprocess.PIPE)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.kill)
        end = time.monotonic() + TIMEOUT
        while not (self.folder / "inside/begun").exists():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.01)
        written = [path for folder in set(MEMORY.iterdir()) - before if folder.name.startswith("lisphost-")
                   for path in files_below(folder) if holds(path, "theirs")]
        self.assertEqual(sorted(path.name for path in written), ["HKEY_CURRENT_USER.reg", "settings.ini"])
        self.assertEqual([path for path in temporary.rglob("*") if path.is_file()], [])
        self.write("inside/enough", "")
        self.assertEqual((process.wait(TIMEOUT), process.stdout.read()), (0, b"theirsnil"))
        self.assertEqual([path for path in written if path.exists()], [])
        self.assertEqual(list(temporary.iterdir()), [])


@unittest.skipIf(WINDOWS, NONE)
class Refusals(SandboxTest):
    """A call that is refused gives its failure value and one line, whatever it tries meanwhile."""

    def setUp(self) -> None:
        super().setUp()
        self.here = self.write("inside/data.ini", "[a]\nb=1\n")

    def test_each_call_is_one_line(self):
        for call, result, refusal in (
                (f'(acet-ini-get "{self.secret}" "a" "b" "none")', "nil", f"opening {self.secret}"),
                (f'(acet-ini-set "{self.secret}" "a" "b" "c")', "nil", f"opening {self.secret}"),
                (f'(acet-ini-set "{self.outside}/new.ini" "a" "b" "c")', "nil", f"opening {self.outside}"),
                (f'(acet-ini-set "{self.here}" "a" "b" "c")', "nil", f"opening {self.here}"),
                (f'(acet-file-move "{self.secret}" "{self.outside}/new")', "nil", f"moving {self.secret}"),
                (f'(acet-file-move "{self.here}" "{self.outside}/new")', "nil", f"moving {self.here}"),
                (f'(vl-file-rename "{self.secret}" "{self.outside}/new")', "nil", f"moving {self.secret}"),
                (f'(vl-file-rename "{self.here}" "{self.outside}/new")', "nil", f"moving {self.here}"),
                (f'(vl-file-copy "{self.secret}" "{self.outside}/new")', "nil", f"opening {self.secret}"),
                (f'(acet-file-attr "{self.secret}" 1)', "nil", "a change of attributes"),
                (f'(acet-file-rmdir "{self.outside}")', "nil", f"opening {self.outside}"),
                (f'(acet_filename_associated_app "{self.secret}")', "31", f"opening {self.secret}"),
                (f'(startapp "{self.secret}")', "31", f"opening {self.secret}"),
                ('(acet-sys-spawn 1 "ls")', "32", START),
                ('(startapp "ls")', "5", f"opening {shutil.which('ls')}")):
            with self.subTest(call):
                self.assert_refused(self.run_sandboxed(f"(prin1 {call})"), result, refusal)
        self.assertEqual([path.name for path in self.outside.iterdir()], ["secret.txt"])

    def test_a_command_and_a_dialog_are_one_line_too(self):
        for call in (f'(command "_.SAVEAS" "" "{self.outside}/new.dxf")', f'(getfiled "" "{self.outside}/new" "txt" 0)'):
            with self.subTest(call):
                lines = self.run_sandboxed(call).errors.splitlines()
                self.assertEqual([line for line in lines if "sandbox" in line],
                                 [f"lisphost: sandbox: refused opening {self.outside}"])

    def test_the_same_call_again_is_another_line(self):
        lines = [f"opening {self.secret}"] * 2
        self.assert_refused(self.run_sandboxed(f'(repeat 2 (princ (open "{self.secret}" "r")))'), "nilnil", *lines)
        self.assert_refused(self.run_sandboxed(f'(repeat 2 (princ (acet-ini-get "{self.secret}" "a" "b" "-")))'), "nilnil",
                            *lines)
        self.assert_refused(self.run_sandboxed(f"""
            (vl-file-rename "{self.secret}" "{self.outside}/new")
            (princ (open "{self.secret}" "r"))"""), "nil", f"moving {self.secret}", lines[0])

    def folder_of_another_file_system(self) -> Path:
        if not folders_can_be_made_in_memory() or os.stat(MEMORY).st_dev == os.stat(tempfile.gettempdir()).st_dev:
            self.skipTest("this system keeps all files in one file system")
        folder = Path(tempfile.mkdtemp(dir=MEMORY))
        self.addCleanup(shutil.rmtree, folder)
        return folder

    def test_a_move_to_another_file_system_that_succeeds_is_no_line(self):
        folder = self.folder_of_another_file_system()
        for move in ("vl-file-rename", "acet-file-move"):
            with self.subTest(move):
                outcome = self.run_sandboxed(f"""
                    (setq name (strcat (getenv "TMPDIR") "/note.txt") file (open name "w"))
                    (princ "text" file)
                    (close file)
                    (princ (list ({move} name "{folder}/{move}") (findfile name)))""", "--allow-write", str(folder))
                self.assert_gives(outcome, "(T nil)")
                self.assertEqual((folder / move).read_text(), "text")

    def test_a_move_to_another_file_system_that_is_refused_is_one_line(self):
        folder = self.folder_of_another_file_system()
        for move in ("vl-file-rename", "acet-file-move"):
            for source, options in ((self.here, []), (self.here, ["--allow-write", str(folder)]),
                                    (self.secret, ["--allow-write", str(folder)])):
                with self.subTest(move, source=source, options=options):
                    call = f'(princ ({move} "{source}" "{folder}/new"))'
                    self.assert_refused(self.run_sandboxed(call * 2, *options), "nilnil", *[f"moving {source}"] * 2)
                    self.assertEqual(list(folder.iterdir()), [])
                    self.assertTrue(source.exists())

    def test_a_folder_that_cannot_be_moved_is_a_line_each_time(self):
        (self.folder / "inside/data").mkdir()
        call = f'(princ (vl-file-rename "{self.folder}/inside/data" "{self.outside}/new"))'
        self.assert_refused(self.run_sandboxed(call * 2), "nilnil", *[f"moving {self.folder}/inside/data"] * 2)

    def test_calls_within_a_call_have_lines_of_their_own(self):
        self.assert_refused(self.run_sandboxed(f"""
            (defun both () (open "{self.secret}" "r") (open "{self.here}" "w"))
            (princ (vl_catch_all_apply "(both)"))"""), "nil", f"opening {self.secret}", f"opening {self.here}")

    def test_what_libraries_look_at_is_no_line(self):
        self.write("inside/data.unheardof", "data")
        for call, result in (("(acet-sys-beep 0)", "nil"),
                             ('(acet_filename_associated_app "inside/data.unheardof")', "31"),
                             ('(acet-ini-set (strcat (getenv "TMPDIR") "/x.ini") "a" "b" "c")', "T")):
            with self.subTest(call):
                self.assert_gives(self.run_sandboxed(f"(prin1 {call})"), result)

    def test_of_what_libraries_look_at_too_the_programs_own_calls_are_lines(self):
        self.assert_refused(self.run_sandboxed('(princ (open "/proc/mounts" "r"))'), "nil", "opening /proc/mounts")

    def test_attributes_are_refused_where_writing_is_allowed_too(self):
        outcome = self.run_sandboxed("""
            (close (open (setq name (strcat (getenv "TMPDIR") "/file")) "w"))
            (princ (acet-file-attr name 2))
            (princ (acet-file-attr name))""")
        self.assert_refused(outcome, "nil32", "a change of attributes")


START = "the start of a process"
SIGNAL = "a signal to another process"


@unittest.skipIf(WINDOWS, NONE)
class Processes(SandboxTest):
    def test_none_can_be_started(self):
        program = self.write("inside/program.sh", "#!/bin/sh\ntouch started\n")
        program.chmod(0o755)
        outcome = self.run_sandboxed(f"""
            (princ (startapp "{program}"))
            (acet-sys-spawn 1 "{program}")
            (acet-sys-command "{program}")""")
        self.assert_refused(outcome, "5", START, START, START)
        self.assertFalse((self.folder / "started").exists())

    def test_one_can_be_allowed_and_is_bound_by_the_same_rules(self):
        outcome = self.run_sandboxed(f"""
            (princ (acet-sys-command "cat {self.secret}"))
            (princ (acet-sys-command "echo x > {self.outside}/new.txt"))
            (princ (acet-sys-command "cat inside/program.lsp > /dev/null"))""",
                                     "--allow-run", "sh", "--allow-run", "cat")
        # What the C library's system gives: cat fails with 1, the shell with 2, and the last command succeeds.
        self.assertEqual((outcome.status, outcome.output), (0, "256" "512" "0"), outcome)
        self.assertEqual([path.name for path in self.outside.iterdir()], ["secret.txt"])

    def run_script(self, first_line, *allowed):
        """Of a program that starts a script, which tells by a file that it runs."""
        script = self.write("inside/script.sh", f"{first_line}\necho $1 > {self.outside}/made\n")
        script.chmod(0o755)
        options = [word for program in (script, *allowed) for word in ("--allow-run", str(program))]
        return self.run_sandboxed(f'(princ (acet-sys-spawn 1 "{script}" "ran"))', *options,
                                  "--allow-write", str(self.outside))

    def test_a_script_runs_with_its_interpreter(self):
        made = self.outside / "made"
        for first_line, allowed in (("#!/bin/sh", ["sh"]), ("#! /bin/sh -e ", ["sh"]), ("#!/usr/bin/env sh", ["env", "sh"])):
            with self.subTest(first_line):
                self.assert_gives(self.run_script(first_line, *allowed), "32")
                self.assertEqual(made.read_text(), "ran\n")
                made.unlink()

    def test_a_script_without_its_interpreter_is_a_usage_error(self):
        for interpreter, allowed in (("/bin/sh", []), ("/bin/sh", ["env"]), ("/no/such/program", ["sh"])):
            with self.subTest(interpreter, allowed=allowed):
                self.assert_fails(self.run_script(f"#!{interpreter}", *allowed), 2,
                                  f"script.sh: its interpreter {interpreter} must be allowed, too\n$")
        self.assert_gives(self.run_script("#!/usr/bin/env sh", "env"), "32")
        self.assertFalse((self.outside / "made").exists())

    def test_what_is_not_allowed_cannot_be_started_all_the_same(self):
        outcome = self.run_sandboxed('(princ (acet-sys-command "cat /dev/null"))', "--allow-run", "sh")
        self.assertNotEqual(outcome.output, "0")

    def test_what_is_not_allowed_beside_another_is_a_line(self):
        for call, result, program in (('(acet-sys-spawn 1 "cat" "/etc/passwd")', "32", shutil.which("cat")),
                                      ('(acet-sys-command "true")', "32512", "/bin/sh")):
            with self.subTest(call):
                self.assert_refused(self.run_sandboxed(f"(prin1 {call})", "--allow-run", "true"), result,
                                    f"starting {program}")

    def test_the_loader_is_not_started_which_would_run_any_file(self):
        loader, made = "/lib64/ld-linux-x86-64.so.2", self.outside / "made"
        self.write("inside/make", Path(shutil.which("touch")).read_bytes())
        program = f'(prin1 (acet-sys-spawn 1 "{{}}" "{self.folder}/inside/make,{made}"))'
        for name, folder in ((loader, ""), ("./" + Path(loader).name, f'(acet-file-chdir "{Path(loader).parent}")')):
            with self.subTest(name):
                outcome = self.run_sandboxed(folder + program.format(name), "--allow-run", "true",
                                             "--allow-write", str(self.outside))
                self.assert_refused(outcome, "32", f"starting {name}")
        time.sleep(0.5)  # for a program that nobody waits for
        self.assertFalse(made.exists())

    def test_no_devices_are_made(self):
        make = "cd $TMPDIR; mknod device c 0 0 || echo no device; mknod pipe p && echo pipe"
        plain = subprocess.run(["sh", "-c", make], env={"TMPDIR": str(self.folder), "PATH": os.environ["PATH"]},
                               capture_output=True, text=True)
        self.assertEqual(plain.stdout, "pipe\n")  # everybody may make a device of this number
        outcome = self.run_sandboxed(f'(acet-sys-command "{make}")', "--allow-run", "sh", "--allow-run",
                                     shutil.which("mknod"))
        self.assertEqual((outcome.status, outcome.output), (0, "no device\npipe\n"), outcome)

    def test_the_callers_open_files_are_closed(self):
        with open(self.secret) as secret:
            for program, options in (('(acet-sys-command "(cat <&{}) 2>&1 | grep -c secret")',
                                      ["--allow-run", "sh", "--allow-run", "cat", "--allow-run", "grep"]),
                                     ('(princ (if (open "/dev/fd/{}" "r") 1 0))', [])):
                with self.subTest(program):
                    self.write("inside/program.lsp", program.format(secret.fileno()))
                    output = subprocess.run([LISPHOST, "--sandbox", *options, "run", "inside/program.lsp"],
                                            cwd=self.folder, env=self.environment, timeout=TIMEOUT,
                                            pass_fds=[secret.fileno()], stdout=subprocess.PIPE).stdout
                    self.assertEqual(output.strip(), b"0")

    def test_an_open_pipe_is_closed_unless_it_is_the_program(self):
        for name, output in (("inside/program.lsp", "nil"), ("/dev/fd/{}", "program")):
            reading, writing = os.pipe()
            with self.subTest(name), open(reading, "rb") as pipe, open(writing, "w") as sender:
                sender.write('(princ "program")')
                sender.close()
                self.write("inside/program.lsp", f'(princ (open "/dev/fd/{reading}" "r"))')
                outcome = subprocess.run([LISPHOST, "--sandbox", "run", name.format(reading)], cwd=self.folder,
                                         env=self.environment, timeout=TIMEOUT, pass_fds=[reading],
                                         capture_output=True, text=True)
                self.assertEqual((outcome.returncode, outcome.stdout), (0, output))

    def test_what_one_is_refused_is_not_reported(self):
        file = self.write("inside/data.txt", "data")
        outcome = self.run_sandboxed(f'(princ (acet-sys-command "touch {file} 2> /dev/null"))', "--allow-run", "sh",
                                     "--allow-run", "touch")
        self.assert_gives(outcome, "256")

    def test_no_process_outlives_the_run(self):
        marker = self.folder / "inside/late.txt"
        outcome = self.run_sandboxed(f'(acet-sys-command "(sleep 2; echo late > {marker}) &")', "--allow-run", "sh",
                                     "--allow-run", "sleep", "--allow-write", str(self.folder / "inside"))
        self.assertEqual(outcome.status, 0)
        time.sleep(2.5)
        self.assertFalse(marker.exists())

    def test_the_supervising_process_cannot_be_ended(self):
        outcome = self.run_sandboxed("""
            (princ (acet-sys-command "kill -9 $PPID; exit 0"))
            (princ "here")""", "--allow-run", "sh")
        # The shell's parent is the program, which may end itself; the supervisor lives to tell.
        self.assertIn(outcome.status, (0, 1))
        outcome = self.run_sandboxed("""
            (acet-sys-command "read a b c p rest < /proc/$PPID/stat; kill -9 $p")
            (princ "here")""", "--allow-run", "sh")
        self.assertEqual((outcome.status, outcome.output), (0, "here"))


PYTHON = os.path.realpath("/usr/bin/python3")  # the system's, whose library can be read


# Makes system calls by their numbers on x86-64, and tells the error of each.
CALLS = """
import ctypes, json, os, resource, sys
libc = ctypes.CDLL(None, use_errno=True)
file, parent = os.path.join(os.path.dirname(__file__), "data.txt").encode(), os.getppid()
descriptor = os.open(file, os.O_RDONLY)
here, flag, mask = -100, ctypes.c_long(0), ctypes.c_long(-1)
limit = (ctypes.c_ulong * 2)(*resource.getrlimit(resource.RLIMIT_NOFILE))
wide = lambda request: ctypes.c_ulong(request | 1 << 32)
calls = {
    "futimesat": (261, here, file, 0), "fchmodat2": (452, here, file, 0o600, 0),
    "setxattrat": (463, here, file, 0, b"user.a", 0, 0), "removexattrat": (466, here, file, 0, b"user.a"),
    "file_setattr": (469, here, file, 0, 0, 0), "a call that is not there yet": (900,),
    "ioctl FS_IOC_SETFLAGS": (16, descriptor, 0x40086602, ctypes.byref(flag)),
    "ioctl TIOCSTI": (16, 0, 0x5412, b"x"), "ioctl TIOCSTI with high bits": (16, 0, wide(0x5412), b"x"),
    "ioctl TIOCLINUX": (16, 0, 0x541C, b"x"),
    "prlimit64": (302, parent, 7, limit, 0), "setpriority": (141, 0, parent, 0),
    "setpriority of the group": (141, 1, 0, 0), "setpriority of the user": (141, 2, 0, 0),
    "sched_setaffinity": (203, parent, 8, ctypes.byref(mask)), "sched_setscheduler": (144, parent, 0, ctypes.byref(flag)),
    "sched_setparam": (142, parent, ctypes.byref(flag)), "ioprio_set": (251, 1, parent, 0),
    "ioprio_set of the group": (251, 2, 0, 0),
    "shmget": (29, 4711, 0, 0), "shmat": (30, -1, 0, 0), "shmctl": (31, -1, 0, 0), "semget": (64, 4711, 0, 0),
    "semctl": (66, -1, 0, 0), "msgget": (68, 4711, 0), "msgctl": (71, -1, 0, 0), "mq_open": (240, b"none", 0, 0, 0),
    "process_vm_readv": (310, parent, 0, 0, 0, 0, 0), "io_uring_setup": (425, 1, 0),
    "unshare": (272, 0x10000000),
    "setrlimit of its own": (302, 0, 7, limit, 0),
    "setpriority of its own": (141, 0, 0, os.getpriority(os.PRIO_PROCESS, 0)),  # a lower one may be forbidden outside, too
    "sched_setaffinity of its own": (203, 0, 8, ctypes.byref(mask)), "ioprio_set of its own": (251, 1, 0, 0),
}
results = {}
for name, call in calls.items():
    ctypes.set_errno(0)
    results[name] = ctypes.get_errno() if libc.syscall(*call) < 0 else 0
print(json.dumps(results), flush=True)
"""
OF_ITS_OWN = " of its own"


@unittest.skipIf(WINDOWS, NONE)
class SystemCalls(SandboxTest):
    """Made by a program that may run and so is bound by the filter alone."""

    def setUp(self) -> None:
        super().setUp()
        self.script = self.write("inside/calls.py", CALLS)
        self.write("inside/data.txt", "data")

    def run_script(self, script: Path) -> Outcome:
        return self.run_sandboxed(f'(acet-sys-command "{PYTHON} -S {script}")', "--allow-run", "sh",
                                  "--allow-run", PYTHON)

    def test_calls_that_reach_others_fail_and_the_same_for_oneself_work(self):
        outcome = self.run_script(self.script)
        results = json.loads(outcome.output)
        for name, error in results.items():
            with self.subTest(name):
                self.assertIn(error, (0,) if OF_ITS_OWN in name else (EPERM, ENOSYS))

    def test_root_has_no_privileges_but_to_use_files(self):
        script = self.write("inside/privileges.py", """if True:
            import ctypes
            libc = ctypes.CDLL(None)
            sets = (ctypes.c_uint32 * 6)()
            assert libc.syscall(125, (ctypes.c_uint32 * 2)(0x20080522, 0), sets) == 0  # capget
            bound = sum(libc.prctl(23, number) << number for number in range(40) if libc.prctl(23, number) == 1)
            print(*(sets[i] | sets[i + 3] << 32 for i in range(3)), bound)""")
        ignoring_permissions, others_files = 1 << 1, 1 << 3
        *sets, bound = map(int, self.run_script(script).output.split())
        for privileges in sets:
            self.assertEqual(privileges & ~(ignoring_permissions | others_files), 0)
        if os.geteuid() == 0:
            self.assertEqual(bound & ~(ignoring_permissions | others_files), 0)

    @unittest.skipUnless(os.geteuid() == 0, "nobody else may pass over permissions")
    def test_root_reads_programs_of_others(self):
        self.write("inside/program.lsp", '(princ "here")')
        for path, mode in ((self.folder / "inside/program.lsp", 0o600), (self.folder / "inside", 0o700)):
            os.chmod(path, mode)
            os.chown(path, 65534, 65534)
        outcome = subprocess.run([LISPHOST, "--sandbox", "run", "inside/program.lsp"], cwd=self.folder,
                                 env=self.environment, capture_output=True, text=True, timeout=TIMEOUT)
        self.assertEqual((outcome.returncode, outcome.stdout, outcome.stderr), (0, "here", ""))

    def test_without_the_sandbox_they_are_permitted(self):
        results = json.loads(subprocess.check_output([PYTHON, self.script], timeout=TIMEOUT))
        for name in ("futimesat", "prlimit64", "setpriority", "sched_setaffinity", "shmget", "msgget", "semget",
                     "ioctl TIOCLINUX"):
            with self.subTest(name):
                self.assertNotIn(results[name], (EPERM, ENOSYS))

    def test_no_process_gets_a_namespace_of_its_own(self):
        script = self.write("inside/space.py", """if True:
            import ctypes, os
            libc = ctypes.CDLL(None, use_errno=True)
            child = libc.syscall(56, 0x10000000 | 17, 0, 0, 0, 0)
            if child == 0:
                os._exit(0)
            print(child, ctypes.get_errno())""")
        self.assertEqual(self.run_script(script).output, f"-1 {EPERM}\n")

    def test_nothing_is_typed_into_the_terminal(self):
        self.write("inside/type.py", """if True:
            import fcntl, sys
            for character in "typed":
                try:
                    fcntl.ioctl(0, 0x5412, character.encode())
                except OSError as error:
                    print(error.errno)""")
        self.write("inside/program.lsp", f'(acet-sys-command "{PYTHON} -S {self.folder}/inside/type.py")')
        process, terminal = pty.fork()
        if process == 0:
            os.chdir(self.folder)
            os.execve(LISPHOST, [LISPHOST, "--sandbox", "--allow-run", "sh", "--allow-run", PYTHON, "run",
                                 "inside/program.lsp"], self.environment)
        self.addCleanup(os.close, terminal)
        shown = b""
        try:
            while select.select([terminal], [], [], TIMEOUT)[0]:
                shown += os.read(terminal, 4096)
        except OSError:  # the last to have it open has ended
            pass
        self.assertEqual(os.waitpid(process, 0)[1], 0)
        self.assertEqual(shown.split(), [str(EPERM).encode()] * len("typed"))


@unittest.skipIf(WINDOWS, NONE)
class Code(SandboxTest):
    """Native code in the process itself would get past the filter."""

    def test_a_program_loads_no_module(self):
        module = self.folder / "inside/module.tx"
        self.write("inside/program.lsp", f'(princ (arxload "{module}" "no"))')
        shutil.copy(FOLDER / "LispExtension.tx", module)
        self.assert_gives(self.lisphost("--no-module", "run", "inside/program.lsp"), str(module))
        self.assert_refused(self.lisphost("--sandbox", "--no-module", "run", "inside/program.lsp"), "no",
                            f"loading code from {module}")

    def test_a_link_in_place_of_a_module_leads_nowhere(self):
        module = self.folder / "inside/module.tx"
        shutil.copy(FOLDER / "LispExtension.tx", self.folder / "inside.tx")
        module.parent.mkdir()
        module.symlink_to(self.folder / "inside.tx")
        self.assert_refused(self.lisphost("--sandbox", "--no-module", "run", str(self.write(
            "inside/program.lsp", f'(princ (arxload "{module}" "no"))'))), "no", f"opening {module}")

    def test_a_module_that_the_user_names_is_loaded(self):
        shutil.copy(FOLDER / "LispExtension.tx", self.folder / "mine.tx")
        self.assert_gives(self.lisphost("--sandbox", "--module", "mine.tx", "eval", "(arx)"), '("mine.tx")\n')


def is_running(process: int) -> bool:
    """Whether it is there, and more than an entry that its parent has not yet taken note of."""
    try:
        return Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()[0] != "Z"
    except (FileNotFoundError, ProcessLookupError):
        return False


def end_process(process: int) -> None:
    if is_running(process):
        os.kill(process, signal.SIGKILL)


@unittest.skipIf(WINDOWS, NONE)
class Signals(SandboxTest):
    def start(self, program, *options, beginning=begin_in_the_foreground):
        self.write("inside/program.lsp", '(close (open "inside/begun" "w"))' + program)
        process = subprocess.Popen([LISPHOST, "--sandbox", "--allow-write", "inside", *options, "run", "inside/program.lsp"],
                                   cwd=self.folder, env=self.environment, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, preexec_fn=beginning)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.stderr.close)
        self.addCleanup(process.kill)
        return process

    def wait_until(self, condition):
        end = time.monotonic() + TIMEOUT
        while not condition():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.01)

    def worker_of(self, process) -> int:
        """Once the program has begun and said so."""
        self.wait_until((self.folder / "inside/begun").exists)
        return int(Path(f"/proc/{process.pid}/task/{process.pid}/children").read_text().split()[0])

    def test_a_call_that_is_interrupted_is_not_made_twice(self):
        process = self.start("""
            (setq folder (strcat (getenv "TMPDIR") "/x") failed 0)
            (repeat 5000
              (if (not (vl-mkdir folder)) (setq failed (1+ failed)))
              (if (not (acet-file-rmdir folder)) (setq failed (1+ failed))))
            (princ failed)""")
        worker = self.worker_of(process)
        interrupts = 0
        while process.poll() is None:
            try:
                os.kill(worker, signal.SIGSTOP)
                os.kill(worker, signal.SIGCONT)
            except ProcessLookupError:
                break
            interrupts += 1
            time.sleep(0.0005)
        output, errors = process.communicate(timeout=TIMEOUT)
        self.assertEqual((output, errors), (b"0", b""))
        self.assertGreater(interrupts, 100)

    def test_an_interrupt_ends_the_program(self):
        process = self.start('(while T)')
        worker = self.worker_of(process)
        os.kill(worker, signal.SIGINT)
        output, errors = process.communicate(timeout=TIMEOUT)
        self.assertEqual(process.returncode, 1)
        self.assertRegex(errors, b"^error: Function cancelled\n")

    def start_with_a_program(self) -> tuple[subprocess.Popen, int, Path]:
        """With the number of a program that goes on beside it, and the temporary folder."""
        process = self.start("""
            (acet-sys-command "sleep 1000 > /dev/null 2>&1 & echo $! $TMPDIR > inside/started")
            (while T)""", "--allow-run", "sh", "--allow-run", "sleep", "--limit-time", "0")
        started = self.folder / "inside/started"
        self.wait_until(lambda: started.exists() and started.read_text().endswith("\n"))
        number, folder = started.read_text().split()
        self.addCleanup(end_process, int(number))
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        return process, int(number), Path(folder)

    def test_a_signal_that_ends_the_sandbox_leaves_nothing_behind(self):
        for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGQUIT, signal.SIGUSR1, signal.SIGUSR2, signal.SIGPIPE,
                       signal.SIGXCPU, signal.SIGVTALRM, signal.SIGPROF, signal.SIGIO, signal.SIGPWR,
                       signal.SIGRTMIN, signal.SIGRTMAX):
            with self.subTest(number):
                shutil.rmtree(self.folder / "inside", ignore_errors=True)
                process, program, folder = self.start_with_a_program()
                process.send_signal(number)
                process.communicate(timeout=TIMEOUT)
                self.assertEqual(process.returncode, 1)
                self.assertFalse(is_running(program))
                self.assertFalse(folder.exists())

    def settings_folder(self) -> Path | None:
        """Where the program has written the name of its folder to the registry."""
        for parent in (MEMORY, f"/run/user/{os.getuid()}", self.folder):
            for file in Path(parent).glob("lisphost-*/registry/HKEY_CURRENT_USER.reg"):
                if holds(file, str(self.folder)):
                    return file.parent.parent
        return None

    def test_the_program_ends_with_a_supervising_process_that_cannot_end_it(self):
        self.environment["TMPDIR"] = str(self.folder)  # what stays behind goes with it
        process = self.start(f"""
            (vl-registry-write "HKEY_CURRENT_USER\\\\Software\\\\Test" "name" "{self.folder}")
            (while T)""")
        worker = self.worker_of(process)
        self.wait_until(self.settings_folder)
        self.addCleanup(shutil.rmtree, self.settings_folder())
        process.kill()
        self.wait_until(lambda: not is_running(worker))

    def test_signals_that_the_caller_ignores_are_ignored(self):
        def begin():
            for number in (signal.SIGINT, signal.SIGHUP, signal.SIGTERM, signal.SIGQUIT):
                signal.signal(number, signal.SIG_IGN)
        process = self.start("""
            (while (not (findfile "inside/enough")))
            (princ "here")""", beginning=begin)
        worker = self.worker_of(process)
        for number in (signal.SIGINT, signal.SIGHUP, signal.SIGTERM, signal.SIGQUIT):
            process.send_signal(number)
            os.kill(worker, number)
        self.write("inside/enough", "")
        output, errors = process.communicate(timeout=TIMEOUT)
        self.assertEqual((process.returncode, output, errors), (0, b"here", b""))

    def test_a_pipe_without_another_end_holds_up_no_time_limit(self):
        (self.folder / "inside").mkdir()
        os.mkfifo(self.folder / "inside/pipe")
        start = time.monotonic()
        outcome = self.run_sandboxed(f'(open "{self.folder}/inside/pipe" "r")', "--limit-time", "1")
        self.assert_fails(outcome, 1, "the time limit ")
        self.assertLess(time.monotonic() - start, 30)


@unittest.skipIf(WINDOWS, NONE)
class Limits(SandboxTest):
    def test_time(self):
        start = time.monotonic()
        outcome = self.run_sandboxed("(while T)", "--limit-time", "1")
        self.assert_fails(outcome, 1, "^lisphost: the time limit is reached\nerror: Function cancelled\n")
        self.assertGreater(time.monotonic() - start, 0.9)

    def test_time_ends_a_program_that_catches_every_error(self):
        outcome = self.run_sandboxed("(while T (vl-catch-all-apply '(lambda () (while T))))", "--limit-time", "1")
        self.assert_fails(outcome, 1, "the time limit is reached")

    def test_time_ends_a_program_that_waits_and_loses_nothing_that_it_has_printed(self):
        outcome = self.run_sandboxed('(princ "hello") (acet-sys-sleep 20000)', "--limit-time", "1")
        self.assertEqual(outcome, Outcome(1, "hello", "lisphost: the time limit is reached\n"))

    def test_time_ends_a_program_whose_output_nobody_reads(self):
        self.write("inside/program.lsp", '(repeat 20000 (princ "hello")) (acet-sys-sleep 1)')
        process = subprocess.Popen([LISPHOST, "--sandbox", "--limit-time", "1", "run", "inside/program.lsp"],
                                   cwd=self.folder, env=self.environment, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.kill)
        self.assertEqual(process.wait(TIMEOUT), 1)

    def test_memory(self):
        outcome = self.run_sandboxed("(while T (setq list (cons 1 list)))", "--limit-memory", "20")
        self.assert_fails(outcome, 1, "^error: out of memory\n")

    def test_memory_of_the_drawing(self):
        if not self.kernel_limits_memory():
            self.skipTest("AddressSanitizer needs terabytes of address space")
        outcome = self.run_sandboxed("""
            (setq text "xxxxxxxxxxxxxxxx")
            (repeat 15 (setq text (strcat text text)))
            (while T (entmake (list '(0 . "TEXT") (cons 1 text) '(10 0.0 0.0 0.0) '(40 . 1.0))))""",
                                     "--limit-memory", "20")
        self.assert_fails(outcome, 1, "^error: out of memory\n")

    def kernel_limits_memory(self) -> bool:
        return self.limit_of("d") != "unlimited"

    def limit_of(self, option) -> str:
        outcome = self.run_sandboxed(f'(acet-sys-command "ulimit -H{option}")', "--limit-memory", "20", "--allow-run", "sh")
        self.assertEqual((outcome.status, outcome.errors), (0, ""))
        return outcome.output.strip()

    def test_the_kernel_holds_started_programs_to_their_limits(self):
        self.assertIn(self.limit_of("d"), ("unlimited", str((20 + 512) * 1024)))
        self.assertEqual(self.limit_of("c"), "0")

    def test_a_tighter_limit_of_the_caller_stays(self):
        both = resource.getrlimit(resource.RLIMIT_FSIZE)
        self.addCleanup(resource.setrlimit, resource.RLIMIT_FSIZE, both)
        resource.setrlimit(resource.RLIMIT_FSIZE, (100 << 20, both[1]))
        outside = subprocess.check_output(["sh", "-c", "ulimit -Sf"], text=True)
        self.assert_gives(self.run_sandboxed('(acet-sys-command "ulimit -Sf")', "--allow-run", "sh"), outside)

    def test_the_size_of_a_file(self):
        for size, result in (("1024M", "0"), ("1025M", "256")):
            outcome = self.run_sandboxed(
                f'(princ (acet-sys-command "truncate -s {size} $TMPDIR/file"))',
                "--allow-run", "sh", "--allow-run", "truncate")
            self.assertEqual((outcome.status, outcome.output), (0, result), outcome)

    def test_depth(self):
        outcome = self.run_sandboxed("(defun f (n) (if (> n 0) (1+ (f (1- n))) 0)) (princ (f 50)) (f 200)",
                                     "--limit-depth", "100")
        self.assert_fails(outcome, 1, "^error: internal stack limit reached\n")
        self.assertEqual(outcome.output, "50\n")


class Usage(SandboxTest):
    @unittest.skipUnless(WINDOWS, "there is a sandbox")
    def test_where_there_is_none_nothing_runs(self):
        refusal = Outcome(2, "", "lisphost: --sandbox needs Linux: there is no sandbox on this system\n")
        self.assertEqual(self.run_sandboxed('(princ "ran")'), refusal)
        self.assertEqual(self.lisphost("--sandbox", "--allow-write", ".", "eval", '(princ "ran")'), refusal)

    def test_only_programs_expressions_and_tests_run_in_it(self):
        self.assert_fails(self.lisphost("--sandbox", "repl"), 2, "--sandbox is for run, eval and test")

    def test_its_options_mean_nothing_without_it(self):
        for option in ("--allow-write", "--allow-run", "--limit-time", "--limit-memory", "--limit-depth"):
            with self.subTest(option):
                self.assert_fails(self.lisphost(option, "1", "eval", "1"), 2, "--sandbox")

    @unittest.skipIf(WINDOWS, NONE)
    def test_a_program_that_is_not_there_cannot_be_allowed(self):
        self.assert_fails(self.lisphost("--sandbox", "--allow-run", "no-such-program", "eval", "1"), 2,
                          "no-such-program: no such program")

    @unittest.skipIf(WINDOWS, NONE)
    def test_a_folder_that_is_not_there_cannot_be_allowed(self):
        self.assert_fails(self.lisphost("--sandbox", "--allow-write", "no-such-folder", "eval", "1"), 2,
                          "^lisphost: no-such-folder: no such folder\n$")

    def test_limits_are_whole_numbers_in_a_range_that_can_be_read(self):
        for option, least in (("--limit-time", 0), ("--limit-memory", 0), ("--limit-depth", 1)):
            for number in (least - 1, 2**31):
                with self.subTest(option, number=number):
                    self.assert_fails(self.lisphost("--sandbox", option, str(number), "eval", "1"), 2,
                                      f"{option}: Value {number} not in range {least} to 2147483647\n")

    @unittest.skipIf(WINDOWS, NONE)
    def test_exit_statuses_are_those_of_the_program(self):
        self.assert_fails(self.run_sandboxed("(/ 1 0)"), 1, "^error: divide by zero\n")
        self.assert_fails(self.lisphost("--sandbox", "run", "missing.lsp"), 3, r"missing\.lsp")


@unittest.skipIf(WINDOWS, NONE)
class UnitTests(SandboxTest):
    def test_tests_read_their_folder_and_nothing_else(self):
        self.write("inside/list.txt", "first\n")
        self.write("inside/a-test.lsp", f"""
            (defun test-inside () (assert-equal "first" (read-line (open "inside/list.txt" "r"))))
            (defun test-outside () (assert-nil (open "{self.secret}" "r")))""")
        outcome = self.lisphost("--sandbox", "test", "inside")
        self.assert_refused(outcome, "ok    inside/a-test.lsp: test-inside\nok    inside/a-test.lsp: test-outside\n"
                            "2 tests: 2 passed\n", f"opening {self.secret}")

    def test_the_report_is_written_where_writing_is_allowed(self):
        self.write("inside/a-test.lsp", "(assert 1)")
        call = ["test", "inside/a-test.lsp", "--junit", "outside/results.xml"]
        self.assert_fails(self.lisphost("--sandbox", *call), 3, "results.xml")
        self.assertFalse((self.outside / "results.xml").exists())
        outcome = self.lisphost("--sandbox", "--allow-write", "outside", *call)
        self.assert_gives(outcome, "ok    inside/a-test.lsp\n1 test: 1 passed\n")
        self.assertIn("<testsuites", (self.outside / "results.xml").read_text())

    def test_every_test_is_bound_to_the_memory(self):
        self.write("inside/a-test.lsp", """(defun grow (/ all) (while T (setq all (cons 1 all))))
            (defun test-one () (grow)) (defun test-two () (grow))""")
        outcome = self.lisphost("--sandbox", "--limit-memory", "20", "test", "inside")
        self.assertEqual((outcome.status, outcome.output.count("out of memory")), (1, 2), outcome)

    def test_a_test_that_takes_too_long_is_ended_here_too(self):
        self.write("inside/a-test.lsp", "(defun test-one () (while T)) (defun test-two () T)")
        outcome = self.lisphost("--sandbox", "test", "--timeout", "1", "inside")
        self.assertEqual((outcome.status, outcome.errors), (1, ""))
        self.assertIn("ok    inside/a-test.lsp: test-two\n", outcome.output)

    def test_the_time_limit_ends_the_run(self):
        self.write("inside/a-test.lsp", "(defun test-one () (while T)) (defun test-two () T)")
        outcome = self.lisphost("--sandbox", "--limit-time", "1", "test", "inside")
        self.assert_fails(outcome, 1, "the time limit is reached\n")
        self.assertNotIn("test-two", outcome.output)


if __name__ == "__main__":
    unittest.main()
