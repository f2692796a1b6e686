"""A desktop of its own for Quillmeter's windows: an X server of any size with a wallpaper and a window manager; if
wanted a compositor, a session bus, a light or dark colour scheme and a scale factor. Everything started here is ended
by `close`."""

import ctypes
import os
import re
import shutil
import subprocess
import tempfile
import time

TIMEOUT = 60
WALLPAPER = (143, 179, 192)

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


def wait_until_settled(find, what):
    """What `find` gives once it gives the same four times running: a window that nobody moves any more."""
    found = []

    def settled():
        found.append(find())
        return found[-1] if len(found) > 3 and found[-4:] == [found[-1]] * 4 else None

    return wait_for(settled, what)


class Desktop:
    """`size` is the screen's in pixels; `environment` is what its programs get. `window_manager_keys` are openbox's
    <keybind> elements; it has none unless given."""

    def __init__(self, size=(1366, 768), compositor=False, dark=False, scale=1.0, assistive=False, locale="C.UTF-8",
                 window_manager_keys=""):
        self.processes = []
        self.home = tempfile.mkdtemp(prefix="quillmeter-desktop-")
        # Without -noreset the server starts anew whenever its last client leaves, and throws out those just arriving.
        number = self.start_telling("Xvfb", "-displayfd", "%d", "-noreset", "-screen", "0", "%dx%dx24" % size)
        self.environment = {"PATH": os.environ["PATH"], "DISPLAY": ":" + number, "HOME": self.home,
                            "XDG_CONFIG_HOME": self.home + "/config", "XDG_RUNTIME_DIR": self.home + "/run",
                            "QT_QPA_PLATFORM": "xcb", "LC_ALL": locale, "QT_SCALE_FACTOR": str(scale)}
        for name in ("ASAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS", "LD_LIBRARY_PATH"):
            if name in os.environ:
                self.environment[name] = os.environ[name]
        os.mkdir(self.home + "/run", 0o700)
        if dark:
            self.use_dark_colors()
        if assistive:
            self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
            self.start_session_bus()
        with open(self.home + "/rc.xml", "w", encoding="utf-8") as stream:
            stream.write('<openbox_config xmlns="http://openbox.org/3.4/rc"><keyboard>%s</keyboard></openbox_config>' %
                         window_manager_keys)
        self.start(["openbox", "--config-file", self.home + "/rc.xml"])
        wait_for(lambda: "window id" in self.output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "window manager")
        # A compositor needs a wallpaper that is announced. Without one it blends translucent pixels with whatever it
        # has painted there before, and their colours depend on how often it has.
        subprocess.run(["hsetroot", "-solid", "#%02x%02x%02x" % WALLPAPER], env=self.environment, check=True)
        if compositor:
            self.start_compositor()

    def use_dark_colors(self):
        self.environment.update(XDG_CURRENT_DESKTOP="KDE", KDE_SESSION_VERSION="5")
        os.mkdir(self.home + "/config", 0o700)
        with open(self.home + "/config/kdeglobals", "w", encoding="utf-8") as stream:
            stream.write(DARK_COLORS)

    def start(self, command, **options):
        """Programs get the desktop's environment once there is one."""
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        options.setdefault("env", getattr(self, "environment", None))
        process = subprocess.Popen(command, **options)
        self.processes.append(process)
        return process

    def start_telling(self, *command):
        """Starts a program that writes where it can be reached to the descriptor that stands for %d; gives that."""
        read_end, write_end = os.pipe()
        self.start([word.replace("%d", str(write_end)) for word in command], pass_fds=[write_end])
        os.close(write_end)
        with os.fdopen(read_end) as pipe:
            return pipe.readline().strip()

    def start_compositor(self):
        compositor = self.start(["picom", "--config", "/dev/null", "--backend", "xrender"])
        wait_for(self.is_composited, "compositor")
        return compositor

    def start_session_bus(self):
        """A session bus for everything that is started from now on."""
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.start_telling(
            "dbus-daemon", "--session", "--nofork", "--nopidfile", "--print-address=%d")

    def is_composited(self):
        library = ctypes.CDLL("libX11.so.6")
        library.XOpenDisplay.restype = ctypes.c_void_p
        display = ctypes.c_void_p(library.XOpenDisplay(self.environment["DISPLAY"].encode()))
        owner = library.XGetSelectionOwner(display, library.XInternAtom(display, b"_NET_WM_CM_S0", 0))
        library.XCloseDisplay(display)
        return owner != 0

    def output(self, *command):
        # Their names of windows are UTF-8 whatever the language of the application.
        environment = {**self.environment, "LC_ALL": "C.UTF-8"}
        return subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                              check=False).stdout

    def xdo(self, *words):
        return self.output("xdotool", *[str(word) for word in words])

    def windows(self, name):
        """Visible windows whose whole name matches as {id: (x, y, width, height)}."""
        found = {}
        # Searching by name would miss windows of an application whose language the system has not got.
        for window in self.xdo("search", "--onlyvisible", "--class", ".").split():
            if not re.fullmatch(name, self.xdo("getwindowname", window).strip()):
                continue
            geometry = self.geometry(window)
            if geometry and geometry[2] > 1:
                found[window] = geometry
        return found

    def geometry(self, window):
        """(x, y, width, height), or None when there is no such window any more."""
        if not window.strip():
            return None  # xwininfo would wait for somebody to point at one
        # xdotool would count a window manager's frame twice.
        shown = self.output("xwininfo", "-id", window.strip())
        numbers = [re.search(label + r": +(-?\d+)", shown)
                   for label in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        return None if None in numbers else tuple(int(number.group(1)) for number in numbers)

    def wait_for_window(self, name):
        """Its id, when it is there and nobody moves it any more."""
        return next(iter(wait_until_settled(lambda: self.windows(name), "a window " + name)))

    def active_window(self):
        return self.xdo("getactivewindow").strip()

    def activate(self, window):
        self.xdo("windowactivate", "--sync", window)

    def pixel(self, x, y):
        text = self.output("import", "-window", "root", "-crop", "1x1+%d+%d" % (x, y), "-depth", "8", "txt:-")
        return tuple(int(text.split("#")[-1][at:at + 2], 16) for at in (0, 2, 4))

    def end(self, *processes):
        """Ends processes that were started here."""
        for process in processes:
            self.processes.remove(process)
            if process.poll() is None:
                process.terminate()
        for process in processes:
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    def close(self):
        self.end(*reversed(self.processes))
        shutil.rmtree(os.fsencode(self.home), ignore_errors=True)
