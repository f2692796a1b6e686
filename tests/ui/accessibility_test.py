#!/usr/bin/env python3
"""Quillmeter as assistive technology meets it: over the accessibility bus, from its own start to the last control. The
bus is read by a process of its own, in Debian's Python, which has the bindings."""

import itertools
import json
import os
import re
import subprocess
import sys
import unittest

from desktop import Desktop, wait_for

APPLICATION, SAMPLE = sys.argv[1:3]
PYTHON = "/usr/bin/python3"
READER = os.path.join(os.path.dirname(os.path.abspath(__file__)), "accessible_tree.py")
SKIPPED = 77

FILTERS = "Kinds of files to choose from"
CHARTS = "Charts to choose from"
PAGES = ["Overview", "Details", "Charts", "Export"]


def has_bindings():
    probe = "import gi; gi.require_version('Atspi', '2.0'); from gi.repository import Atspi"
    found = subprocess.run([PYTHON, "-c", probe], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
    return found.returncode == 0 and os.path.exists("/usr/libexec/at-spi-bus-launcher")


class AccessibilityTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop((1366, 768), assistive=True)
        cls.addClassCleanup(cls.desktop.close)
        cls.desktop.start([APPLICATION, SAMPLE])
        cls.window = cls.desktop.wait_for_window("Quillmeter – .*")
        cls.reader = cls.desktop.start([PYTHON, READER], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        cls.addClassCleanup(cls.reader.stdout.close)
        cls.addClassCleanup(cls.reader.stdin.close)

    @classmethod
    def ask(cls, command):
        cls.reader.stdin.write(command + "\n")
        cls.reader.stdin.flush()
        return json.loads(cls.reader.stdout.readline())

    def nodes(self):
        """Everything that is not hidden."""
        return [node for node in self.ask("walk") if "visible" in node["states"] or node["depth"] < 2]

    def press(self, name):
        """As soon as it is on the screen."""
        wait_for(lambda: self.ask("press " + name), "a control to press: " + name)

    def wait_for_node(self, role, name):
        return wait_for(lambda: next((node for node in self.nodes() if node["role"] == role
                                      and re.fullmatch(name, node["name"])), None), role + " " + name)

    def show(self, page):
        self.press(page)
        wait_for(lambda: "selected" in self.wait_for_node("page tab", page)["states"], page)

    def test_both_windows_are_windows(self):
        windows = [node for node in self.ask("walk") if node["depth"] == 1]
        self.assertGreaterEqual(len(windows), 2)
        for window in windows:
            self.assertIn(window["role"], ("frame", "window"), window)
            self.assertIn("Quillmeter", window["name"])

    def test_tabs_are_tabs_of_which_one_is_selected(self):
        self.show("Overview")
        tabs = [node for node in self.nodes() if node["role"] == "page tab"]
        self.assertEqual([tab["name"] for tab in tabs], PAGES)
        self.assertEqual([tab["name"] for tab in tabs if "selected" in tab["states"]], ["Overview"])
        for tab in tabs:
            self.assertIn("Press", tab["actions"])
            self.assertTrue(tab["description"])

    def test_nobody_hears_markup_and_every_control_has_a_name(self):
        for page in PAGES:
            self.show(page)
            for node in self.nodes():
                for text in (node["name"], node["description"]):
                    self.assertNotRegex(text, r"</?[a-z]+>", node)
                if node["role"] in ("push button", "toggle button", "check box", "radio button", "page tab", "chart"):
                    self.assertTrue(node["name"], node)

    def test_a_figure_is_read_once(self):
        self.show("Overview")
        names = [node["name"] for node in self.nodes() if node["name"]]
        figure = next(name for name in names if name.startswith("Lines in total: "))
        self.assertRegex(figure, r"^Lines in total: [0-9,]+$")
        for caption in {name.split(": ")[0] for name in names if ": " in name} - {"Current project"}:
            self.assertNotIn(caption, names)

    def test_the_table_explains_its_columns_and_shows_files(self):
        self.show("Details")
        nodes = self.nodes()
        headers = [node for node in nodes if "column header" in node["role"]]
        self.assertEqual([header["name"] for header in headers[:4]], ["Type", "View", "Filename", "LOC"])
        for header in headers:
            self.assertTrue(header["description"], header)
            self.assertEqual("Press" in header["actions"], header["name"] != "View", header)
        reveal = [node for node in nodes if node["name"] == "Show in file browser"]
        self.assertGreater(len(reveal), 10, "one in every row on the screen")
        for button in reveal:
            self.assertEqual((button["role"], button["actions"]), ("push button", ["Press"]))

    def test_a_header_sorts_when_it_is_pressed(self):
        self.show("Details")

        def first_name():
            return next(node["name"] for node in self.nodes() if node["role"] == "table cell"
                        and "." in node["name"])

        before = first_name()
        self.press("LOC")
        wait_for(lambda: first_name() != before, "another first file")

    def is_shown(self, name):
        return any(node["name"] == name for node in self.nodes())

    def choose(self, opener, panel, name):
        """Opens a pop-up, chooses in it, and waits until it has gone."""
        self.press(opener)
        wait_for(lambda: self.is_shown(panel), panel)
        self.press(name)
        wait_for(lambda: not self.is_shown(panel), "the end of: " + panel)

    def test_a_filter_is_a_choice_of_a_group(self):
        self.show("Details")
        self.addCleanup(self.choose, "Filter", FILTERS, "All source files")
        self.press("Filter")
        choice = self.wait_for_node("radio button", "All source files")
        self.assertIn("checked", choice["states"])
        self.wait_for_node("panel", FILTERS)
        self.press("Images")
        wait_for(lambda: any(node["name"].endswith("– images") for node in self.nodes()), "the images")

    def test_the_menu_of_tools_is_in_the_tree_while_it_is_open(self):
        self.press("Tools")
        item = self.wait_for_node("menu item", "Clean up unused files…")
        self.assertIn("Press", item["actions"])
        self.desktop.xdo("key", "Escape")
        wait_for(lambda: all(node["role"] != "menu item" for node in self.nodes()), "the end of the menu")

    def test_a_chart_tells_what_it_shows_and_advice_is_a_notice(self):
        self.show("Charts")
        chart = self.wait_for_node("chart", "Chart type: .*")
        self.assertIn("Source files (", chart["description"])
        self.choose("Chart type", CHARTS, "Top 15 source files by lines of code")
        wait_for(lambda: "top 15 source files" in self.wait_for_node("chart", ".*")["name"], "the other chart")
        self.desktop.activate(self.window)
        self.assertFalse(any(node["role"] in ("alert", "notification") for node in self.nodes()))
        self.click_first_magnifier()
        notice = wait_for(lambda: next((node for node in self.nodes()
                                        if node["role"] in ("alert", "notification")), None), "the advice")
        self.assertRegex(notice["name"], r"LOC: [0-9]+ lines, Average: ")
        self.desktop.xdo("key", "Escape")
        wait_for(lambda: all(node["role"] not in ("alert", "notification") for node in self.nodes()), "its end")

    def parts_of_the_chart(self):
        """The bars or slices."""
        nodes = self.nodes()
        chart = next(number for number, node in enumerate(nodes) if node["role"] == "chart")
        return list(itertools.takewhile(lambda node: node["depth"] > nodes[chart]["depth"], nodes[chart + 1:]))

    def test_each_slice_is_read_with_its_share(self):
        self.show("Charts")
        self.choose("Chart type", CHARTS, "Source / images / XIB distribution")
        wait_for(lambda: [re.sub(r" \(.*", "", part["name"]) for part in self.parts_of_the_chart()]
                 == ["Source files", "XIB files", "Image files"], "the slices")
        parts = self.parts_of_the_chart()
        for part in parts:
            self.assertRegex(part["name"], r" \([0-9.]+%\)$")
            self.assertEqual(part["actions"], [], "a click on a slice does nothing")

    def test_each_bar_is_read_with_its_value_and_opens_its_details(self):
        self.show("Charts")
        self.choose("Chart type", CHARTS, "Top 15 source files by lines of code")
        wait_for(lambda: len(self.parts_of_the_chart()) == 15, "the bars")
        bars = self.parts_of_the_chart()
        for bar in bars:
            self.assertEqual((bar["role"], bar["actions"]), ("push button", ["Press"]))
            self.assertRegex(bar["description"], "^[0-9]+ lines$", bar)
        lines = [int(bar["description"].split()[0]) for bar in bars]
        self.assertEqual(lines, sorted(lines, reverse=True))
        self.press(bars[3]["name"])
        wait_for(lambda: any(node["role"] in ("alert", "notification") and node["name"].startswith(bars[3]["name"])
                             for node in self.nodes()), "its details")
        self.desktop.activate(self.window)
        self.desktop.xdo("key", "Escape")
        wait_for(lambda: all(node["role"] not in ("alert", "notification") for node in self.nodes()), "their end")

    def click_first_magnifier(self):
        """By keyboard: the focus goes from the control before the chart into it."""
        self.ask("focus Save chart…")
        wait_for(lambda: "focused" in self.wait_for_node("push button", "Save chart…")["states"], "the focus there")
        self.desktop.xdo("key", "Tab")
        wait_for(lambda: "focused" in self.wait_for_node("chart", ".*")["states"], "the focus in the chart")
        self.desktop.xdo("key", "Return")

    def test_the_export_tab_has_choices_and_boxes(self):
        self.show("Export")
        nodes = self.nodes()
        forms = [node for node in nodes if node["role"] == "radio button" and "visible" in node["states"]]
        self.assertEqual([form["name"] for form in forms if "showing" in form["states"]], ["PDF report", "CSV table"])
        boxes = [node for node in nodes if node["role"] == "check box" and "showing" in node["states"]]
        self.assertEqual(len(boxes), 5)
        for control in boxes + forms:
            self.assertTrue(control["description"], control)


if __name__ == "__main__":
    if not has_bindings():
        print("skipped: at-spi2-core, python3-gi or gir1.2-atspi-2.0 is missing")
        sys.exit(SKIPPED)
    unittest.main(argv=sys.argv[:1], verbosity=2)
