#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

"""Presses keys and clicks at random in Vela Files, which must not end, nor have anything to report when it is built with
the sanitizers. It does so as a user who owns nothing else, since it may delete whatever it can: only the superuser can start it.

With --measure, of a program without sanitizers, memory and open files are read ten times, and the last three readings must not
tell of more than the three before them. The user then sees no folder but its home, as the tree keeps what it has seen.

Usage: scripts/x-session tests/files/random-user.py [--measure] PROGRAM [SECONDS [SEED]]
"""

import argparse
import os
import random
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

USER = 65534
KEYS = ["Down", "Up", "Left", "Right", "Return", "Escape", "Tab", "shift+Tab", "space", "F2", "Delete", "shift+Delete",
        "ctrl+c", "ctrl+x", "ctrl+v", "ctrl+h", "ctrl+f", "ctrl+l", "ctrl+shift+n", "alt+Up", "alt+Return", "F5", "F1",
        "Home", "End", "Page_Down", "Page_Up", "Menu", "BackSpace", "a", "b", "1", "period", "slash"]
THEMES = ["light", "dark", "high-contrast"]
LANGUAGES = ["enu", "deu", "chs", "ara", "fra", "jpn"]
PATIENCE = 60
READINGS = 10
COMPARED = 3
MEMORY_AT_MOST = 1536  # kilobytes more, as much as the heap of one thread
POOLED = "Thread (pooled)\n"  # name of a thread that works when there is something to do
SHEETS_AT_MOST = 4  # one over the other
# Runs a command in a root $0 of its own, with what is in the root, except that neither the root nor /tmp can be listed.
CONFINE = """
mount -t tmpfs -o mode=711 none "$0" || exit
for name in /* /tmp/.X11-unix "${0%/*}"; do
    if [ -L "$name" ]; then
        cp -P "$name" "$0"
    elif [ "$name" = /tmp ]; then
        mkdir -m 711 "$0$name"
    elif [ -d "$name" ]; then
        mkdir "$0$name" && mount --bind "$name" "$0$name"
    fi
done
exec chroot "$0" "$@"
"""


def fill(home):
    for folder in ("", "a", "a/b", "c", "many"):
        os.makedirs(os.path.join(home, folder), exist_ok=True)
        for number in range(250 if folder == "many" else 6):
            path = os.path.join(home, folder, "file {}.{}".format(number, random.choice(["txt", "png", "zip", "cpp"])))
            with open(path, "wb") as file:
                file.write(b"x" * random.randrange(5000))
    for path, _, names in os.walk(home):
        for name in [path] + [os.path.join(path, name) for name in names]:
            os.chown(name, USER, USER)


def copy_program(program, folder):
    """Copies what the program consists of to where any user can read it, and returns the copy."""
    for part in ("bin", "share"):
        shutil.copytree(os.path.join(os.path.dirname(program), "..", part), os.path.join(folder, part))
    os.mkdir(os.path.join(folder, "lib"))
    needed = subprocess.run(["ldd", program], capture_output=True, text=True, check=True).stdout
    for library in re.findall(r"=> (/(?!lib|usr/)\S+)", needed):
        shutil.copy(library, os.path.join(folder, "lib"))
    suppressions = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support", "foreign-leaks.txt")
    shutil.copy(suppressions, folder)
    return os.path.join(folder, "bin", os.path.basename(program))


def content(path):
    """Or nothing, of a thread that has just ended."""
    try:
        with open(path, encoding="utf-8", errors="replace") as file:
            return file.read()
    except OSError:
        return ""


def xdotool(*arguments):
    result = subprocess.run(["xdotool", *arguments], capture_output=True, text=True, check=False)
    return result.stdout.split()


class Program:
    """The program, with a home and a user of its own."""

    def __init__(self, path, base, is_confined):
        self.base = base
        self.home = os.path.join(base, "home")
        copies = os.path.join(base, "program")
        self.command = ["setpriv", "--reuid", str(USER), "--regid", str(USER), "--clear-groups", copy_program(path, copies)]
        self.renew_home()
        authority = os.path.join(base, "authority")
        shutil.copy(os.environ["XAUTHORITY"], authority)
        os.chown(authority, USER, USER)
        for name in ("config", "data", "runtime", "tmp"):
            os.mkdir(os.path.join(base, name), 0o700)
            os.chown(os.path.join(base, name), USER, USER)
        # The superuser's: what is needed to start cannot be deleted.
        os.chmod(base, 0o711 if is_confined else 0o755)
        self.log = open(os.path.join(base, "log"), "w+", encoding="utf-8", errors="replace")
        self.environment = dict(
            os.environ, HOME=self.home, XAUTHORITY=authority, XDG_CONFIG_HOME=base + "/config", TMPDIR=base + "/tmp",
            XDG_DATA_HOME=base + "/data", XDG_RUNTIME_DIR=base + "/runtime", QT_QPA_PLATFORM="xcb", QT_FONT_DPI="96",
            LC_ALL="C.UTF-8", QT_XCB_GL_INTEGRATION="none", BROWSER="true", LD_LIBRARY_PATH=copies + "/lib",
            LSAN_OPTIONS="suppressions=" + copies + "/foreign-leaks.txt")
        root = os.path.join(base, "root")
        os.mkdir(root)
        confined = ["unshare", "--mount", "sh", "-c", CONFINE, root] if is_confined else []
        self.process = subprocess.Popen(confined + self.command, **self.surroundings())

    def surroundings(self):
        return {"env": self.environment, "cwd": self.base, "stdout": self.log, "stderr": self.log}

    def renew_home(self):
        """Also while the program puts something there or takes it away."""
        shutil.rmtree(self.home, ignore_errors=True)
        os.makedirs(self.home, exist_ok=True)
        try:
            fill(self.home)
        except FileNotFoundError:
            self.renew_home()

    def is_alive(self):
        return self.process.poll() is None

    def window(self):
        begin = time.monotonic()
        while time.monotonic() < begin + PATIENCE:
            windows = xdotool("search", "--name", "Vela Files")
            if windows:
                return windows[0]
            time.sleep(0.1)
        sys.exit("random-user: no window has come up\n" + self.said())

    def start_again(self, theme, language):
        """Has the one that runs show its home."""
        subprocess.run(self.command + ["--theme", theme, "--language", language, self.home], check=False, timeout=PATIENCE,
                       **self.surroundings())

    def settle(self):
        """Shows what was shown in the beginning."""
        for _ in range(SHEETS_AT_MOST):
            xdotool("key", "Escape", "Return")  # Escape does not answer information
        self.start_again(THEMES[0], LANGUAGES[0])
        xdotool("key", "Escape")

    def reading(self):
        """Kilobytes of memory of its own, and open files but the one of each thread in a pool, once both are at rest."""
        folder = "/proc/{}/".format(self.process.pid)
        begin = time.monotonic()
        reading, former = (), None
        while reading != former and time.monotonic() < begin + PATIENCE:
            former = reading
            time.sleep(1)
            memory = int(re.search(r"RssAnon:\s*(\d+) kB", content(folder + "status")).group(1))
            threads = [content(folder + "task/" + thread + "/comm") for thread in os.listdir(folder + "task")]
            reading = (memory, len(os.listdir(folder + "fd")) - threads.count(POOLED))
        return reading

    def end(self):
        if self.is_alive():
            self.process.terminate()
        self.process.wait(PATIENCE)

    def said(self):
        self.log.seek(0)
        return self.log.read()


def act(program, window):
    choice = random.random()
    if choice < 0.55:
        xdotool("key", random.choice(KEYS))
    elif choice < 0.95:
        xdotool("mousemove", "--window", window, str(random.randrange(1100)), str(random.randrange(720)),
                "click", *random.choice([["1"], ["1"], ["--repeat", "2", "--delay", "30", "1"], ["3"]]))
    elif choice < 0.97:
        program.start_again(random.choice(THEMES), random.choice(LANGUAGES))
    elif choice < 0.98:
        program.renew_home()


def use(program, seconds, is_measured):
    """Returns what was read."""
    window = program.window()
    begin = time.monotonic()
    steps = 0
    readings = []
    parts = READINGS if is_measured else 1
    for part in range(1, parts + 1):
        while time.monotonic() < begin + seconds * part / parts and program.is_alive():
            act(program, window)
            steps += 1
        if is_measured and program.is_alive():
            program.settle()
            readings.append(program.reading())
            print("random-user: {:5.0f} s, {:6} steps: {} kB, {} files".format(time.monotonic() - begin, steps, *readings[-1]),
                  flush=True)
    print("random-user: {} steps in {:.0f} s, {}".format(steps, time.monotonic() - begin,
                                                         "still there" if program.is_alive() else "GONE"))
    return readings


def have_grown(readings):
    last, before = readings[-COMPARED:], readings[-2 * COMPARED:-COMPARED]
    memory = (sum(reading[0] for reading in last) - sum(reading[0] for reading in before)) / COMPARED
    files = statistics.median(reading[1] for reading in last) - statistics.median(reading[1] for reading in before)
    print("random-user: {:.0f} kB more at the end, of {} at most, and {} more files".format(memory, MEMORY_AT_MOST, files))
    return memory > MEMORY_AT_MOST or files > 0


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--measure", action="store_true")
    parser.add_argument("program")
    parser.add_argument("seconds", type=int, nargs="?", default=120)
    parser.add_argument("seed", type=int, nargs="?", default=random.randrange(10 ** 6))
    options = parser.parse_args()
    if os.geteuid() != 0:
        sys.exit("random-user: only the superuser can act as a user who owns nothing")
    print("random-user: seed {}".format(options.seed), flush=True)
    random.seed(options.seed)
    base = tempfile.mkdtemp(prefix="vela-files-random-", dir="/tmp")
    program = Program(os.path.abspath(options.program), base, options.measure)
    readings = use(program, options.seconds, options.measure)
    is_good = program.is_alive()
    program.end()
    said = program.said()
    reports = [line for line in said.splitlines() if "ERROR: AddressSanitizer" in line or "runtime error:" in line
               or "ERROR: LeakSanitizer" in line]
    if not is_good or reports:
        print(said)
        return 1
    if options.measure and have_grown(readings):
        return 1
    os.rmdir(os.path.join(base, "root"))  # in which nothing may be mounted any more when all is removed
    shutil.rmtree(base, ignore_errors=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
