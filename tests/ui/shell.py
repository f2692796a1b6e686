"""What the tests of the main screen share: the application on a desktop of its own, its windows, projects for it, and
drags from another process."""

import os
import sys
import unittest
import urllib.parse

from desktop import TIMEOUT, WALLPAPER, Desktop, wait_for, wait_until_settled

APPLICATION, DRAG_SOURCE, REVEAL_SOURCE = sys.argv[1:4]
VERSION = sys.argv[4]

NORMAL, VALID, INVALID = "normal", "valid", "invalid"


class Shell(unittest.TestCase):
    """Each test has a desktop, with or without a compositor."""

    compositor = True
    drag_source = None

    def setUp(self):
        self.desktop = Desktop((1280, 900), self.compositor)
        self.addCleanup(self.desktop.close)
        self.log = open(self.desktop.home + "/log", "w+b")
        self.addCleanup(self.log.close)

    def launch(self, *arguments):
        """Without a project it waits for the main screen, which otherwise may be gone before anybody looks."""
        self.application = self.desktop.start([APPLICATION, *arguments], stderr=self.log)
        if not arguments:
            self.screen = wait_until_settled(self.main_screen, "the main screen")

    def main_screen(self):
        for geometry in self.desktop.windows("Quillmeter").values():
            if geometry[2:] == (420, 360):
                return geometry
        return None

    def alerts(self):
        return [window for window, geometry in self.desktop.windows("Quillmeter").items() if geometry[2:] != (420, 360)]

    def statistics(self, title="App"):
        return self.desktop.windows("Quillmeter – .*" + title)

    def wait_for_alert(self, besides=()):
        """An alert that has the keyboard, other than those given."""
        def active():
            window = self.desktop.active_window()
            return window if window in self.alerts() and window not in besides else None

        return wait_for(active, "an alert with the keyboard")

    def wait_for_no_alert(self):
        wait_for(lambda: not self.alerts(), "the alert to close")

    def ask_to_close(self):
        """Closes the statistics by the keyboard, up to the confirmation."""
        window = next(iter(wait_for(self.statistics, "the statistics window")))
        self.desktop.xdo("windowactivate", "--sync", window, "key", "ctrl+w")
        return self.wait_for_alert()

    def press_in_main_screen(self, keys):
        window = next(iter(wait_for(lambda: self.desktop.windows("Quillmeter"), "the main screen")))
        self.desktop.xdo("windowactivate", "--sync", window, "key", keys)

    def quit(self):
        self.press_in_main_screen("ctrl+q")
        self.assertEqual(self.application.wait(TIMEOUT), 0)

    def files(self):
        return {os.path.join(folder, name) for folder, _, names in os.walk(os.fsencode(self.desktop.home))
                for name in names}

    def logged(self, line):
        with open(self.log.name, "rb") as stream:
            return stream.read().decode(errors="replace").splitlines().count(line)

    def project(self, folder="p", files=3, name="f%d.c"):
        path = os.path.join(os.fsencode(self.desktop.home), os.fsencode(folder))
        os.makedirs(path + b"/App.xcodeproj")
        names = [name % number for number in range(files)]
        for name in names:
            with open(path + b"/" + name.encode(), "w") as stream:
                stream.write("int x;\n// words\n")
        with open(path + b"/App.xcodeproj/project.pbxproj", "w") as stream:
            stream.write("/* Begin PBXFileReference section */\n")
            stream.writelines("\t\t1 /* %s */ = {isa = PBXFileReference; path = %s; sourceTree = x; };\n" % (name, name)
                              for name in names)
            stream.write("/* End PBXFileReference section */\n")
        return path

    def settings(self, text):
        os.makedirs(self.desktop.home + "/config/Quillmeter", exist_ok=True)
        with open(self.desktop.home + "/config/Quillmeter/Quillmeter.ini", "w") as stream:
            stream.write(text)

    def settings_text(self):
        """What the application has stored so far."""
        path = self.desktop.home + "/config/Quillmeter/Quillmeter.ini"
        if not os.path.exists(path):
            return ""
        with open(path, encoding="utf-8", errors="replace") as stream:
            return stream.read()

    def feedback(self):
        """What the upper edge of the main screen tells."""
        x, y, width, _ = self.screen
        red, green, blue = self.desktop.pixel(x + width // 2, y + 6)
        if blue > red + 80:
            return VALID
        return INVALID if red > blue + 80 else NORMAL

    def wait_for_keyboard(self):
        """Until the main screen, which is there already, has the keyboard."""
        wait_for(lambda: self.desktop.active_window() in self.desktop.windows("Quillmeter"), "the keyboard")

    def drag_to_screen(self, addresses, *options):
        """Takes a drag over the drop area and leaves it there; gives the file of what the source says."""
        listing = self.desktop.home + "/addresses"
        with open(listing, "wb") as stream:
            stream.write(addresses)
        said = self.desktop.home + "/said"
        with open(said, "wb") as stream:
            environment = {**self.desktop.environment, "DBUS_SESSION_BUS_ADDRESS": "disabled:"}  # or it starts one
            if self.drag_source:
                self.desktop.end(self.drag_source)
            self.drag_source = self.desktop.start([DRAG_SOURCE, listing, *options], env=environment, stdout=stream)
        x, y, width, height = wait_until_settled(
            lambda: next(iter(self.desktop.windows("Drag source").values()), None), "source")
        self.desktop.xdo("mousemove", x + width // 2, y + height // 2, "mousedown", 1)
        for _ in range(2):
            self.desktop.xdo("mousemove_relative", "--", 15, 15)
        wait_for(lambda: self.said(said, b"dragging"), "the drag")
        left, top, width, height = self.screen
        for step in range(3):
            self.desktop.xdo("mousemove", left + width // 2 + step, top + 150 + step, "sleep", 0.05)
        if "move" not in options:
            wait_for(lambda: self.said(said, b"accepted 1"), "the drag to be accepted")
        return said

    @staticmethod
    def said(file, start):
        """The last line with that start, if there is one."""
        with open(file, "rb") as stream:
            return next((line for line in reversed(stream.read().splitlines()) if line.startswith(start)), None)

    def drop(self, source):
        """Gives the action that the source was told of."""
        self.desktop.xdo("mouseup", 1)
        return wait_for(lambda: self.said(source, b"dropped"), "the drop").split()[1]

    @staticmethod
    def address(path):
        return b"file://" + urllib.parse.quote(path).encode() + b"\r\n"

    def expect_goes_on(self):
        self.assertIsNone(self.application.poll())
        wait_for(lambda: self.feedback() == NORMAL, "the idle screen")

    def corners_are_clear(self):
        """Whether the wallpaper is seen in the window's corners, by which a shadow may pass."""
        x, y, width, height = self.screen
        corners = [(x + dx, y + dy) for dx in (1, width - 2) for dy in (1, height - 2)]
        return all(abs(there - behind) < 24 for corner in corners
                   for there, behind in zip(self.desktop.pixel(*corner), WALLPAPER))

    def shadow_falls(self):
        """Whether the wallpaper is a little darker below the window's edge."""
        x, y, _, _ = self.screen
        return all(6 < behind - there < 40 for there, behind in zip(self.desktop.pixel(x + 30, y + 317), WALLPAPER))
