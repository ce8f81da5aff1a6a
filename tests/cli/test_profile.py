"""Settings that outlive the program: where they are kept, and that hosts at the same time and killed ones lose none."""

import random
import re
import signal
import subprocess
import time
import unittest

from lisphost import LISPHOST, TIMEOUT, WINDOWS, LispHostTest, Outcome, respect_permissions


class Profile(LispHostTest):
    def setUp(self) -> None:
        super().setUp()
        self.store = self.folder / "kept" / "settings.ini"

    def with_profile(self, *expressions: str) -> Outcome:
        return self.lisphost("--profile", "kept", "eval", *expressions)

    def start(self, program: str) -> subprocess.Popen:
        return subprocess.Popen([LISPHOST, "--profile", "kept", "run", program], cwd=self.folder, env=self.environment,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, preexec_fn=respect_permissions)

    def test_settings_are_there_in_the_next_run(self):
        self.assert_gives(self.with_profile('(acet-var-setvar "a" 5)'), "T\n")
        self.assert_gives(self.with_profile('(acet-var-getvar "a")'), '"INT__5"\n')

    def test_a_profile_named_by_a_relative_path_stays_when_the_directory_changes(self):
        self.write("elsewhere/file", "")
        self.with_profile('(acet-file-chdir "elsewhere")', '(acet_set_config "a" "1")')
        self.assertTrue(self.store.exists())

    def test_without_the_option_the_environment_names_the_folder(self):
        self.environment["LISPHOST_PROFILE"] = "named"
        self.assert_gives(self.evaluate('(acet-var-setvar "a" 5)'), "T\n")
        self.assertTrue((self.folder / "named/settings.ini").exists())
        self.with_profile('(acet-var-setvar "a" 6)')
        self.assertTrue(self.store.exists())
        self.assert_gives(self.evaluate('(acet-var-getvar "a")'), '"INT__5"\n')

    @unittest.skipIf(WINDOWS, "the system says where the user's folder is, not the environment")
    def test_without_the_option_they_are_the_users_own(self):
        self.assert_gives(self.evaluate('(acet-var-setvar "a" 5)'), "T\n")
        self.assertTrue((self.profile / "lisphost" / "settings.ini").exists())

    def test_nothing_is_made_before_something_is_stored(self):
        self.assert_gives(self.with_profile('(acet-var-getvar "a")', '(acet_get_config "a")'), '""\n""\n')
        self.assertFalse(self.store.parent.exists())

    def test_where_nothing_can_be_stored_the_call_gives_nil_and_says_why(self):
        self.store.parent.mkdir(mode=0o555)
        outcome = self.with_profile('(acet-var-setvar "a" 5)', '(acet_set_config "a" "1")', '(acet-var-getvar "a")')
        self.assertEqual((outcome.status, outcome.output), (0, 'nil\nnil\n""\n'))
        self.assertRegex(outcome.errors, r"^lisphost: .*/kept/settings\.ini\.lock: (Permission denied|Access denied\.)\n$")

    def test_a_damaged_file_is_told_of_and_kept(self):
        self.write("kept/settings.ini", "[variables]\na=1\nrubbish\n")
        outcome = self.with_profile('(acet_get_config "a")', '(acet_set_config "b" "2")', '(acet_get_config "b")')
        self.assertEqual((outcome.status, outcome.output), (0, '"1"\nnil\n"2"\n'))
        self.assertRegex(outcome.errors, r"^lisphost: .*settings\.ini, line 3: no = is in it\n"
                                         r"lisphost: .*settings\.ini: kept as settings\.ini\.damaged .*\n$")
        self.assertEqual(self.store.with_name("settings.ini.damaged").read_text(), "[variables]\na=1\nrubbish\n")
        self.assertEqual(self.store.read_text(), "[variables]\na=1\nb=2\n")

    def test_two_hosts_at_the_same_time_lose_none_of_a_thousand_values_each(self):
        hosts = []
        for name in ("first", "second"):
            self.write(f"{name}.lsp", f'(setq i 0)\n(repeat 1000 (setq i (1+ i))\n'
                                      f'  (if (not (acet-var-setvar (strcat "{name}" (itoa i)) i)) (princ i)))')
            hosts.append(self.start(f"{name}.lsp"))
        for host in hosts:
            self.assertEqual((host.communicate(timeout=TIMEOUT), host.returncode), ((b"", b""), 0))
        lines = self.store.read_text().splitlines()
        expected = [f"{name}{i}=INT__{i}" for name in ("first", "second") for i in range(1, 1001)]
        self.assertEqual(sorted(line for line in lines if "=" in line), sorted(expected))

    def count(self) -> int:
        return int(re.search(r"^count=INT__(\d+)$", self.store.read_text(), re.MULTILINE)[1])

    @unittest.skipIf(WINDOWS, "there is no signal that ends it")
    def test_a_killed_host_leaves_the_old_state_or_the_new(self):
        """Each host counts up a setting among many others until it is killed."""
        self.write("count.lsp", '(setq i (atoi (substr (acet-var-getvar "count") 6)))\n'
                                '(while T (acet-var-setvar "count" (setq i (1+ i))))')
        ballast = "".join(f"{i}=x\n" for i in range(300))
        self.write("kept/settings.ini", f"[variables]\n{ballast}[Tarn]\ncount=INT__0\n")
        chance = random.Random(1)
        for _ in range(50):
            before = self.count()
            host = self.start("count.lsp")
            while self.count() == before and host.poll() is None:
                time.sleep(0.001)
            time.sleep(chance.uniform(0, 0.005))
            seen = self.count()
            host.kill()
            self.assertEqual((host.communicate(timeout=TIMEOUT), host.returncode), ((b"", b""), -signal.SIGKILL))
            outcome = self.with_profile('(acet-var-getvar "count")')
            self.assertEqual(outcome, Outcome(0, f'"INT__{self.count()}"\n', ""))
            self.assertGreaterEqual(self.count(), seen)
            self.assertEqual(self.store.read_text(), f"[variables]\n{ballast}[Tarn]\ncount=INT__{self.count()}\n")
        self.assertLessEqual({path.name for path in self.store.parent.iterdir()},
                             {"settings.ini", "settings.ini.lock", "settings.ini.new"})


if __name__ == "__main__":
    unittest.main()
