#!/usr/bin/env python3
"""Takes the pictures of the documents anew, on X servers of its own, from the sample project and from small ones that
are made here. scripts/screenshots calls it: screenshots.py APPLICATION FOLDER [NAME...]"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from desktop import Desktop, wait_for  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parents[2]
APPLICATION, FOLDER = os.path.abspath(sys.argv[1]), pathlib.Path(sys.argv[2])
WANTED = set(sys.argv[3:])
# A copy of the samples, so that no picture shows where the sources lie.
PROJECTS = tempfile.TemporaryDirectory(prefix="projects-")
SAMPLE = pathlib.Path(PROJECTS.name) / "samples/Notebook"
SCREEN = (1366, 900)
STATS = "^Quillmeter – "
SETTLED = 0.8  # seconds after which fades and tool tips have ended
GROWN = 1.6  # and a chart has grown

PROJECT = """// !$*UTF8*$!
{
/* Begin PBXFileReference section */
%s/* End PBXFileReference section */
}
"""


class Scene:
    """The application on a desktop of its own."""

    def __init__(self, project=None, **options):
        scale = options.get("scale", 1.0)
        self.desktop = Desktop(tuple(int(side * scale) for side in SCREEN), **options)
        self.scale = scale
        self.project = project

    def __enter__(self):
        try:
            self.desktop.start([APPLICATION, *([str(self.project)] if self.project else [])])
            self.window = self.desktop.wait_for_window(STATS if self.project else "^Quillmeter$")
            self.desktop.xdo("windowactivate", "--sync", self.window[0])
            time.sleep(SETTLED)
        except BaseException:
            self.desktop.close()
            raise
        return self

    def __exit__(self, *error):
        self.desktop.close()

    def key(self, *keys):
        for key in keys:
            self.desktop.xdo("key", "--clearmodifiers", key)
            time.sleep(0.15)

    def focus_away(self):
        """No ring of the keyboard on what is shown."""
        self.desktop.xdo("mousemove", "--window", self.window[0], 3, 3)

    def click(self, x, y):
        self.desktop.xdo("mousemove", "--window", self.window[0], int(x * self.scale), int(y * self.scale), "click", 1)

    def save(self, name, wait=SETTLED, window=None, around=0):
        """The window, and as much of what lies around it."""
        time.sleep(wait)
        _, x, y, width, height = window or self.window
        area = "%dx%d+%d+%d" % (width + 2 * around, height + 2 * around, max(0, x - around), max(0, y - around))
        self.desktop.output("import", "-window", "root", "-crop", area, "+repage", "-strip", "PNG24:" +
                            str(FOLDER / (name + ".png")))
        if shutil.which("pngquant"):
            subprocess.run(["pngquant", "--force", "--ext", ".png", "--skip-if-larger", str(FOLDER / (name + ".png"))],
                           check=False)
        print(name)


def made_project(folder, name, files):
    """A project of that name with text files of some lines each, or with none of its files on disk."""
    place = pathlib.Path(folder) / name
    (place / (name + ".xcodeproj")).mkdir(parents=True)
    references = ""
    for number, (file, lines) in enumerate(files.items()):
        references += "\t\t%024X /* %s */ = {isa = PBXFileReference; path = %s; sourceTree = \"<group>\"; };\n" % (
            number, file, file)
        (place / file).write_text("x\n" * lines)
    (place / (name + ".xcodeproj") / "project.pbxproj").write_text(PROJECT % references)
    return place


def overview():
    with Scene(SAMPLE) as scene:
        scene.focus_away()
        scene.save("stats-overview")
        for x in (240, 244, 248):
            scene.desktop.xdo("mousemove", "--window", scene.window[0], x, 345)
            time.sleep(0.1)
        scene.save("stats-tooltip", 2.0)
        scene.key("ctrl+4")
        scene.save("stats-export")
        scene.key("ctrl+2")
        scene.save("stats-details")
        scene.key("ctrl+3")
        scene.save("stats-charts", GROWN)
        shutil.copy(FOLDER / "stats-charts.png", FOLDER / "charts-pie.png")


def dark():
    with Scene(SAMPLE, dark=True) as scene:
        scene.focus_away()
        scene.save("stats-dark")
        scene.key("ctrl+4")
        scene.save("export-dark")


def menus():
    with Scene(SAMPLE) as scene:
        height = scene.window[4]
        scene.click(60, height - 86)
        scene.save("stats-tools")
        scene.key("Return")
        tool = scene.desktop.wait_for_window("^Clean-up – ")
        scene.save("stats-cleanup")
        scene.key("Escape")
        scene.key("ctrl+w")
        scene.save("stats-close")


def twice_as_fine():
    with Scene(SAMPLE, scale=2.0) as scene:
        scene.focus_away()
        scene.save("stats-2x")
        scene.key("ctrl+2")
        scene.save("details-2x")


def german():
    with tempfile.TemporaryDirectory() as folder:
        files = {"Large%d.c" % number: 611_000 + number for number in range(20)}
        with Scene(made_project(folder, "Archiv", files), locale="de_DE.UTF-8") as scene:
            scene.focus_away()
            scene.save("stats-german")


def without_code():
    with tempfile.TemporaryDirectory() as folder:
        with Scene(made_project(folder, "Pictures", {"photo.png": 40, "Main.xib": 12})) as scene:
            scene.focus_away()
            scene.save("stats-empty")
            scene.key("ctrl+2")
            scene.save("details-empty")


def reminder():
    with Scene(SAMPLE) as scene:
        for _ in range(2):
            time.sleep(5)
            scene.key("ctrl+w", "Return")
            scene.desktop.wait_for_window("^Quillmeter$")
            scene.desktop.start([APPLICATION, str(SAMPLE)])
            scene.window = scene.desktop.wait_for_window(STATS)
        scene.save("stats-reminder", 6)


def details():
    with Scene(SAMPLE) as scene:
        right = scene.window[3]
        scene.key("ctrl+2")
        time.sleep(SETTLED)
        scene.click(right - 250, 69)
        scene.click(500, 126)
        scene.focus_away()
        scene.save("details-all-columns")
        scene.click(right - 145, 69)
        scene.save("details-filters")


def details_dark():
    with Scene(SAMPLE, dark=True) as scene:
        scene.key("ctrl+2")
        time.sleep(SETTLED)
        scene.click(scene.window[3] - 145, 69)
        time.sleep(SETTLED)
        scene.click(scene.window[3] - 145, 284)
        scene.focus_away()
        scene.save("details-images-dark")


def open_chart(scene, number):
    """Chooses the chart of that number, from 0, by keyboard; the second is the one shown first."""
    scene.key("ctrl+3")
    time.sleep(GROWN)
    scene.key(*["Tab"] * 4, "Return")
    time.sleep(SETTLED)
    scene.key(*["Down"] * (number - 1), "space")


def charts():
    with Scene(SAMPLE) as scene:
        scene.key("ctrl+3")
        time.sleep(GROWN)
        scene.key(*["Tab"] * 4, "Return")
        scene.save("charts-panel")
        scene.key("Down", "space")
        scene.focus_away()
        scene.save("charts-bars", GROWN)


def charts_fine():
    with Scene(SAMPLE, scale=2.0) as scene:
        open_chart(scene, 2)
        time.sleep(GROWN)
        scene.key("Tab", "Tab", "End", "Return")
        scene.save("charts-details-2x")


def charts_growing():
    with Scene(SAMPLE, dark=True) as scene:
        open_chart(scene, 2)
        scene.save("charts-growing-dark", 0.25)


def clean_up():
    for dark_windows, scale, names in ((False, 1.0, ("cleanup-searching", "cleanup-found")),
                                       (True, 2.0, (None, "cleanup-2x-dark"))):
        with Scene(SAMPLE, dark=dark_windows, scale=scale) as scene:
            scene.click(60, scene.window[4] / scale - 86)
            time.sleep(SETTLED)
            scene.key("Return")
            tool = scene.desktop.wait_for_window("^Clean-up – ")
            time.sleep(SETTLED)
            scene.desktop.xdo("mousemove", "--window", tool[0], int(tool[3] - 60 * scale), int(36 * scale), "click", 1)
            if names[0]:
                scene.save(names[0], 0.3, tool)
            scene.save(names[1], 2.0, tool)


def main_screen():
    for name, options in (("main-idle", {}), ("main-idle-2x", {"scale": 2.0})):
        with Scene(**options) as scene:
            scene.save(name, around=0)
    with tempfile.TemporaryDirectory() as folder:
        desktop = Desktop(SCREEN)
        try:
            desktop.start([APPLICATION, folder])
            desktop.wait_for_window("^Quillmeter$")
            time.sleep(2)
            scene = Scene.__new__(Scene)
            scene.desktop, scene.scale, scene.window = desktop, 1.0, ("root", 383, 180, 600, 540)
            scene.save("main-error")
        finally:
            desktop.close()


def report():
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "report.pdf")
        bundle = SAMPLE / "Notebook.xcodeproj"
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
        subprocess.run([APPLICATION, "--report", path, "c,headers,objc,images,xib", "classic", str(bundle)], check=True,
                       env=environment)
        subprocess.run(["pdftoppm", "-png", "-r", "48.2", "-f", "1", "-singlefile", path,
                        str(FOLDER / "report-page")], check=True)
        print("report-page")


SCENES = {overview: ("stats-overview", "stats-tooltip", "stats-export", "stats-details", "stats-charts", "charts-pie"),
          dark: ("stats-dark", "export-dark"),
          menus: ("stats-tools", "stats-cleanup", "stats-close"),
          twice_as_fine: ("stats-2x", "details-2x"),
          german: ("stats-german",),
          without_code: ("stats-empty", "details-empty"),
          reminder: ("stats-reminder",),
          details: ("details-all-columns", "details-filters"),
          details_dark: ("details-images-dark",),
          charts: ("charts-panel", "charts-bars"),
          charts_fine: ("charts-details-2x",),
          charts_growing: ("charts-growing-dark",),
          clean_up: ("cleanup-searching", "cleanup-found", "cleanup-2x-dark"),
          main_screen: ("main-idle", "main-idle-2x", "main-error"),
          report: ("report-page",)}


def main():
    shutil.copytree(ROOT / "samples", SAMPLE.parent)
    for scene, names in SCENES.items():
        if not WANTED or WANTED.intersection(names):
            scene()


if __name__ == "__main__":
    main()
