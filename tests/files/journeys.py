#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

"""Uses Vela Files as a person does, by keys and clicks on an X server, and looks at what is on the disk and, by the bus of
screen readers, at what is on the screen. Every other journey is at scale 1.5, unless a scale is given. Of one that fails a
picture of the screen is kept in the working folder.

Usage: journeys.py [--scale SCALE] PROGRAM [JOURNEY ...]
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time
import traceback

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import GLib  # noqa: E402
import pyatspi  # noqa: E402

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "accessible"))
from bus_tree import problems_of, states_of  # noqa: E402

PATIENCE = 30  # seconds for what must come
BAD_NAME = b"bad\xff.txt"
JOURNEYS = []


def journey(function):
    JOURNEYS.append(function)
    return function


class Files:
    """The program with a home of its own."""

    def __init__(self, program, scale):
        self.program = program
        self.base = tempfile.mkdtemp(prefix="vela-files-")
        self.home = os.path.join(self.base, "home")
        self.environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_FONT_DPI=str(int(96 * scale)), QT_SCALE_FACTOR="1",
                                HOME=self.home, XDG_CONFIG_HOME=self.base + "/config", LC_ALL="C.UTF-8",
                                XDG_DATA_HOME=self.base + "/data", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        for name in ("Letters", "Pictures"):
            os.makedirs(os.path.join(self.home, name))
        for name, size in (("a.txt", 300), ("b.png", 100), ("c.zip", 200), (".hidden", 1)):
            self.write(name, size)
        self.process = None

    def write(self, name, size=1):
        with open(os.path.join(os.fsencode(self.home), os.fsencode(name)), "wb") as file:
            file.write(b"x" * size)

    def path(self, *names):
        return os.path.join(self.home, *names)

    def on_disk(self, *names):
        return sorted(os.listdir(self.path(*names)))

    def start(self, *arguments):
        self.process = subprocess.Popen([self.program, *arguments], env=self.environment, cwd=self.base)
        self.application = self.until(self.find_application, "the program on the bus")
        self.until(self.is_active, "its window to be active")

    def start_again(self, *arguments):
        subprocess.run([self.program, *arguments], env=self.environment, cwd=self.base, check=True, timeout=PATIENCE)

    def end(self):
        if self.process and self.process.poll() is None:
            self.process.terminate()
            self.process.wait()
        shutil.rmtree(os.fsencode(self.base), ignore_errors=True)

    def find_application(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                return application
        return None

    def is_active(self):
        return any("active" in states_of(window) for window in self.windows())

    def windows(self):
        found = [window for window in self.application if window is not None]
        for window in found:
            window.clear_cache()
        return found

    def until(self, condition, what):
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            while GLib.MainContext.default().iteration(False):
                pass
            try:
                result = condition()
            except (GLib.Error, NotImplementedError, AttributeError):
                result = None  # it is on its way
            if result:
                return result
            time.sleep(0.02)
        raise AssertionError("waited in vain for " + what)

    # ---- what a screen reader is told

    def assert_all_is_told(self, at_least):
        """All that is shown has a place in the tree, and what takes the focus a name and a role. Folders have no size: a
        cell may be empty."""
        count = 0
        for window in self.windows():
            if "showing" in states_of(window):
                problems, more = problems_of(window, nameless=("table cell",))
                assert not problems, "\n".join(problems)
                count += more
        assert count >= at_least, "only {} things are there".format(count)

    def focused(self):
        return next((found for found in self.shown() if "focused" in states_of(found)), None)

    # ---- what is on the screen

    def shown(self, role=None, name=None):
        """All that is shown of that role and with that in its name."""
        found = []

        def search(accessible):
            if accessible is None or "showing" not in states_of(accessible):
                return
            if (role is None or accessible.getRoleName() == role) and (name is None or name in accessible.name):
                found.append(accessible)
            if accessible.getRoleName() in ("table", "tree", "tree table"):
                return  # their cells are many
            for index in range(accessible.childCount):
                search(accessible.getChildAtIndex(index))

        for window in self.windows():
            search(window)
        return found

    def wait_for(self, role, name):
        return self.until(lambda: self.shown(role, name), "{} '{}'".format(role, name))[0]

    def wait_until_gone(self, role, name):
        self.until(lambda: not self.shown(role, name), "{} '{}' to go".format(role, name))

    def table(self):
        return next(table for table in self.shown("table") if table.childCount and table.queryTable().nColumns == 4)

    def rows(self):
        """The names of the files that are shown."""
        table = self.table().queryTable()
        cells = [table.getAccessibleAt(row, 0) for row in range(table.nRows)]
        for cell in cells:
            cell.clear_cache()
        return [cell.name for cell in cells]

    def wait_for_rows(self, *names):
        self.until(lambda: self.rows() == list(names), "the files {}, not {}".format(names, self.rows_or_none()))

    def rows_or_none(self):
        try:
            return self.rows()
        except (GLib.Error, NotImplementedError, StopIteration):
            return None

    def wait_for_title(self, name):
        self.until(lambda: any(window.name.startswith(name + " – ") for window in self.windows()), "the title " + name)

    # ---- what its user does

    @staticmethod
    def keys(*keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)

    @staticmethod
    def type(text):
        subprocess.run(["xdotool", "type", "--clearmodifiers", text], check=True)

    @staticmethod
    def click_at(x, y):
        subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", "1"], check=True)

    def click(self, accessible):
        box = accessible.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self.click_at(box.x + box.width // 2, box.y + box.height // 2)

    def click_button(self, name):
        self.click(self.wait_for("push button", name))

    def select(self, name):
        self.until(lambda: name in self.rows(), "the file " + name)
        table = self.table().queryTable()
        self.click(table.getAccessibleAt(self.rows().index(name), 0))
        self.wait_for("label", "Selected: 1")


# ---- journeys


@journey
def first_start(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.wait_for("label", "Files: 5, 600 bytes")
    files.wait_for("push button", "New folder")
    assert files.shown("tree", "Folders")


@journey
def browse_by_keys(files):
    files.write("Letters/inner.txt")
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.keys("Down", "Return")
    files.wait_for_title("Letters")
    files.wait_for_rows("inner.txt")
    files.keys("alt+Up")
    files.wait_for_title("home")
    files.wait_for("label", "Selected: 1")
    files.keys("Return")
    files.wait_for_rows("inner.txt")


@journey
def browse_by_tree(files):
    files.write("Letters/inner.txt")
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.keys("ctrl+l", "Down")
    files.wait_for_title("Letters")
    files.keys("Down")
    files.wait_for_title("Pictures")
    files.keys("Up", "Up")
    files.wait_for_title("home")


@journey
def browse_by_path(files):
    os.makedirs(files.path("Letters", "2026"))
    files.start(files.path("Letters", "2026"))
    files.wait_for_title("2026")
    files.click(files.until(lambda: [found for found in files.shown(name="Letters")
                                     if found.getRoleName() in ("link", "push button")], "the path")[0])
    files.wait_for_title("Letters")
    files.wait_for_rows("2026")


@journey
def filter_by_name(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.keys("ctrl+f")
    files.type("PNG")
    files.keys("Return")
    files.wait_for_rows("b.png")
    files.click_button("Clear")
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")


@journey
def filter_by_kind(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.keys("ctrl+f", "Down")
    files.keys("Down", "Down", "Down", "Return")
    files.wait_for_rows("b.png")


@journey
def sort_by_size(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    cell = files.table().queryTable().getAccessibleAt(0, 1)
    # Two clicks at one place would be a double click.
    for part, expected in ((2, ("b.png", "c.zip", "a.txt")), (4, ("a.txt", "c.zip", "b.png"))):
        box = cell.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        files.click_at(box.x + box.width // part, box.y - box.height // 2)
        files.until(lambda: tuple(files.rows()[2:]) == expected, "the order " + str(expected))


@journey
def turn_pages(files):
    for number in range(130):
        files.write("Letters/{:03}".format(number), number + 1)
    files.start(files.path("Letters"))
    files.until(lambda: len(files.rows()) == 100, "a full page")
    files.click_button("Page 2")
    files.until(lambda: len(files.rows()) == 30, "the second page")
    assert files.rows()[0] == "100"
    assert files.shown("label", "101–130")


@journey
def rename_wrongly_then_rightly(files):
    files.start()
    files.select("a.txt")
    files.keys("F2")
    files.wait_for("label", "New name")
    files.type("x/")
    files.wait_for("label", "A name holds no")
    files.keys("Return")
    assert "a.txt" in files.on_disk()
    files.keys("BackSpace", "Return")
    files.wait_for_rows("Letters", "Pictures", "b.png", "c.zip", "x.txt")
    assert files.on_disk() == [".hidden", "Letters", "Pictures", "b.png", "c.zip", "x.txt"]


@journey
def rename_onto_another(files):
    files.start()
    files.select("a.txt")
    files.keys("F2")
    files.wait_for("label", "New name")
    files.keys("ctrl+a")
    files.type("b.png")
    files.keys("Return")
    files.wait_for("label", "There is something of this name already")
    assert os.path.getsize(files.path("b.png")) == 100 and os.path.getsize(files.path("a.txt")) == 300
    files.keys("Escape")
    files.wait_until_gone("label", "There is something")


@journey
def rename_what_is_no_text(files):
    files.write(BAD_NAME)
    files.start()
    files.select("bad\\xff.txt")
    files.keys("F2")
    files.wait_for("label", "New name")
    files.keys("ctrl+a")
    files.type("good.txt")
    files.keys("Return")
    files.until(lambda: "good.txt" in files.rows(), "the new name")
    assert "good.txt" in files.on_disk() and os.fsdecode(BAD_NAME) not in files.on_disk()


@journey
def make_a_folder(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.click_button("New folder")
    files.wait_for("label", "Name of the new folder")
    files.type("Plans")
    files.keys("Return")
    files.until(lambda: "Plans" in files.rows(), "the folder")
    assert os.path.isdir(files.path("Plans"))
    files.wait_for("label", "Selected: 1")


@journey
def copy_and_paste(files):
    files.start()
    files.select("a.txt")
    files.keys("ctrl+c", "ctrl+v")
    files.until(lambda: "a (2).txt" in files.rows(), "the copy")
    assert os.path.getsize(files.path("a (2).txt")) == 300
    assert not [name for name in files.on_disk() if name.endswith(".part")]


@journey
def stop_a_copy(files):
    size = 1 << 36  # bytes, more than is copied before the click
    with open(files.path("big.bin"), "wb") as file:
        file.truncate(size)
    before = files.on_disk()
    files.start()
    files.select("big.bin")
    files.keys("ctrl+c", "ctrl+v")
    files.click_button("Stop")
    files.wait_for("label", "Stopped.")
    assert files.on_disk() == before
    files.keys("Return")
    files.wait_until_gone("label", "Stopped.")
    assert not files.shown("push button", "Stop") and os.path.getsize(files.path("big.bin")) == size


@journey
def cut_and_paste(files):
    files.start()
    files.select("a.txt")
    files.click_button("Cut")
    files.select("Letters")
    files.keys("Return")
    files.wait_for_title("Letters")
    files.click_button("Paste")
    files.wait_for_rows("a.txt")
    assert files.on_disk("Letters") == ["a.txt"] and "a.txt" not in files.on_disk()


@journey
def delete_with_a_question(files):
    files.start()
    files.select("a.txt")
    files.keys("Delete")
    files.wait_for("label", "Move to the wastebasket?")
    files.keys("Escape")
    files.wait_until_gone("label", "Move to the wastebasket?")
    assert "a.txt" in files.on_disk()
    files.keys("Delete")
    files.wait_for("label", "Move to the wastebasket?")
    files.keys("Return")
    files.wait_for_rows("Letters", "Pictures", "b.png", "c.zip")
    assert "a.txt" not in files.on_disk()
    assert os.path.exists(files.base + "/data/Trash/files/a.txt")


@journey
def delete_for_good(files):
    files.start()
    files.select("a.txt")
    files.keys("shift+Delete")
    files.wait_for("label", "Deleted for good, when the time is up")
    files.keys("Escape")
    files.wait_until_gone("label", "Deleted for good")
    assert "a.txt" in files.on_disk()
    files.keys("shift+Delete")
    files.wait_for("label", "Deleted for good, when the time is up")
    files.keys("Return")
    files.wait_for_rows("Letters", "Pictures", "b.png", "c.zip")
    assert "a.txt" not in files.on_disk() and not os.path.exists(files.base + "/data/Trash/files/a.txt")


@journey
def second_start(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.start_again(files.path("Letters"))
    files.wait_for_title("Letters")
    assert files.process.poll() is None


@journey
def change_under_a_sheet(files):
    files.start()
    files.select("a.txt")
    files.keys("F2")
    files.wait_for("label", "New name")
    files.start_again("--theme", "dark", "--language", "deu")
    files.wait_for("push button", "Abbrechen")
    files.type("y")
    files.keys("Return")
    files.until(lambda: "y.txt" in files.rows(), "the new name")
    assert "y.txt" in files.on_disk()
    files.wait_for("push button", "Umbenennen")
    files.start_again("--language", "ara")
    files.wait_for("push button", "إعادة تسمية")
    files.until(lambda: "y.txt" in files.rows(), "the files")


@journey
def properties_and_help(files):
    files.start()
    files.select("b.png")
    files.keys("alt+Return")
    files.wait_for("label", "Kind: PNG image")
    assert files.shown("label", "Bytes: 100")
    files.keys("Return")
    files.wait_until_gone("label", "Kind: PNG image")
    files.keys("F1")
    files.until(lambda: any(window.name == "Help" for window in files.windows()), "the help")
    files.until(lambda: [found for found in files.shown() if "Text" in pyatspi.listInterfaces(found)
                         and "All keys" in found.queryText().getText(0, -1)], "its page")


@journey
def hidden_files_and_settings(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.keys("ctrl+h")
    files.wait_for_rows("Letters", "Pictures", ".hidden", "a.txt", "b.png", "c.zip")
    files.keys("Down", "Return")
    files.wait_for_title("Letters")
    files.keys("ctrl+q")
    files.process.wait(PATIENCE)
    files.start("--language", "enu")
    files.wait_for_title("Letters")
    files.keys("alt+Up")
    files.until(lambda: ".hidden" in files.rows(), "the hidden file")


@journey
def everything_is_told(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    files.assert_all_is_told(at_least=50)
    files.select("a.txt")
    for keys, shown in (("F2", "New name"), ("shift+Delete", "a.txt"), ("alt+Return", "Kind: plain text document")):
        files.keys(keys)
        files.wait_for("label", shown)
        files.assert_all_is_told(at_least=4)
        files.keys("Return" if keys == "alt+Return" else "Escape")
        files.wait_until_gone("label", shown)
    files.keys("F1")
    files.until(lambda: any(window.name == "Help" for window in files.windows()), "the help")
    files.assert_all_is_told(at_least=50)


@journey
def tab_goes_round(files):
    files.start()
    files.wait_for_rows("Letters", "Pictures", "a.txt", "b.png", "c.zip")
    stops = [files.until(files.focused, "a focus")]
    while True:
        files.keys("Tab")
        stop = files.until(lambda: (files.focused() not in (None, stops[-1])) and files.focused(), "the next focus")
        assert stop.name.strip(), "a {} has no name".format(stop.getRoleName())
        if stop == stops[0]:
            break
        assert stop not in stops, "Tab goes round without the first: " + stop.name
        stops.append(stop)
    assert len(stops) > 5, [stop.name for stop in stops]


@journey
def the_folder_vanishes(files):
    files.start(files.path("Letters"))
    files.wait_for_title("Letters")
    shutil.rmtree(files.path("Letters"))
    files.wait_for("label", "The folder “Letters” cannot be shown")
    files.wait_for_title("home")
    files.keys("Return")
    files.wait_until_gone("label", "The folder")
    files.wait_for_rows("Pictures", "a.txt", "b.png", "c.zip")


def travel(function, program, scale):
    files = Files(program, scale)
    try:
        function(files)
        return True
    except Exception:
        picture = function.__name__ + ".png"
        subprocess.run(["import", "-window", "root", picture], check=False)
        print("{}\n    on the screen: {}, picture: {}".format(traceback.format_exc(), files.rows_or_none(),
                                                              os.path.abspath(picture)), flush=True)
        return False
    finally:
        files.end()


def main():
    arguments = sys.argv[1:]
    scale = None
    if arguments[:1] == ["--scale"]:
        scale, arguments = float(arguments[1]), arguments[2:]
    program, names = os.path.abspath(arguments[0]), arguments[1:]
    failures = 0
    for index, function in enumerate(JOURNEYS):
        if names and function.__name__ not in names:
            continue
        begin = time.monotonic()
        is_good = travel(function, program, scale or (1.5 if index % 2 else 1.0))
        print("{}: {}, {:.1f} s".format(function.__name__, "ok" if is_good else "FAILED", time.monotonic() - begin),
              flush=True)
        failures += not is_good
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
