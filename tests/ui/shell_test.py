#!/usr/bin/env python3
"""The main screen in real windows: an X server of its own, a window manager, with and without a compositor; driven by
a real mouse and keyboard, and by drags from another process. Everything started here is ended here."""

import copy
import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

from desktop import TIMEOUT, WALLPAPER, wait_for, wait_until_settled
from shell import APPLICATION, INVALID, NORMAL, REVEAL_SOURCE, VALID, VERSION, Shell

WEATHER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "samples", "Weather")
PACKAGING = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "packaging")


class CommandLineTest(unittest.TestCase):
    """What the application says and ends with before it has a window, in a terminal without a display."""

    def run_application(self, *arguments, **environment):
        return subprocess.run([APPLICATION, *arguments], env={"PATH": os.environ["PATH"], **environment},
                              capture_output=True, text=True, check=False, timeout=TIMEOUT)

    def expect_no_display(self, *arguments, **environment):
        result = self.run_application(*arguments, **environment)
        self.assertEqual(result.returncode, 1)
        self.assertEqual(result.stdout, "")
        self.assertRegex(result.stderr, r"\Aquillmeter: no display .*quillmeter-cli.*\n\Z")

    def test_without_a_display_one_line_points_to_the_command_line_tool(self):
        self.expect_no_display()
        self.expect_no_display(DISPLAY=":9999")
        self.expect_no_display("-display", ":9999")
        self.expect_no_display(DISPLAY="nonsense")
        self.expect_no_display(WAYLAND_DISPLAY="nowhere", XDG_SESSION_TYPE="wayland")
        with tempfile.TemporaryDirectory() as folder:
            self.expect_no_display(WAYLAND_DISPLAY="nowhere", XDG_SESSION_TYPE="wayland", XDG_RUNTIME_DIR=folder)
        self.expect_no_display("-platform", "nonsense")

    def test_help_and_version_need_no_display(self):
        for arguments in (["--help"], ["-platform", "offscreen", "--help"], ["-h", "-style", "Fusion"]):
            result = self.run_application(*arguments)
            self.assertEqual((result.returncode, result.stderr), (0, ""), arguments)
            self.assertTrue(result.stdout.startswith("Usage: quillmeter"), arguments)
        self.assertEqual(self.run_application("-platform", "xcb", "--version").stdout, "quillmeter %s\n" % VERSION)

    def test_wrong_usage_is_found_without_a_display_and_cannot_command_the_terminal(self):
        result = self.run_application("-platform", "offscreen", "--co\033[31m\nlour")
        self.assertEqual(result.returncode, 2)
        self.assertEqual(result.stderr, "quillmeter: unknown option: --co [31m lour\nTry 'quillmeter --help'.\n")


class ShellTest(Shell):
    def test_names_in_the_log_cannot_command_the_terminal(self):
        self.launch(os.fsdecode(self.project(name="clear\033[2J%d.c")))
        wait_for(lambda: self.logged("parsing file clear [2J0.c"), "the file's line")
        with open(self.log.name, "rb") as stream:
            self.assertNotIn(b"\033", stream.read())

    # Drags from another process

    def test_dropped_folder_is_opened(self):
        self.launch()
        source = self.drag_to_screen(self.address(self.project()))
        wait_for(lambda: self.feedback() == VALID, "the look of a valid drag")
        self.assertEqual(self.drop(source), b"1")
        wait_for(self.statistics, "the statistics window")
        wait_for(lambda: not self.main_screen(), "the main screen to go")
        self.assertEqual(self.logged("started parsing"), 1)
        self.assertEqual(self.logged("ended parsing"), 1)

    def test_dragged_bundle_is_shown_as_invalid_and_not_opened(self):
        self.launch()
        source = self.drag_to_screen(self.address(self.project() + b"/App.xcodeproj"))
        wait_for(lambda: self.feedback() == INVALID, "the look of an invalid drag")
        self.drop(source)
        self.expect_goes_on()
        # What is dropped is opened in its turn, so nothing was opened before the next.
        self.drop(self.drag_to_screen(self.address(self.project("next"))))
        wait_for(self.statistics, "the statistics window")
        self.assertEqual(self.logged("started parsing"), 1)

    def test_dragged_file_is_shown_as_invalid_until_it_leaves(self):
        self.launch()
        source = self.drag_to_screen(self.address(self.project() + b"/f0.c"))
        wait_for(lambda: self.feedback() == INVALID, "the look of an invalid drag")
        self.desktop.xdo("mousemove", 1200, 850, "sleep", 0.2, "mousemove", 1210, 860)
        self.expect_goes_on()
        self.assertEqual(self.drop(source), b"0")
        self.expect_goes_on()

    def test_files_that_may_only_be_moved_are_refused(self):
        self.launch()
        source = self.drag_to_screen(self.address(self.project()), "move")
        wait_for(lambda: self.feedback() == INVALID, "the look of an invalid drag")
        self.assertEqual(self.drop(source), b"0")
        self.expect_goes_on()

    def test_web_link_is_ignored(self):
        self.launch()
        source = self.drag_to_screen(b"https://quillmeter.example/\r\n")
        self.assertEqual(self.feedback(), NORMAL)
        self.drop(source)
        self.expect_goes_on()

    def test_first_of_ten_thousand_items_is_opened(self):
        self.launch()
        others = b"".join(self.address(b"/nowhere/%d" % number) for number in range(10000))
        self.drop(self.drag_to_screen(self.address(self.project()) + others))
        wait_for(self.statistics, "the statistics window")

    def test_folder_whose_name_is_not_utf8_is_opened(self):
        self.launch()
        self.drop(self.drag_to_screen(self.address(self.project(b"latin\xe4"))))
        wait_for(self.statistics, "the statistics window")

    # The shaped window

    def test_window_is_moved_by_exactly_the_mouses_travel(self):
        self.launch()
        x, y, _, _ = self.screen
        for horizontal, vertical in ((137, 61), (-211, -43)):
            before = wait_until_settled(self.main_screen, "the main screen")
            self.desktop.xdo("mousemove", before[0] + 250, before[1] + 26, "mousedown", 1)
            for part in (3, 2, 1):
                self.desktop.xdo("mousemove", before[0] + 250 + horizontal // part, before[1] + 26 + vertical // part,
                                 "sleep", 0.05)
            self.desktop.xdo("mouseup", 1)
            there = (before[0] + horizontal, before[1] + vertical, *before[2:])
            wait_for(lambda: self.main_screen() == there, "the move")
        self.assertEqual(there[:2], (x + 137 - 211, y + 61 - 43))

    def test_pictures_make_the_outline(self):
        self.launch()
        x, y, width, _ = self.screen
        wait_for(lambda: min(self.desktop.pixel(x + width // 2, y + 45)) > 200, "the picture")
        wait_for(self.corners_are_clear, "the wallpaper in the window's corners")

    def test_window_buttons_close_and_minimise(self):
        self.launch()
        x, y, _, _ = self.screen
        self.desktop.xdo("mousemove", x + 48, y + 22, "click", 1)
        wait_for(lambda: not self.main_screen(), "the window to be minimised")
        self.assertIsNone(self.application.poll())
        window = self.desktop.xdo("search", "--name", "^Quillmeter$").split()[-1]
        self.desktop.xdo("windowactivate", window)
        x, y, _, _ = wait_until_settled(self.main_screen, "the window to come back")
        self.desktop.xdo("mousemove", x + 28, y + 22, "click", 1)
        self.assertEqual(self.application.wait(TIMEOUT), 0)

    def discs(self):
        """The colours of the close and minimise buttons."""
        x, y, _, _ = self.screen
        return [self.desktop.pixel(x + left, y + 17) for left in (28, 48)]

    def test_window_buttons_pale_with_the_window_and_come_back_with_it(self):
        self.launch()
        self.desktop.xdo("mousemove", 5, 5)
        wait_for(lambda: max(max(disc) for disc in self.discs()) < 110, "dark buttons of an active window")
        other = self.desktop.start(["xmessage", "-geometry", "+0+0", "another window"])
        wait_for(lambda: min(min(disc) for disc in self.discs()) > 150, "pale buttons of an inactive window")
        other.terminate()
        self.press_in_main_screen("shift")
        wait_for(lambda: max(max(disc) for disc in self.discs()) < 110, "dark buttons again")

    def open_button(self):
        """The colour near the open button's left end."""
        x, y, _, _ = self.screen
        return self.desktop.pixel(x + 125, y + 300)

    def test_open_button_is_not_pressed_any_more_after_the_panel(self):
        self.launch()
        self.desktop.xdo("mousemove", 5, 5)
        x, y, _, _ = self.screen
        self.wait_for_keyboard()
        wait_for(lambda: self.open_button()[2] > self.open_button()[0] + 80, "the blue of the open button")
        at_rest = wait_until_settled(self.open_button, "the look of a button at rest")
        self.desktop.xdo("mousemove", x + 210, y + 315, "click", 1)
        panel = self.desktop.wait_for_window("Open a project folder")
        self.desktop.xdo("mousemove", 5, 5, "windowactivate", "--sync", panel, "key", "Escape")
        wait_for(lambda: not self.desktop.windows("Open a project folder"), "the panel to close")
        wait_for(lambda: self.open_button() == at_rest, "the look of a button at rest")

    # There and back

    def test_statistics_close_on_yes_only_and_open_again(self):
        self.launch(os.fsdecode(self.project()))
        for time_opened in (1, 2):
            self.ask_to_close()
            wait_for(lambda: not self.main_screen(), "the main screen to go")
            self.desktop.xdo("key", "Tab", "key", "space")  # No
            self.wait_for_no_alert()
            self.ask_to_close()
            self.desktop.xdo("key", "Escape")
            self.wait_for_no_alert()
            self.assertTrue(self.statistics())
            self.ask_to_close()
            self.desktop.xdo("key", "Return")  # Yes
            self.screen = wait_until_settled(self.main_screen, "the main screen to come back")
            wait_for(lambda: not self.statistics(), "the statistics to close")
            if time_opened == 1:
                self.drop(self.drag_to_screen(self.address(os.fsencode(self.desktop.home) + b"/p")))
        self.assertIsNone(self.application.poll())
        self.quit()

    def asked_before_the_reminder(self, project):
        """When the application was started, and its confirmation; nothing where the machine was too slow to ask within
        the reminder's delay, so that either may have come first."""
        self.settings("[General]\nquillmeter.ratings_reminder.should_remind_%s=true\n"
                      "quillmeter.ratings_reminder.counter_%s=2\n" % (VERSION, VERSION))
        started = not_loaded = checked = time.monotonic()
        self.launch(project)
        while not self.statistics() and checked < started + TIMEOUT:
            not_loaded, checked = checked, time.monotonic()
        confirmation = self.ask_to_close()
        if time.monotonic() - not_loaded < 4.0:
            return started, confirmation
        self.desktop.end(self.application)
        return None

    def test_reminder_comes_four_seconds_after_loading_also_over_the_confirmation(self):
        project = os.fsdecode(self.project())
        started, confirmation = wait_for(lambda: self.asked_before_the_reminder(project), "the confirmation in time")
        reminder = self.wait_for_alert(besides=[confirmation])
        self.assertGreater(time.monotonic() - started, 0.5 + 4.0)  # opening, and from loading on
        self.desktop.xdo("key", "Escape")
        wait_for(lambda: self.alerts() == [confirmation], "the reminder to close")
        self.assertEqual(self.wait_for_alert(besides=[reminder]), confirmation)
        self.desktop.xdo("key", "Escape")
        self.wait_for_no_alert()
        self.assertTrue(self.statistics())
        wait_for(lambda: "counter_%s=3" % VERSION in self.settings_text(), "the showing to be counted")

    # The programs around it

    def test_desktop_entry_opens_a_folder(self):
        with open(os.path.join(PACKAGING, "quillmeter.desktop.in")) as stream:
            entry = dict(line.strip().split("=", 1) for line in stream if "=" in line)
        self.assertIn("inode/directory", entry["MimeType"].split(";"))
        program, placeholder = entry["Exec"].split()
        self.assertEqual((program, placeholder), ("quillmeter", "%f"))
        self.launch(os.fsdecode(self.project()))
        wait_for(self.statistics, "the statistics window")

    def test_revealed_file_comes_to_the_front_in_a_real_file_browser(self):
        if shutil.which("thunar") is None:
            self.skipTest("thunar is not installed")
        self.desktop.start_session_bus()
        self.desktop.start(["thunar", "--daemon"])
        names = ("dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
                 "org.freedesktop.DBus.ListNames")
        wait_for(lambda: "FileManager1" in self.desktop.output(*names), "the file browser")
        with open(self.desktop.home + "/bus", "wb") as stream:
            self.desktop.start(["dbus-monitor", "interface=org.freedesktop.FileManager1"],
                               stdout=stream)
        self.desktop.start([REVEAL_SOURCE, os.fsdecode(self.project("shown")) + "/f0.c"])
        x, y, _, _ = wait_until_settled(
            lambda: next(iter(self.desktop.windows("Reveal source").values()), None), "source")
        wait_for(lambda: self.said(stream.name, b"signal"), "the monitor")
        self.desktop.xdo("mousemove", x + 400, y + 400, "click", 1)

        def browser_with_the_keyboard():
            window = self.desktop.active_window()
            return window if "shown" in self.desktop.xdo("getwindowname", window) else None

        window = wait_for(browser_with_the_keyboard, "the file browser with the keyboard")

        def foremost():
            return self.desktop.output("xprop", "-root", "_NET_CLIENT_LIST_STACKING").split()[-1]

        wait_for(lambda: int(foremost(), 16) == int(window), "the file browser in front of everything")
        with open(stream.name, "rb") as log:
            self.assertRegex(log.read(), rb'string "quillmeter-\d+-[^"]*_TIME[1-9]\d*"')

    def test_window_is_dragged_where_a_wayland_desktop_ignores_its_own_moves(self):
        if shutil.which("weston") is None or shutil.which("Xwayland") is None:
            self.skipTest("weston or Xwayland is not installed")
        said = self.desktop.home + "/weston"
        with open(said, "wb") as stream:
            self.desktop.start(["weston", "--backend=x11-backend.so", "--use-pixman", "--xwayland", "--idle-time=0",
                                "--width=1200", "--height=800", "--no-config"],
                               stdout=stream, stderr=stream)
        def only_window():
            return self.desktop.geometry(self.desktop.output("xprop", "-root", "_NET_CLIENT_LIST").split("# ")[-1])

        outer = wait_until_settled(only_window, "the Wayland desktop")

        def inner_display():
            with open(said) as stream:
                return next((line.split()[-1] for line in stream if "listening on display" in line), None)

        inside = copy.copy(self.desktop)
        inside.environment = {**self.desktop.environment, "DISPLAY": wait_for(inner_display, "its X server")}
        self.application = self.desktop.start([APPLICATION], env=inside.environment, stderr=self.log)

        def screen_inside():
            return next((geometry for geometry in inside.windows("Quillmeter").values() if geometry[2:] == (420, 360)),
                        None)

        def follows_the_mouse():
            """A slow desktop may miss the pointer coming in; then it is asked again."""
            before = wait_until_settled(screen_inside, "the main screen inside")
            x, y = outer[0] + before[0] + 250, outer[1] + before[1] + 26
            # The inner desktop learns where the pointer is when it comes in.
            self.desktop.xdo("mousemove", 2, 2, "sleep", 0.3, "mousemove", x - 5, y, "sleep", 0.3, "mousemove", x, y,
                             "sleep", 0.3, "mousedown", 1)
            for part in (3, 2, 1):
                self.desktop.xdo("mousemove", x + 90 // part, y + 60 // part, "sleep", 0.2)
            self.desktop.xdo("mouseup", 1)
            after = wait_until_settled(screen_inside, "the main screen to stay")
            return abs(after[0] - before[0] - 90) + abs(after[1] - before[1] - 60) < 8

        wait_for(follows_the_mouse, "the main screen to have moved")

    # Bad surroundings; none of these desktops has a session bus or a browser

    def test_folder_without_a_project_gives_an_alert_and_the_screen_back(self):
        os.mkdir(self.desktop.home + "/empty")
        self.launch(self.desktop.home + "/empty")
        self.wait_for_alert()
        self.desktop.xdo("key", "Return")
        self.wait_for_no_alert()
        self.screen = wait_until_settled(self.main_screen, "the main screen")
        self.expect_goes_on()

    # The other rules

    def settled_statistics(self):
        return self.desktop.wait_for_window("Quillmeter – .*Weather")

    def says_which_rules(self):
        """Whether something is written at the right end of the window's upper edge."""
        area = self.desktop.output("import", "-window", self.settled_statistics(), "-crop", "400x26+780+14", "-depth",
                                   "8", "txt:-")
        return len({line.split("#")[1][:6] for line in area.splitlines()[1:]}) > 1

    def click_in(self, window, x, y):
        self.desktop.xdo("mousemove", "--window", window, x, y, "click", 1)

    def remembers(self, value):
        return "MEASURE_BY_CURRENT_RULES=" + value in self.settings_text()

    def test_swift_project_is_measured_by_the_current_rules_on_offer_and_back(self):
        self.launch(WEATHER)
        window = self.settled_statistics()
        wait_for(lambda: not self.says_which_rules(), "a window that is silent about the classic rules")
        self.click_in(window, 654, 607)
        wait_for(lambda: self.remembers("true"), "the offer to be taken")
        wait_for(self.says_which_rules, "the window to say which rules it follows")
        self.click_in(self.settled_statistics(), 1080, 29)
        wait_for(lambda: self.remembers("false"), "the way back to be taken")
        wait_for(lambda: not self.says_which_rules(), "the window of the classic rules")
        self.assertIsNone(self.application.poll())

    def test_review_page_without_a_browser_is_met_in_silence(self):
        self.launch()
        x, y, _, _ = self.screen
        self.desktop.xdo("mousemove", x + 135, y + 261, "click", 1)
        self.expect_goes_on()
        self.quit()  # which an alert would not let through

    def test_garbage_for_settings_does_no_harm(self):
        self.settings("\0\1\2[[[=%%%\n" * 50)
        self.launch(os.fsdecode(self.project()))
        wait_for(lambda: "counter_%s=1" % VERSION in self.settings_text(), "the showing to be counted")
        self.assertIsNone(self.application.poll())

    def test_settings_that_cannot_be_written_do_no_harm(self):
        with open(self.desktop.home + "/config", "w") as stream:
            stream.write("a file where the folder would be")
        self.launch(os.fsdecode(self.project()))
        wait_for(self.statistics, "the statistics window")
        time.sleep(4.5)  # until it would be counted, of which nothing is seen
        self.assertIsNone(self.application.poll())

    def test_quitting_in_the_middle_of_a_read_is_prompt(self):
        files = 200
        project = os.fsdecode(self.project(files=files))
        for number in range(files):  # all of which nobody could wait for
            os.truncate("%s/f%d.c" % (project, number), 1 << 33)
        self.launch(project)
        wait_for(lambda: self.logged("started parsing"), "the read")
        self.quit()
        self.assertEqual(self.logged("parsing file f%d.c" % (files - 1)), 0)

    def test_no_file_is_written_but_the_defaults(self):
        project = os.fsdecode(self.project())
        before = self.files()
        self.launch(project)
        defaults = os.fsencode(self.desktop.home + "/config/Quillmeter/Quillmeter.ini")
        wait_for(lambda: defaults in self.files(), "the showing to be counted")
        self.ask_to_close()
        self.desktop.xdo("key", "Return")
        wait_until_settled(self.main_screen, "the main screen to come back")
        self.press_in_main_screen("ctrl+o")
        panel = self.desktop.wait_for_window("Open a project folder")
        self.desktop.xdo("windowactivate", "--sync", panel, "key", "Escape")
        wait_for(lambda: not self.desktop.windows("Open a project folder"), "the panel to close")
        self.quit()
        self.assertEqual(self.files() - before, {defaults})


class ShellWithoutCompositorTest(ShellTest):
    """The same where nobody blends windows, for what depends on it."""

    compositor = False

    def test_outline_follows_a_compositor_that_goes_and_comes(self):
        compositor = self.desktop.start_compositor()
        self.launch()
        wait_for(lambda: self.shadow_falls() and self.corners_are_clear(), "clear corners and a shadow")
        compositor.terminate()
        wait_for(lambda: not self.desktop.is_composited(), "the compositor to go")
        x, y, _, _ = self.screen
        wait_for(lambda: self.desktop.pixel(x + 30, y + 317) == WALLPAPER, "the shadow to go")
        wait_for(self.corners_are_clear, "clear corners without a compositor")
        self.desktop.start_compositor()
        wait_for(lambda: self.shadow_falls() and self.corners_are_clear(), "the shadow to come back")


def load_tests(loader, _tests, _pattern):
    suite = loader.loadTestsFromTestCase(CommandLineTest)
    suite.addTests(loader.loadTestsFromTestCase(ShellTest))
    for test in ("test_pictures_make_the_outline", "test_window_is_moved_by_exactly_the_mouses_travel",
                 "test_dropped_folder_is_opened", "test_outline_follows_a_compositor_that_goes_and_comes"):
        suite.addTest(ShellWithoutCompositorTest(test))
    return suite


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], "-v", *sys.argv[5:]])
