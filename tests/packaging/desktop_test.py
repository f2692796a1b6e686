#!/usr/bin/env python3
"""What makes the application known to the desktop, as it is installed: the ecosystem's checkers find no fault, one name
stands for the application everywhere, its windows included, and the icons have the sizes that their folders say.

usage: desktop_test.py INSTALLED APPLICATION SOURCE_DIR VERSION
"""

import os
import pathlib
import re
import struct
import subprocess
import sys
import unittest
import xml.etree.ElementTree

import yaml

INSTALLED, APPLICATION, SOURCES, VERSION = sys.argv[1:5]
SHARE = pathlib.Path(INSTALLED, "share")
sys.path.insert(0, os.path.join(SOURCES, "tests/ui"))
from desktop import Desktop, wait_for  # noqa: E402


def only(pattern):
    found = list(SHARE.glob(pattern))
    assert len(found) == 1, (pattern, found)
    return found[0]


def desktop_entry():
    lines = only("applications/*.desktop").read_text(encoding="utf-8").splitlines()
    return dict(line.split("=", 1) for line in lines if "=" in line)


IDENTIFIER = only("applications/*.desktop").stem


class CheckersTest(unittest.TestCase):
    def check(self, *command):
        result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
        self.assertEqual(result.returncode, 0, result.stdout)
        return result.stdout

    def test_desktop_entry(self):
        self.assertEqual(self.check("desktop-file-validate", str(only("applications/*.desktop"))), "")

    def test_metadata(self):
        said = self.check("appstreamcli", "validate", "--no-net", "--pedantic", "--no-color", str(only("metainfo/*.xml")))
        self.assertNotRegex(said, r"(?m)^[EW]:")


class NamesTest(unittest.TestCase):
    def setUp(self):
        self.metadata = xml.etree.ElementTree.parse(only("metainfo/*.metainfo.xml")).getroot()

    def test_one_name_in_every_file(self):
        self.assertRegex(IDENTIFIER, r"^[a-z]+(\.[A-Za-z]+)+$")
        self.assertEqual(only("metainfo/*").name, IDENTIFIER + ".metainfo.xml")
        self.assertEqual(self.metadata.findtext("id"), IDENTIFIER)
        self.assertEqual(self.metadata.findtext("launchable"), IDENTIFIER + ".desktop")
        self.assertEqual(desktop_entry()["Icon"], IDENTIFIER)
        self.assertEqual(desktop_entry()["StartupWMClass"], IDENTIFIER)
        self.assertEqual({path.stem for path in SHARE.glob("icons/hicolor/*/apps/*")}, {IDENTIFIER})
        (manifest,) = pathlib.Path(SOURCES, "packaging/flatpak").glob("*.yml")
        self.assertEqual(manifest.stem, IDENTIFIER)
        self.assertRegex(manifest.read_text(encoding="utf-8"), rf"(?m)^id: {re.escape(IDENTIFIER)}$")

    def test_the_manifest_of_the_flatpak_gives_no_access_to_files(self):
        (manifest,) = pathlib.Path(SOURCES, "packaging/flatpak").glob("*.yml")
        rights = yaml.safe_load(manifest.read_text(encoding="utf-8"))["finish-args"]
        self.assertIn("--socket=wayland", rights)
        self.assertEqual([right for right in rights if re.match("--(filesystem|persist|device=all|share=network)", right)], [])

    def test_pictures_are_among_those_of_the_documents(self):
        pictures = [image.text for image in self.metadata.iter("image")]
        self.assertGreater(len(pictures), 2)
        for picture in pictures:
            folder, name = os.path.split(picture)
            self.assertTrue(folder.endswith("/screenshots"), picture)
            self.assertTrue(os.path.exists(os.path.join(SOURCES, "docs/screenshots", name)), picture)

    def test_the_version_is_released(self):
        self.assertEqual(self.metadata.find("releases/release").get("version"), VERSION)


class IconsTest(unittest.TestCase):
    def test_each_has_the_size_of_its_folder_and_shows_something(self):
        sizes = []
        for path in SHARE.glob("icons/hicolor/*/apps/*.png"):
            size = int(path.parent.parent.name.split("x")[0])
            sizes.append(size)
            head = path.read_bytes()[:24]
            self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack(">II", head[16:24]), (size, size))
            colors = subprocess.run(["identify", "-format", "%k", path], check=True, capture_output=True, text=True).stdout
            self.assertGreater(int(colors), 30)
        self.assertEqual(sorted(sizes), [16, 22, 24, 32, 48, 64, 128, 256, 512])
        self.assertTrue(only("icons/hicolor/scalable/apps/*.svg").exists())


class WindowsTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.addCleanup(self.desktop.close)

    def test_windows_of_an_x_server_have_the_name_for_their_class(self):
        for title, arguments in (("Quillmeter", []), (".* – Notebook", [os.path.join(SOURCES, "samples/Notebook")])):
            self.desktop.start([APPLICATION, *arguments])
            window = self.desktop.wait_for_window(title)
            self.assertIn(f'"{IDENTIFIER}"', self.desktop.output("xprop", "-id", window, "WM_CLASS"))

    def test_people_read_a_name_that_is_none_for_machines(self):
        self.desktop.start([APPLICATION])
        window = self.desktop.wait_for_window("Quillmeter")
        self.assertEqual(self.desktop.xdo("getwindowname", window).strip(), "Quillmeter")

    def test_windows_of_a_wayland_compositor_have_it_for_their_application(self):
        environment = {**self.desktop.environment, "WAYLAND_DISPLAY": "wayland-test", "WAYLAND_DEBUG": "1",
                       "QT_QPA_PLATFORM": "wayland"}
        self.desktop.start(["weston", "--backend=headless-backend.so", "--socket=wayland-test", "--idle-time=0"])
        wait_for(lambda: os.path.exists(environment["XDG_RUNTIME_DIR"] + "/wayland-test"), "the compositor")
        with open(self.desktop.home + "/requests", "wb") as requests:
            self.desktop.start([APPLICATION, os.path.join(SOURCES, "samples/Notebook")], env=environment, stderr=requests)
        asked = pathlib.Path(requests.name)

        def names():
            said = asked.read_text(encoding="utf-8")
            found = dict(re.findall(r'set_title\("(.*?)"\)\n.*set_app_id\("(.*?)"\)', said))
            return found if any("Notebook" in title for title in found) else None

        named = wait_for(names, "the project's window")
        self.assertIn("Quillmeter", named)
        self.assertEqual(set(named.values()), {IDENTIFIER})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
