#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

"""Presses keys and clicks at random in Vela Files, which must not end, nor have anything to report when it is built with
the sanitizers. It does so as a user who owns nothing else, since it may delete whatever it can: only the superuser can start it.

Usage: scripts/x-session tests/files/random-user.py PROGRAM [SECONDS [SEED]]
"""

import os
import random
import re
import shutil
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


def xdotool(*arguments):
    result = subprocess.run(["xdotool", *arguments], capture_output=True, text=True, check=False)
    return result.stdout.split()


def main():
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 120
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(10 ** 6)
    if os.geteuid() != 0:
        sys.exit("random-user: only the superuser can act as a user who owns nothing")
    print("random-user: seed {}".format(seed), flush=True)
    random.seed(seed)
    base = tempfile.mkdtemp(prefix="vela-files-random-")
    home = os.path.join(base, "home")
    copies = os.path.join(base, "program")
    program = copy_program(os.path.abspath(sys.argv[1]), copies)
    os.makedirs(home)
    fill(home)
    authority = os.path.join(base, "authority")
    shutil.copy(os.environ["XAUTHORITY"], authority)
    os.chown(authority, USER, USER)
    for name in ("config", "data", "runtime", "tmp"):
        os.mkdir(os.path.join(base, name), 0o700)
        os.chown(os.path.join(base, name), USER, USER)
    os.chmod(base, 0o755)  # the superuser's: what is needed to start cannot be deleted
    environment = dict(os.environ, HOME=home, XAUTHORITY=authority, XDG_CONFIG_HOME=base + "/config", TMPDIR=base + "/tmp",
                       XDG_DATA_HOME=base + "/data", XDG_RUNTIME_DIR=base + "/runtime", QT_QPA_PLATFORM="xcb",
                       QT_FONT_DPI="96", LC_ALL="C.UTF-8", QT_XCB_GL_INTEGRATION="none", BROWSER="true",
                       LD_LIBRARY_PATH=copies + "/lib", LSAN_OPTIONS="suppressions=" + copies + "/foreign-leaks.txt")
    command = ["setpriv", "--reuid", str(USER), "--regid", str(USER), "--clear-groups", program]
    log = open(os.path.join(base, "log"), "w+", encoding="utf-8", errors="replace")
    process = subprocess.Popen(command, env=environment, cwd=base, stdout=log, stderr=log)
    begin = time.monotonic()
    while not xdotool("search", "--name", "Vela Files") and time.monotonic() < begin + PATIENCE:
        time.sleep(0.1)
    windows = xdotool("search", "--name", "Vela Files")
    if not windows:
        log.seek(0)
        sys.exit("random-user: no window has come up\n" + log.read())
    window = windows[0]

    begin = time.monotonic()
    steps = 0
    while time.monotonic() - begin < seconds and process.poll() is None:
        steps += 1
        choice = random.random()
        if choice < 0.55:
            xdotool("key", random.choice(KEYS))
        elif choice < 0.95:
            xdotool("mousemove", "--window", window, str(random.randrange(1100)), str(random.randrange(720)),
                    "click", *random.choice([["1"], ["1"], ["--repeat", "2", "--delay", "30", "1"], ["3"]]))
        elif choice < 0.97:
            subprocess.run(command + ["--theme", random.choice(THEMES), "--language", random.choice(LANGUAGES), home],
                           env=environment, cwd=base, check=False, timeout=PATIENCE, stdout=log, stderr=log)
        elif choice < 0.98:
            shutil.rmtree(home, ignore_errors=True)
            os.makedirs(home)
            fill(home)
    is_alive = process.poll() is None
    if is_alive:
        process.terminate()
    process.wait(PATIENCE)
    log.seek(0)
    said = log.read()
    reports = [line for line in said.splitlines() if "ERROR: AddressSanitizer" in line or "runtime error:" in line
               or "ERROR: LeakSanitizer" in line]
    print("random-user: {} steps in {:.0f} s, {}".format(steps, time.monotonic() - begin,
                                                         "still there" if is_alive else "GONE"))
    if not is_alive or reports:
        print(said)
        return 1
    shutil.rmtree(base, ignore_errors=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
