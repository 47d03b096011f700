#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Vela Components authors
# SPDX-License-Identifier: MIT

"""Walks through the gallery by keys and by the actions that it offers on the bus of screen readers, and writes down what a
screen reader would say: what has got the focus, within what, and what has changed there. What was said before is kept
in journeys/*.txt.

With --walk it walks through all that is shown on each page instead, and tells what takes the focus without a name and
where the tree is broken.

Usage: journeys.py [--update] GALLERY [JOURNEY ...]
       journeys.py --walk GALLERY
"""

import difflib
import os
import re
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import GLib  # noqa: E402
import pyatspi  # noqa: E402

sys.dont_write_bytecode = True
from bus_tree import problems_of, states_of  # noqa: E402

PATIENCE = 60  # seconds for what must come
QUIET = 1.5  # seconds without a word, after which nothing is expected any more; only where the words are written anew

CONTAINERS = {"alert", "dialog", "list", "panel", "table", "tree", "tool bar"}


def ancestors_of(accessible):
    ancestors = []
    accessible = accessible.parent
    while accessible is not None and accessible.getRoleName() != "application":
        ancestors.insert(0, accessible)
        accessible = accessible.parent
    return ancestors


def said_of(accessible):
    """One line: role, name, description and what is special about it."""
    states = states_of(accessible)
    words = []
    if "checkable" in states:
        words.append("checked" if "checked" in states else "not checked")
    if "expandable" in states:
        words.append("expanded" if "expanded" in states else "collapsed")
    if "enabled" not in states:
        words.append("unavailable")
    if "has popup" in states:
        words.append("has a popup")
    if accessible.getRoleName() in ("text", "password text"):
        text = accessible.queryText()
        words.append('"' + text.getText(0, text.characterCount) + '"')
    if accessible.getRoleName() == "table cell":
        words += place_of(accessible)
    parts = [accessible.name, accessible.description] + words
    return accessible.getRoleName() + ": " + ", ".join(part for part in parts if part)


def place_of(cell):
    try:
        table = cell.parent.queryTable()
    except NotImplementedError:
        return []
    index = cell.getIndexInParent()
    column = table.getColumnAtIndex(index)
    title = table.getColumnDescription(column)
    return [title] if title and not title.isdigit() else []


class Reader:
    """Says what happens."""

    def __init__(self):
        self.lines = []
        self.around = []
        self.focused = None
        self.heard = ("", "")
        for name, handle in (
            ("object:state-changed:focused", self.on_focus),
            ("object:property-change:accessible-name", self.on_change),
            ("object:property-change:accessible-description", self.on_change),
        ):
            pyatspi.Registry.registerEventListener(handle, name)

    def on_focus(self, event):
        if not event.detail1:
            return
        source = event.source
        try:
            line = said_of(source)
            around = [each for each in ancestors_of(source) if each.getRoleName() in CONTAINERS and each.name]
            context = ["in " + said_of(each) for each in around if each not in self.around]
            heard = (source.name, source.description)
        except GLib.Error:
            return  # gone already
        if source == self.focused and not context:
            return
        self.around = around + [source]
        self.focused = source
        self.heard = heard
        self.lines += context + [line]

    # As screen readers do: where the focus is, and not twice.
    def on_change(self, event):
        if event.source != self.focused:
            return
        try:
            name, description = event.source.name, event.source.description
        except GLib.Error:
            return
        if event.type.major == "property-change" and event.type.minor == "accessible-name":
            if name != self.heard[0]:
                self.lines.append("now named: " + name)
            self.heard = (name, self.heard[1])
        elif description != self.heard[1]:
            if description:
                self.lines.append("now: " + description)
            self.heard = (self.heard[0], description)


class Gallery:
    """The gallery as its user has it: through the bus and the keyboard."""

    def __init__(self, program, page, for_keys=True):
        environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_FONT_DPI="96", QT_SCALE_FACTOR="1")
        self.reader = Reader()
        self.process = subprocess.Popen([program, "--page", page, "--language", "enu"], env=environment)
        self.application = self.wait_for(self.find_application, "the gallery on the bus")
        state = "active" if for_keys else "showing"
        self.window = self.wait_for(lambda: self.find_window(state), "its window to be " + state)
        if for_keys:
            self.wait_for(lambda: self.reader.focused, "something that has the focus")

    def find_application(self):
        for application in pyatspi.Registry.getDesktop(0):
            if application is not None and application.get_process_id() == self.process.pid:
                return application
        return None

    def find_window(self, state):
        for window in self.application:
            if window is not None:
                window.clear_cache()  # what it has said before it was shown
                if state in states_of(window):
                    return window
        return None

    def wait_for(self, condition, what):
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            self.handle_events()
            try:
                result = condition()
            except GLib.Error:
                result = None
            if result:
                return result
            time.sleep(0.02)
        raise SystemExit("waited in vain for " + what)

    @staticmethod
    def handle_events():
        while GLib.MainContext.default().iteration(False):
            pass

    def find(self, role, name, below=None):
        """The shown thing of that role and name, if there is one."""

        def search(accessible):
            if accessible is None or "showing" not in states_of(accessible):
                return None
            if accessible.getRoleName() == role and accessible.name == name:
                return accessible
            for index in range(accessible.childCount):
                found = search(accessible.getChildAtIndex(index))
                if found:
                    return found
            return None

        for window in self.application:
            found = search(below or window)
            if found:
                return found
        return None

    def focus(self, role, name):
        found = self.wait_for(lambda: self.find(role, name), role + " " + name)
        found.queryComponent().grabFocus()

    def press(self, role, name):
        found = self.wait_for(lambda: self.find(role, name), role + " " + name)
        action = found.queryAction()
        names = [action.getName(index) for index in range(action.nActions)]
        wanted = next(index for index, each in enumerate(names) if each in ("Press", "ShowMenu"))
        action.doAction(wanted)

    @staticmethod
    def keys(*keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers"] + list(keys), check=True)

    @staticmethod
    def type(text):
        subprocess.run(["xdotool", "type", text], check=True)

    def end(self):
        self.process.terminate()
        self.process.wait()


def focus(role, name):
    return ("goes to the {} \"{}\"".format(role, name), lambda gallery: gallery.focus(role, name))


def press(role, name):
    return ("presses the {} \"{}\"".format(role, name), lambda gallery: gallery.press(role, name))


def key(*keys):
    return ("key " + ", ".join(keys), lambda gallery: gallery.keys(*keys))


def typed(text):
    return ("types " + text, lambda gallery: gallery.type(text))


# Page of the gallery to begin with, and what is done there.
JOURNEYS = {
    "question": ("messages", [
        ("asks for the fourth message", lambda gallery: open_message(gallery, 3)),
        key("Tab"),
        key("Tab"),
        key("Escape"),
    ]),
    "input": ("input-sheet", [
        focus("push button", "Ask"),
        key("space"),
        typed("Plans"),
        key("Tab"),
        key("Return"),
    ]),
    "table": ("table", [
        focus("table", "Name, Size, Changed, Owner"),
        key("Down"),
        key("Right"),
        focus("push button", "Page 2"),
        key("space"),
        key("Tab"),
    ]),
    "folders": ("folders", [
        focus("tree", "Folders"),
        key("Down"),
        key("Up"),
    ]),
    "calendar": ("dates", [
        focus("push button", "Previous month"),
        key("Tab"),
        key("Tab"),
        key("Tab"),
        key("Tab"),
        key("Right"),
    ]),
    "countdown": ("countdown", [
        ("starts to count down from three", lambda gallery: open_countdown(gallery)),
        ("waits for the end", lambda gallery: None),
    ]),
}


def buttons_named(gallery, name):
    found = []

    def search(accessible):
        if accessible is None or "showing" not in states_of(accessible):
            return
        if accessible.getRoleName() == "push button" and accessible.name == name:
            found.append(accessible)
        for index in range(accessible.childCount):
            search(accessible.getChildAtIndex(index))

    search(gallery.window)
    return found


def open_message(gallery, row):
    button = buttons_named(gallery, "Show")[2 * row]  # a sheet and a window in each row
    button.queryComponent().grabFocus()
    button.queryAction().doAction(0)


def open_countdown(gallery):
    button = buttons_named(gallery, "Count down")[0]
    button.queryComponent().grabFocus()
    button.queryAction().doAction(0)


def without_dates(line):
    """What depends on the day of the test."""
    day = r"\w+day, \d+ \w+ \d{4}"
    month = r"(January|February|March|April|May|June|July|August|September|October|November|December)"
    line = re.sub(day, "<day>", line).replace(", Today", "")
    line = re.sub(month + r"\b( \d{4})?", "<month>", line)
    return re.sub(r"\b20\d\d\b", "<year>", line)


def approved_path(name):
    return os.path.join(os.path.dirname(os.path.abspath(__file__)), "journeys", name + ".txt")


def read_approved(name):
    """The steps with what is said after each."""
    steps = []
    try:
        with open(approved_path(name), encoding="utf-8") as file:
            for line in file.read().splitlines():
                if line.startswith("> "):
                    steps.append((line[2:], []))
                elif line and not line.startswith("# "):
                    steps[-1][1].append(line)
    except FileNotFoundError:
        pass
    return steps


def said_after(gallery, action, expected):
    """Waits for the lines that are expected, or where there are none yet, until nothing more comes."""
    reader = gallery.reader
    reader.lines = reader.lines[-1:]
    before = len(reader.lines)
    action(gallery)
    if expected is None:
        last = (time.monotonic(), -1)
        while time.monotonic() - last[0] < QUIET:
            gallery.handle_events()
            if len(reader.lines) != last[1]:
                last = (time.monotonic(), len(reader.lines))
            time.sleep(0.02)
    else:
        end = time.monotonic() + PATIENCE
        while len(reader.lines) - before < len(expected) and time.monotonic() < end:
            gallery.handle_events()
            time.sleep(0.02)
        gallery.application.getRoleName()  # answered behind all that was told before
        gallery.handle_events()
    return [without_dates(line) for line in reader.lines[before:]]


def travel(program, name, update):
    page, steps = JOURNEYS[name]
    approved = [] if update else read_approved(name)
    gallery = Gallery(program, page)
    said = []
    try:
        for index, (title, action) in enumerate(steps):
            expected = approved[index][1] if index < len(approved) else None
            said.append((title, said_after(gallery, action, expected)))
    finally:
        gallery.end()
    return said


def walk(program):
    pages = subprocess.run([program, "--list-pages"], capture_output=True, check=True, text=True).stdout.split()
    failures = 0
    for page in pages:
        gallery = Gallery(program, page, for_keys=False)
        try:
            problems, count = problems_of(gallery.window)
        finally:
            gallery.end()
        problems += [] if count > 20 else ["only {} things are there".format(count)]
        print("{}: {}".format(page, "FAILED" if problems else "ok, {} things".format(count)), flush=True)
        for problem in problems:
            print("    " + problem, flush=True)
        failures += bool(problems)
    return 1 if failures or not pages else 0


def as_text(steps):
    lines = ["# SPDX-FileCopyrightText: 2026 The Vela Components authors", "# SPDX-License-Identifier: MIT", ""]
    for title, said in steps:
        lines += ["> " + title] + said
    return "\n".join(lines) + "\n"


def main():
    arguments = sys.argv[1:]
    if arguments[:1] == ["--walk"]:
        return walk(arguments[1])
    update = arguments[:1] == ["--update"]
    program, names = arguments[int(update)], arguments[int(update) + 1:] or sorted(JOURNEYS)
    failures = 0
    for name in names:
        text = as_text(travel(program, name, update))
        if update:
            with open(approved_path(name), "w", encoding="utf-8") as file:
                file.write(text)
            continue
        with open(approved_path(name), encoding="utf-8") as file:
            approved = file.read()
        difference = list(difflib.unified_diff(approved.splitlines(), text.splitlines(), "approved", "said", lineterm=""))
        print("{}: {}".format(name, "FAILED" if difference else "ok"), flush=True)
        print("\n".join(difference), flush=True) if difference else None
        failures += bool(difference)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
