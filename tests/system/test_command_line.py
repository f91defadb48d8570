"""The command line, the first start, the second start and the end of the built program."""

import os
import signal
import subprocess
import threading

import driver

# What is answered before anything is shown needs no display.
NO_DISPLAY = {"LANG": "C.UTF-8"}


class CommandLine(driver.SystemTest):
    def run_program(self, *arguments, environment=None):
        return subprocess.run([driver.SystemTest.binary, *map(str, arguments)],
                              capture_output=True, text=True, timeout=30, env=environment,
                              stdin=subprocess.DEVNULL)

    def refused(self, *arguments, environment=None):
        """What the program says on standard error when it refuses its arguments."""
        result = self.run_program(*arguments, environment=environment)
        self.assertEqual((result.returncode, result.stdout), (2, ""), result.stderr)
        self.assertTrue(result.stderr.startswith("tallowmere: "), result.stderr)
        return result.stderr

    def test_version_is_printed(self):
        result = self.run_program("--version", environment=NO_DISPLAY)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertRegex(result.stdout, r"^tallowmere \d+\.\d+\.\d+\n$")

    def test_help_names_every_option(self):
        result = self.run_program("--help", environment=NO_DISPLAY)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        for option in ("--web", "--profile", "--sites", "--version", "--help",
                       "live", "sample", "direct"):
            self.assertIn(option, result.stdout)

    def test_wrong_arguments_are_named(self):
        self.assertIn("'colour'", self.refused("--colour", environment=NO_DISPLAY))
        self.assertIn("'yesterday'", self.refused("--web", "yesterday"))
        self.assertIn("'msft'", self.refused("msft"))
        self.assertIn("sites", self.refused("--sites"))
        self.assertIn("profile", self.refused("--profile", ""))

    def test_a_site_file_that_is_not_there_is_named(self):
        path = self.folder / "nowhere.toml"
        self.assertIn(str(path), self.refused("--profile", self.folder, "--sites", path))

    def test_a_damaged_site_file_is_named_with_its_line(self):
        path = self.sites('[hosts]\ndefault = "127.0.0.1"\nquote = = "x"\n')
        self.assertIn(f"{path}:3: ", self.refused("--profile", self.folder, "--sites", path))

    def test_a_host_that_is_no_text_is_named_with_its_line(self):
        path = self.sites("[hosts]\n\nquote = 5\n")
        self.assertIn(f"{path}:3: ", self.refused("--profile", self.folder, "--sites", path))


class FoldersThatAreNoText(driver.SystemTest):
    """A folder whose name is no text is refused in words, and nothing is made in its place."""

    def refused(self, *arguments, **options):
        result = subprocess.run([os.path.abspath(driver.SystemTest.binary), "--web", "sample",
                                 *arguments],
                                capture_output=True, timeout=30, stdin=subprocess.DEVNULL,
                                **options)
        errors = result.stderr.decode(errors="replace")
        self.assertEqual((result.returncode, result.stdout), (2, b""), errors)
        self.assertRegex(errors, r"^tallowmere: .*no text \(UTF-8\).*\n$")
        return errors

    def no_text(self):
        folder = os.fsencode(self.folder) + b"/caf\xe9"
        os.mkdir(folder)
        return folder

    def nothing_made(self, folder):
        self.assertEqual(os.listdir(folder), [])
        self.assertEqual(os.listdir(os.fsencode(self.folder)), [os.path.basename(folder)])

    def test_a_profile(self):
        folder = self.no_text()
        self.refused("--profile", folder)
        self.nothing_made(folder)

    def test_a_table_of_sites(self):
        folder = self.no_text()
        self.refused("--profile", self.folder / "profile", "--sites", folder + b"/sites.toml")
        self.nothing_made(folder)

    def test_a_profile_below_the_current_folder(self):
        folder = self.no_text()
        self.refused("--profile", "profile", cwd=folder)
        self.nothing_made(folder)

    def test_the_users_own_folders(self):
        folder = self.no_text()
        for variable in ("HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME"):
            known = {name: value for name, value in os.environb.items()
                     if not name.startswith(b"XDG_")}
            errors = self.refused(env=known | {os.fsencode(variable): folder})
            self.assertIn(variable, errors)
            self.nothing_made(folder)


class RemoteDebugging(driver.SystemTest):
    def lines(self):
        program = self.start()
        program.main_window()
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_for_end(), 0, program.errors())
        return [line for line in program.errors().splitlines() if "tallowmere: " in line]

    def test_it_is_told_in_one_line(self):
        os.environ["QTWEBENGINE_REMOTE_DEBUGGING"] = "127.0.0.1:0"
        self.addCleanup(os.environ.pop, "QTWEBENGINE_REMOTE_DEBUGGING", None)
        self.assertEqual(self.lines(),
                         ["tallowmere: QTWEBENGINE_REMOTE_DEBUGGING is set to 127.0.0.1:0: every "
                          "program of this machine can read and steer the panes"])
        del os.environ["QTWEBENGINE_REMOTE_DEBUGGING"]
        self.assertEqual(self.lines(), [])


class OneProgramPerProfile(driver.SystemTest):
    def test_a_second_start_raises_the_first_window_and_ends(self):
        first = self.start(profile="one")
        first.main_window()
        other = self.start(profile="two")
        other.main_window()
        driver.xdotool("windowactivate", "--sync", other.window_id())

        second = self.start(profile="one")
        self.assertEqual(second.wait_for_end(), 0, second.errors())
        driver.wait_for(lambda: driver.xdotool("getactivewindow") == first.window_id(),
                        "the first window to be the active one")
        self.assertIsNone(first.process.poll())
        self.assertIsNone(other.process.poll())

    def test_a_polite_end_by_signal_is_a_close(self):
        program = self.start(profile="one")
        program.main_window()
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_for_end(), 0, program.errors())
        # The close sequence has run: it writes the portfolio's number and the window's place.
        settings = "".join(path.read_text(errors="replace")
                           for path in (self.folder / "one").glob("*.ini"))
        self.assertIn("TickerList=1", settings)
        self.assertRegex(settings, r"Width=\d+")

    def test_a_signal_ends_a_start_that_waits_for_a_page(self):
        asked, over = threading.Event(), threading.Event()
        self.addCleanup(over.set)

        def stall(_):
            asked.set()
            over.wait(driver.PATIENCE)
        self.server.services["/members/"] = stall
        profile = self.folder / "profile"
        profile.mkdir(mode=0o700)
        (profile / "settings.ini").write_text("[Settings]\nFirst=OK\nSAVersion=True\n")
        program = self.start()
        self.assertTrue(asked.wait(driver.PATIENCE), "the page of the club was not asked for")
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_for_end(10), 0, program.errors())


class Locks(driver.SystemTest):
    """Nothing that lies in the place of a lock keeps the user out, or ends a start in silence."""

    def lock(self):
        profile = self.folder / "profile"
        profile.mkdir(mode=0o700)
        return profile / "running.lock"

    def test_what_stands_in_a_lock_means_nothing(self):
        lock = self.lock()
        for content in ("", "\0\1garbage", "1\ntallowmere\nanother-host\n0\n1\n"):
            lock.write_text(content)
            program = self.start()
            program.main_window()
            program.stop()

    def test_a_folder_in_the_place_of_the_lock_is_told(self):
        self.lock().mkdir()
        program = self.start()
        program.application.find(name="Quorvane", hidden=True)
        driver.press("Return")
        program.main_window()

    def test_a_first_program_that_hangs_is_named(self):
        first = self.start()
        first.main_window()
        first.process.send_signal(signal.SIGSTOP)
        try:
            second = subprocess.run(
                [driver.SystemTest.binary, "--profile", self.folder / "profile"],
                capture_output=True, text=True, timeout=driver.PATIENCE, stdin=subprocess.DEVNULL)
        finally:
            first.process.send_signal(signal.SIGCONT)
        self.assertEqual(second.returncode, 2)
        self.assertIn("does not answer", second.stderr)


class EndOfASession(driver.SystemTest):
    def test_settings_that_cannot_be_written_hold_nobody_up(self):
        profile = self.folder / "profile"
        (profile / "settings.ini").mkdir(parents=True)
        program = self.start()
        # The start says that it could not write them, and waits for an answer that never comes.
        program.application.find(name="Quorvane", hidden=True)
        program.process.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait_for_end(2), 0, program.errors())
        self.assertIn("settings.ini", program.errors())
        # The next start tells it once.
        (profile / "settings.ini").rmdir()
        self.assertIn("settings.ini", (profile / "closing.txt").read_text())
        program = self.start()
        program.application.find(name="Quorvane", hidden=True)
        driver.press("Return")
        program.main_window()
        self.assertFalse((profile / "closing.txt").exists())


if __name__ == "__main__":
    driver.main()
