"""A desktop of its own for looking at Quillmeter's windows: an X server of any size, a window manager, a session bus, a
light or dark colour scheme and a scale factor. Everything started here is ended by `close`."""

import os
import re
import shutil
import subprocess
import tempfile
import time

TIMEOUT = 30

# What a desktop with dark windows tells its programs.
DARK_COLORS = """[Colors:Window]
BackgroundNormal=43,47,51
ForegroundNormal=242,246,250
[Colors:View]
BackgroundNormal=32,36,40
ForegroundNormal=242,246,250
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=242,246,250
"""


def wait_for(condition, what, timeout=TIMEOUT):
    end = time.monotonic() + timeout
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    raise AssertionError("waited in vain for " + what)


class Desktop:
    """`size` is the screen's in pixels; `environment` is what its programs get. `window_manager_keys` are openbox's
    <keybind> elements; it has none unless given."""

    def __init__(self, size=(1366, 768), dark=False, scale=1.0, assistive=False, locale="C.UTF-8",
                 window_manager_keys=""):
        self.processes = []
        self.home = tempfile.mkdtemp(prefix="quillmeter-desktop-")
        read_end, write_end = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write_end), "-noreset", "-screen", "0", "%dx%dx24" % size],
                   pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            number = pipe.readline().strip()
        self.environment = {"PATH": os.environ["PATH"], "DISPLAY": ":" + number, "HOME": self.home,
                            "XDG_CONFIG_HOME": self.home + "/config", "XDG_RUNTIME_DIR": self.home + "/run",
                            "QT_QPA_PLATFORM": "xcb", "LC_ALL": locale, "QT_SCALE_FACTOR": str(scale)}
        for folder in ("run", "config"):
            os.mkdir(os.path.join(self.home, folder), 0o700)
        if dark:
            self.environment.update(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")
            with open(self.home + "/config/kdeglobals", "w", encoding="utf-8") as stream:
                stream.write(DARK_COLORS)
        if assistive:
            self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus()
        with open(self.home + "/rc.xml", "w", encoding="utf-8") as stream:
            stream.write('<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard>%s</keyboard></openbox_config>' %
                         window_manager_keys)
        self.start(["openbox", "--config-file", self.home + "/rc.xml"])
        wait_for(lambda: "window id" in self.output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "window manager")

    def start_bus(self):
        read_end, write_end = os.pipe()
        self.start(["dbus-daemon", "--session", "--nofork", "--print-address=%d" % write_end], pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            return pipe.readline().strip()

    def start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        options.setdefault("env", getattr(self, "environment", None))
        process = subprocess.Popen(command, **options)
        self.processes.append(process)
        return process

    def output(self, *command):
        # Their names of windows are UTF-8 whatever the language of the application.
        environment = {**self.environment, "LC_ALL": "C.UTF-8"}
        return subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                              check=False).stdout

    def xdo(self, *words):
        return self.output("xdotool", *[str(word) for word in words])

    def window(self, pattern, size=None):
        """The visible window whose name matches, as (id, x, y, width, height), or None."""
        # Searching by name would miss windows of an application whose language the system has not got.
        for window in self.xdo("search", "--onlyvisible", "--class", ".").split():
            if not re.search(pattern, self.xdo("getwindowname", window).strip()):
                continue
            # Where it really is: xdotool counts a window manager's frame twice.
            shown = self.output("xwininfo", "-id", window)
            numbers = [re.search(label + r": +(-?\d+)", shown)
                       for label in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
            if None in numbers or int(numbers[2].group(1)) < 100:
                continue
            found = (window, *[int(number.group(1)) for number in numbers])
            if size is None or found[3:] == size:
                return found
        return None

    def wait_for_window(self, pattern):
        return wait_for(lambda: self.window(pattern), "a window " + pattern)

    def end(self, process):
        """Ends one of the processes that were started here."""
        self.processes.remove(process)
        if process.poll() is None:
            process.terminate()
        try:
            process.wait(10)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()

    def close(self):
        for process in reversed(list(self.processes)):
            self.end(process)
        shutil.rmtree(os.fsencode(self.home), ignore_errors=True)
