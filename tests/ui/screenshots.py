#!/usr/bin/env python3
"""Takes the pictures of the documents anew, on X servers of its own, from the sample projects and from small ones that
are made here. scripts/screenshots calls it: screenshots.py APPLICATION DRAG_SOURCE FOLDER [NAME...]"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import urllib.parse

from desktop import TIMEOUT, Desktop, wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]
APPLICATION, DRAG_SOURCE = (os.path.abspath(program) for program in sys.argv[1:3])
FOLDER = pathlib.Path(sys.argv[3])
WANTED = set(sys.argv[4:])
# A copy of the samples, so that no picture shows where the sources lie.
PROJECTS = tempfile.TemporaryDirectory(prefix="projects-")
SAMPLE = pathlib.Path(PROJECTS.name) / "samples/Notebook"
SWIFT_SAMPLE = pathlib.Path(PROJECTS.name) / "samples/Weather"
SCREEN = (1366, 900)
MAIN = "Quillmeter"
STATS = "Quillmeter – .*"
TOOL = "Clean-up – .*"
SETTLED = 0.8  # seconds after which fades and tool tips have ended
GROWN = 1.6  # and a chart has grown
AROUND = 30  # of the desktop around the main screen

PROJECT = """// !$*UTF8*$!
{
/* Begin PBXFileReference section */
%s/* End PBXFileReference section */
}
"""


class Scene:
    """The application on a desktop of its own."""

    def __init__(self, *arguments, first=None, scale=1.0, **options):
        self.desktop = Desktop(tuple(int(side * scale) for side in SCREEN), scale=scale, **options)
        self.scale = scale
        self.arguments = arguments
        self.first = first or (STATS if arguments else MAIN)

    def __enter__(self):
        try:
            self.application = self.desktop.start([APPLICATION, *map(str, self.arguments)])
            self.window = self.desktop.wait_for_window(self.first)
            self.desktop.activate(self.window)
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
        self.point(3, 3)

    def point(self, x, y, *then):
        self.desktop.xdo("mousemove", "--window", self.window, int(x * self.scale), int(y * self.scale), *then)

    def click(self, x, y):
        self.point(x, y, "click", 1)

    def height(self):
        return self.desktop.geometry(self.window)[3] / self.scale

    def width(self):
        return self.desktop.geometry(self.window)[2] / self.scale

    def save(self, name, wait=SETTLED, window=None, around=0):
        """The window, and as much of what lies around it."""
        time.sleep(wait)
        x, y, width, height = self.desktop.geometry(window or self.window)
        around = int(around * self.scale)
        area = "%dx%d+%d+%d" % (width + 2 * around, height + 2 * around, max(0, x - around), max(0, y - around))
        picture = str(FOLDER / (name + ".png"))
        self.desktop.output("import", "-window", "root", "-crop", area, "+repage", "-strip", "PNG24:" + picture)
        if shutil.which("pngquant"):
            subprocess.run(["pngquant", "--force", "--ext", ".png", "--skip-if-larger", picture], check=False)
        print(name, flush=True)


def made_project(folder, name, files):
    """A project of that name with text files of some lines each."""
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
            scene.point(x, 345)
            time.sleep(0.1)
        scene.save("stats-tooltip", 2.0)
        scene.focus_away()
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
        scene.click(60, scene.height() - 86)
        scene.save("stats-tools")
        scene.key("Return")
        scene.desktop.wait_for_window(TOOL)
        scene.focus_away()
        scene.save("stats-cleanup")
        scene.key("Escape")
        wait_for(lambda: not scene.desktop.windows(TOOL), "the end of the tool")
        scene.desktop.activate(scene.window)
        scene.key("ctrl+w")
        scene.desktop.wait_for_window(MAIN)
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
    """It comes with the third statistics window that was shown for four seconds."""
    with Scene(SAMPLE) as scene:
        for _ in range(2):
            time.sleep(5)
            scene.desktop.activate(scene.window)
            scene.key("ctrl+w")
            scene.desktop.wait_for_window(MAIN)  # the question
            scene.key("Return")
            wait_for(lambda: not scene.desktop.windows(STATS), "the end of the statistics")
            scene.desktop.activate(scene.desktop.wait_for_window(MAIN))
            scene.key("ctrl+q")
            scene.application.wait(TIMEOUT)
            scene.application = scene.desktop.start([APPLICATION, str(SAMPLE)])
            scene.window = scene.desktop.wait_for_window(STATS)
        scene.focus_away()
        scene.desktop.wait_for_window(MAIN)  # the reminder
        scene.save("stats-reminder")


def rules():
    with Scene(SWIFT_SAMPLE) as scene:
        scene.focus_away()
        scene.save("rules-offer")
    with Scene("--rules", "current", SWIFT_SAMPLE, first=STATS) as scene:
        scene.focus_away()
        scene.key("ctrl+2")
        scene.save("rules-current")


def details():
    with Scene(SAMPLE) as scene:
        right = scene.width()
        scene.key("ctrl+2")
        time.sleep(SETTLED)
        scene.click(right - 250, 69)
        for _ in range(2):  # by lines, the longest file first; slower than a double click
            scene.click(559, 138)
            time.sleep(SETTLED)
        scene.focus_away()
        scene.save("details-all-columns")
        scene.click(right - 145, 69)
        scene.save("details-filters")


def details_dark():
    with Scene(SAMPLE, dark=True) as scene:
        scene.key("ctrl+2")
        time.sleep(SETTLED)
        scene.click(scene.width() - 145, 69)
        time.sleep(SETTLED)
        scene.click(scene.width() - 145, 284)
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
            scene.click(60, scene.height() - 86)
            time.sleep(SETTLED)
            scene.key("Return")
            scene.window = scene.desktop.wait_for_window(TOOL)
            scene.click(scene.width() - 60, 36)
            if names[0]:
                scene.save(names[0], 0.3)
            scene.save(names[1], 2.0)


def main_screen():
    for name, options in (("main-idle", {}), ("main-idle-2x", {"scale": 2.0})):
        with Scene(compositor=True, **options) as scene:
            scene.focus_away()
            scene.save(name, around=0 if "2x" in name else AROUND)
    with tempfile.TemporaryDirectory() as folder:
        with Scene(folder, first=MAIN, compositor=True) as scene:
            wait_for(lambda: len(scene.desktop.windows(MAIN)) == 2, "the alert")
            main = next(window for window, (_, _, *size) in scene.desktop.windows(MAIN).items() if size == [420, 360])
            scene.save("main-error", window=main, around=90)


def drags():
    """What the main screen says of a drag above it."""
    for name, dragged in (("main-valid", SAMPLE), ("main-invalid", SAMPLE / "Notebook.xcodeproj")):
        with Scene(compositor=True) as scene, tempfile.NamedTemporaryFile() as listing:
            listing.write(b"file://" + urllib.parse.quote(str(dragged)).encode() + b"\r\n")
            listing.flush()
            environment = {**scene.desktop.environment, "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
            scene.desktop.start([DRAG_SOURCE, listing.name], env=environment)
            x, y, width, height = scene.desktop.geometry(scene.desktop.wait_for_window("Drag source"))
            scene.desktop.xdo("mousemove", x + width // 2, y + height // 2, "mousedown", 1)
            for _ in range(2):
                scene.desktop.xdo("mousemove_relative", "--", 15, 15, "sleep", 0.2)
            for step in range(6):
                scene.point(210 + step, 150 + step, "sleep", 0.1)
            scene.save(name, around=AROUND)


def reading():
    """Held for the picture, since a read is over before anybody looks."""
    with tempfile.TemporaryDirectory() as folder:
        project = made_project(folder, "Archive", {"File%d.c" % number: 200 for number in range(6000)})
        with Scene(compositor=True) as scene:
            scene.application.terminate()
            scene.application.wait(TIMEOUT)
            said = pathlib.Path(folder) / "said"
            with open(said, "wb") as stream:
                scene.application = scene.desktop.start([APPLICATION, str(project)], stderr=stream)
            scene.window = wait_for(lambda: next(iter(scene.desktop.windows(MAIN)), None), "the main screen")
            wait_for(lambda: said.read_text(errors="replace").count("parsing file") > 1500, "a part of the read")
            scene.application.send_signal(signal.SIGSTOP)
            scene.save("main-reading", around=AROUND)
            scene.application.send_signal(signal.SIGCONT)


def report():
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "report.pdf")
        bundle = SAMPLE / "Notebook.xcodeproj"
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
        subprocess.run([APPLICATION, "--report", path, "c,headers,objc,images,xib", "classic", str(bundle)], check=True,
                       env=environment)
        subprocess.run(["pdftoppm", "-png", "-r", "48.2", "-f", "1", "-singlefile", path,
                        str(FOLDER / "report-page")], check=True)
        print("report-page", flush=True)


def page():
    """In a browser, where there is one."""
    browser = shutil.which("chromium")
    if browser is None:
        print("report-html: not taken, there is no chromium", flush=True)
        return
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "notebook.html"
        environment = {**os.environ, "LC_ALL": "C.UTF-8"}
        subprocess.run([os.path.join(os.path.dirname(APPLICATION), "quillmeter-cli"), "report", "--html", path, SAMPLE], check=True,
                       env=environment)
        path.write_text(path.read_text(encoding="utf-8").replace(str(SAMPLE), "/home/ada/Projects/Notebook"), encoding="utf-8")
        picture = FOLDER / "report-html.png"
        subprocess.run([browser, "--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                        f"--user-data-dir={folder}/profile", "--window-size=1280,3000", f"--screenshot={picture.resolve()}",
                        path.as_uri()], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        subprocess.run(["mogrify", "-resize", "60%", "+dither", "-colors", "128", "-strip", picture], check=True)
        print("report-html", flush=True)


SCENES = {overview: ("stats-overview", "stats-tooltip", "stats-export", "stats-details", "stats-charts", "charts-pie"),
          dark: ("stats-dark", "export-dark"),
          menus: ("stats-tools", "stats-cleanup", "stats-close"),
          twice_as_fine: ("stats-2x", "details-2x"),
          german: ("stats-german",),
          without_code: ("stats-empty", "details-empty"),
          reminder: ("stats-reminder",),
          rules: ("rules-offer", "rules-current"),
          details: ("details-all-columns", "details-filters"),
          details_dark: ("details-images-dark",),
          charts: ("charts-panel", "charts-bars"),
          charts_fine: ("charts-details-2x",),
          charts_growing: ("charts-growing-dark",),
          clean_up: ("cleanup-searching", "cleanup-found", "cleanup-2x-dark"),
          main_screen: ("main-idle", "main-idle-2x", "main-error"),
          drags: ("main-valid", "main-invalid"),
          reading: ("main-reading",),
          report: ("report-page",),
          page: ("report-html",)}


def main():
    shutil.copytree(ROOT / "samples", SAMPLE.parent)
    for scene, names in SCENES.items():
        if not WANTED or WANTED.intersection(names):
            scene()


if __name__ == "__main__":
    main()
