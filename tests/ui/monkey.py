#!/usr/bin/env python3
"""A monkey at the application: mouse, keys, drops and the window manager, as chance has it, on a desktop of its own. The
application must not crash, must not stop answering, and must end when it is asked to.

usage: monkey.py APPLICATION DRAG_SOURCE SAMPLE_PROJECT

    QUILLMETER_MONKEY_SECONDS   how long (30 seconds unless given)
    QUILLMETER_MONKEY_SEED      the seed of its first round (the same unless given, so that a failure can be met again);
                                each round prints its own

A round is one life of the application. The kernel keeps the application's hands off everything but the monkey's own
home, since a save dialog can replace any file; where it cannot, this ends with status 77."""

import ctypes
import os
import random
import shutil
import signal
import subprocess
import sys
import time
import urllib.parse

from desktop import Desktop, wait_for

APPLICATION, DRAG_SOURCE, SAMPLE = (os.path.abspath(argument) for argument in sys.argv[1:4])
SECONDS = float(os.environ.get("QUILLMETER_MONKEY_SECONDS", "30"))
SEED = int(os.environ.get("QUILLMETER_MONKEY_SEED", "1000"))
SCREEN = (1366, 768)
ACTIONS_A_ROUND = 400
# A program built with sanitizers, on a machine that has other things to do.
PATIENCE = 120
SKIPPED = 77

# Keys that a desktop's window manager has for itself.
BINDINGS = "".join('<keybind key="%s"><action name="%s"/></keybind>' % binding for binding in (
    ("A-F4", "Close"), ("A-F9", "Iconify"), ("A-F10", "ToggleMaximize"), ("A-F11", "ToggleFullscreen"),
    ("A-Tab", "NextWindow")))
KEYS = ("Tab", "shift+Tab", "Return", "space", "Escape", "Up", "Down", "Left", "Right", "Home", "End", "Prior", "Next",
        "BackSpace", "Delete", "Menu", "F1", "F2", "F5", "F10", "ctrl+a", "ctrl+c", "ctrl+v", "ctrl+o", "ctrl+w", "ctrl+s",
        "ctrl+e", "ctrl+f", "ctrl+p", "ctrl+q", "ctrl+z", "ctrl+Tab", "ctrl+Home", "ctrl+End", "shift+Down", "shift+Up",
        "ctrl+1", "ctrl+2", "ctrl+3", "ctrl+4", "ctrl+5", "alt+e", "alt+o", "alt+s", "a", "m", "udiaeresis", "0", "period")
MANAGER_KEYS = ("alt+F10", "alt+F11", "alt+F9", "alt+Tab")

# Of the kernel's interface for confining a process: numbers of its calls, its rights and its structures.
LANDLOCK_CREATE_RULESET, LANDLOCK_ADD_RULE, LANDLOCK_RESTRICT_SELF = 444, 445, 446
PR_SET_NO_NEW_PRIVS = 38
WRITING = sum(1 << bit for bit in (1, *range(4, 15)))  # files written, then everything that changes a folder


class Rule(ctypes.Structure):
    _pack_ = 1
    _fields_ = [("allowed", ctypes.c_uint64), ("folder", ctypes.c_int32)]


def keep_to(folders):
    """Lets this process change nothing outside of `folders`, for good."""
    system = ctypes.CDLL(None, use_errno=True).syscall
    handled = ctypes.c_uint64(WRITING)
    rules = system(LANDLOCK_CREATE_RULESET, ctypes.byref(handled), ctypes.c_size_t(8), 0)
    if rules < 0:
        raise OSError(ctypes.get_errno(), "this kernel keeps nobody from writing")
    for folder in folders:
        rule = Rule(WRITING, os.open(folder, os.O_PATH))
        if system(LANDLOCK_ADD_RULE, rules, 1, ctypes.byref(rule), 0) < 0:
            raise OSError(ctypes.get_errno(), folder)
        os.close(rule.folder)
    ctypes.CDLL(None).prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0)
    if system(LANDLOCK_RESTRICT_SELF, rules, 0) < 0:
        raise OSError(ctypes.get_errno(), "confinement")


class Monkey:
    def __init__(self, desktop):
        self.desktop = desktop
        self.application = None
        self.log = None
        self.actions = 0
        self.lives = 0
        self.done = []

    # One life of the application.

    def round(self, seed, end):
        self.chance = random.Random(seed)
        self.done = []
        print("round %d: seed %d" % (self.lives + 1, seed), flush=True)
        self.fresh_project()
        self.launch()
        for _ in range(ACTIONS_A_ROUND):
            if time.monotonic() > end or not self.is_alive():
                break
            self.act()
        if self.is_alive():
            self.expect_answer()
            self.application.send_signal(signal.SIGTERM)
        self.expect_end()

    def fresh_project(self):
        self.projects = os.path.join(self.desktop.home, "projects")
        shutil.rmtree(self.projects, ignore_errors=True)
        for name in ("Sample", "Second"):
            shutil.copytree(SAMPLE, os.path.join(self.projects, name))
        self.bundle = next(os.path.join(self.projects, "Sample", entry) for entry in os.listdir(SAMPLE)
                           if entry.endswith(".xcodeproj"))

    def launch(self):
        home = self.desktop.home
        self.log = open(home + "/log", "w+b")
        environment = {**self.desktop.environment, "ASAN_OPTIONS": "detect_leaks=0", "TMPDIR": home,
                       "UBSAN_OPTIONS": "print_stacktrace=1", "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        arguments = self.chance.choice(([], [self.bundle], ["--rules", "current", self.bundle], [self.projects + "/Second"]))
        self.application = self.desktop.start([APPLICATION, *arguments], env=environment, cwd=home, stderr=self.log,
                                              preexec_fn=lambda: keep_to([home, "/dev"]))
        self.lives += 1
        wait_for(lambda: self.windows() or not self.is_alive(), "a window", PATIENCE)

    def is_alive(self):
        return self.application.poll() is None

    def expect_answer(self):
        """The main thread waits for something to happen, sooner or later: it sleeps in poll(2) then."""
        def waits():
            if not self.is_alive():
                return True
            try:
                with open("/proc/%d/wchan" % self.application.pid, encoding="ascii") as place:
                    return "poll" in place.read()
            except OSError:
                return False
        wait_for(waits, "the application to answer", PATIENCE)

    def expect_end(self):
        try:
            status = self.application.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise AssertionError("it does not end") from None
        self.desktop.processes.remove(self.application)
        self.log.seek(0)
        told = self.log.read().decode(errors="replace")
        self.log.close()
        if status not in (0, -signal.SIGTERM) or "ERROR: " in told or "runtime error" in told:
            raise AssertionError("it ended with status %d\n%s" % (status, told))

    # What a monkey does.

    def act(self):
        actions = (self.click, self.click, self.click, self.drag, self.press, self.press, self.type, self.manage,
                   self.turn, self.drop, self.change_project)
        action = self.chance.choices(actions, weights=(6, 6, 6, 3, 8, 8, 2, 3, 3, 1, 1))[0]
        action()
        self.actions += 1
        if self.actions % 10 == 0:
            self.expect_answer()

    def xdo(self, *words):
        self.done.append(" ".join(str(word) for word in words))
        self.desktop.xdo(*words)

    def windows(self):
        return self.desktop.xdo("search", "--onlyvisible", "--pid", self.application.pid).split()

    def place(self):
        """A place on the screen, in a window of the application most of the time."""
        windows = self.windows()
        if windows and self.chance.random() < 0.9:
            window = self.chance.choice(windows)
            numbers = dict(line.split("=") for line in
                           self.desktop.xdo("getwindowgeometry", "--shell", window).split() if "=" in line)
            if "WIDTH" in numbers:
                left, top, width, height = (int(numbers[key]) for key in ("X", "Y", "WIDTH", "HEIGHT"))
                return (max(0, left + self.chance.randrange(max(1, width))),
                        max(0, top + self.chance.randrange(max(1, height))))
        return self.chance.randrange(SCREEN[0]), self.chance.randrange(SCREEN[1])

    def click(self):
        button = self.chance.choices((1, 2, 3), weights=(10, 1, 2))[0]
        self.xdo("mousemove", *self.place(), "click", "--repeat", self.chance.choice((1, 1, 1, 2, 3)), "--delay", 30, button)

    def drag(self):
        self.xdo("mousemove", *self.place(), "mousedown", 1, "mousemove", *self.place(), "mousemove", *self.place(),
                 *(["key", "Escape"] if self.chance.random() < 0.2 else []), "mouseup", 1)

    def turn(self):
        self.xdo("mousemove", *self.place(), "click", "--repeat", self.chance.randrange(1, 12), "--delay", 5,
                 self.chance.choice((4, 5, 6, 7)))

    def press(self):
        self.xdo("key", "--delay", 10, *self.chance.choices(KEYS, k=self.chance.randrange(1, 6)))

    def type(self):
        self.xdo("type", "--delay", 5, self.chance.choice(("main", "über", "x" * 60, ".m", "report.pdf", "../", "%s%n")))

    def manage(self):
        windows = self.windows()
        if not windows:
            self.xdo("key", "alt+Tab")
            return
        window = self.chance.choice(windows)
        width, height = self.chance.choice(((1, 1), (300, 200), (700, 500), (1366, 768), (4000, 3000)))
        self.xdo(*self.chance.choice((
            ("windowsize", window, width, height), ("windowmove", window, *self.place()),
            ("windowactivate", window), ("windowraise", window), ("windowminimize", window, "sleep", 0.2, "windowmap", window),
            ("key", self.chance.choice(MANAGER_KEYS)), ("key", self.chance.choice(MANAGER_KEYS)),
            ("windowactivate", window, "key", "alt+F4"))))

    def drop(self):
        """Files from another process, let go over one of the application's windows, or not."""
        names = self.chance.choice(([self.bundle], [self.projects + "/Second"], ["/nowhere"], [self.projects],
                                    [self.bundle, self.projects + "/Second"], [self.bundle + "/project.pbxproj"]))
        listing = self.desktop.home + "/addresses"
        with open(listing, "w", encoding="utf-8") as stream:
            stream.write("".join("file://" + urllib.parse.quote(name) + "\r\n" for name in names))
        environment = {**self.desktop.environment, "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        source = self.desktop.start([DRAG_SOURCE, listing], env=environment)
        windows = wait_for(lambda: self.desktop.xdo("search", "--onlyvisible", "--pid", source.pid).split(),
                           "the source of a drag")
        window = windows[-1]
        self.xdo("windowraise", window, "mousemove", "--window", window, 60, 60, "mousedown", 1,
                 "mousemove_relative", 15, 15, "sleep", 0.1, "mousemove_relative", 15, 15, "sleep", 0.1,
                 "mousemove", *self.place(), "sleep", 0.1, "mousemove", *self.place(), "sleep", 0.1,
                 *(["key", "Escape"] if self.chance.random() < 0.2 else []), "mouseup", 1, "sleep", 0.1)
        self.desktop.end(source)

    def change_project(self):
        """Somebody else works on the project meanwhile."""
        folder = os.path.join(self.projects, "Sample")
        change = self.chance.choice(("remove", "add", "empty", "restore"))
        self.done.append("project: " + change)
        if change == "remove":
            shutil.rmtree(os.path.join(folder, self.chance.choice(sorted(os.listdir(folder)) or ["none"])), ignore_errors=True)
        elif change == "add":
            with open(os.path.join(folder, "new %d.m" % self.chance.randrange(100)), "w", encoding="ascii") as stream:
                stream.write("int x;\n" * 1000)
        elif change == "empty" and os.path.isdir(self.bundle):
            open(self.bundle + "/project.pbxproj", "wb").close()
        else:
            shutil.copytree(SAMPLE, folder, dirs_exist_ok=True)


def main():
    try:
        subprocess.run(["true"], preexec_fn=lambda: keep_to(["/dev"]), check=True)
    except subprocess.SubprocessError:
        print("this kernel cannot keep the monkey to its own folder")
        return SKIPPED
    desktop = Desktop(SCREEN, window_manager_keys=BINDINGS)
    monkey = Monkey(desktop)
    start = time.monotonic()
    try:
        while time.monotonic() < start + SECONDS:
            monkey.round(SEED + monkey.lives, start + SECONDS)
    except AssertionError as failure:
        print("\n".join(monkey.done[-30:]))
        print("FAILED in round %d: %s" % (monkey.lives, failure))
        return 1
    finally:
        print("%d actions in %d lives of the application, %.0f seconds, first seed %d" %
              (monkey.actions, monkey.lives, time.monotonic() - start, SEED))
        desktop.close()
    return 0


if __name__ == "__main__":
    sys.exit(main())
