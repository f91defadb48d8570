"""The web engine's sandbox is on for an ordinary user: what shows a page sees neither the user's
processes nor the system's calls."""

import os
import subprocess
import unittest
from pathlib import Path

import driver

NOBODY = 65534


def as_ordinary_user(*command):
    """The command as a user without any right, whoever runs the tests."""
    if os.geteuid() != 0:
        return command
    return ("setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", *command)


def status(process):
    """The fields of /proc/PROCESS/status."""
    lines = Path(f"/proc/{process}/status").read_text().splitlines()
    return dict(line.split(":\t", 1) for line in lines if ":\t" in line)


def descendants(process):
    found = subprocess.run(["pgrep", "-P", str(process)], capture_output=True, text=True)
    children = [int(child) for child in found.stdout.split()]
    return children + [further for child in children for further in descendants(child)]


def command_line(process):
    try:
        return Path(f"/proc/{process}/cmdline").read_bytes().replace(b"\0", b" ").decode()
    except OSError:
        return ""


class Sandbox(driver.SystemTest):
    def test_pages_of_an_ordinary_user_are_shown_in_the_sandbox(self):
        tried = subprocess.run(as_ordinary_user("unshare", "--user", "true"), capture_output=True)
        if tried.returncode != 0:
            raise unittest.SkipTest("this machine gives nobody a namespace of his own")
        # Nobody may read where we were built.
        prefix = self.install()
        home = self.folder / "home"
        home.mkdir()
        if os.geteuid() == 0:
            os.chown(home, NOBODY, NOBODY)
        self.folder.chmod(0o755)
        sites = self.sites(f'[hosts]\ndefault = "http://{self.server.host}"\n')
        program = driver.start(
            as_ordinary_user("env", "--unset=QTWEBENGINE_DISABLE_SANDBOX", f"HOME={home}",
                             f"XDG_RUNTIME_DIR={home}", f"XDG_CONFIG_HOME={home}",
                             f"XDG_DATA_HOME={home}", f"XDG_CACHE_HOME={home}",
                             prefix / "bin/tallowmere", "--web", "direct", "--sites", sites,
                             "--profile", home / "profile"),
            stderr=subprocess.DEVNULL)
        self.addCleanup(driver.stop, program)
        driver.wait_for(self.server.paths, "the first page")

        def renderers():
            return [process for process in descendants(program.pid)
                    if "--type=renderer" in command_line(process)]
        driver.wait_for(renderers, "a process that shows pages")
        own = os.readlink("/proc/self/ns/user")
        for process in renderers():
            fields = status(process)
            self.assertEqual(fields["Seccomp"], "2", "the calls of a page's process are not filtered")
            self.assertGreater(len(fields["NSpid"].split()), 1, "it sees the processes of others")
            self.assertEqual(int(fields["CapEff"], 16), 0)
            self.assertNotEqual(os.readlink(f"/proc/{process}/ns/user"), own)
        for process in (program.pid, *descendants(program.pid)):
            self.assertNotIn("no-sandbox", command_line(process))
        if os.geteuid() == 0:
            self.assertEqual(status(program.pid)["Uid"].split()[0], str(NOBODY))


if __name__ == "__main__":
    driver.main()
