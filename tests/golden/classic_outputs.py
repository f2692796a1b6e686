#!/usr/bin/env python3
"""Compares what the tool says of the sample project by the classic rules, byte for byte, with what is kept beside this
test. Those numbers and texts never change: users compare them from year to year. A difference is a fault of the
program, never a reason to write the files anew; only a new output makes a new file.

usage: classic_outputs.py TOOL SAMPLES [--write]

--write keeps an output that there is no file for yet.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

KEPT = pathlib.Path(__file__).resolve().parent / "classic"
COMMANDS = {
    "measure.txt": ["measure", "PROJECT"],
    "measure.json": ["measure", "--format", "json", "PROJECT"],
    "measure.csv": ["measure", "--format", "csv", "PROJECT"],
    "cleanup.txt": ["cleanup", "PROJECT"],
    "cleanup.json": ["cleanup", "--format", "json", "PROJECT"],
    "export.csv": ["export", "--csv", "-", "PROJECT"],
    "export-some.csv": ["export", "--csv", "-", "--kinds", "objc,images", "PROJECT"],
    "methods.txt": ["methods", "PROJECT/Model/NoteStore.m", "PROJECT/Search/SearchIndex.cpp", "PROJECT/Support/utf8scan.c"],
    "report.txt": ["export", "--pdf", "-", "PROJECT"],
}


def drawing_of(report):
    """What the pages draw, operator by operator; pictures by their size alone, since fonts of the system are in them."""
    with tempfile.TemporaryDirectory() as folder:
        compressed, plain = f"{folder}/report.pdf", f"{folder}/plain.pdf"
        pathlib.Path(compressed).write_bytes(report)
        subprocess.run(["qpdf", "--qdf", "--object-streams=disable", compressed, plain], check=True)
        text = pathlib.Path(plain).read_bytes().decode("latin-1")
    parts = []
    for match in re.finditer(r"<<(?:(?!>>\nstream).)*?>>\nstream\n(.*?)\nendstream", text, re.S):
        dictionary = match.group(0)[:match.start(1) - match.start(0)]
        if "/Subtype /Image" in dictionary:
            parts.append("picture of %s × %s" % tuple(re.search(name + r" (\d+)", dictionary).group(1)
                                                      for name in ("/Width", "/Height")))
        elif "Tj" in match.group(1):
            parts.append(re.sub(r"\([A-Z][a-z]{2} \d{1,2}, \d{4} \d{1,2}:\d\d [AP]M\) Tj", "(DATE) Tj", match.group(1)))
    boxes = sorted(set(re.findall(r"/MediaBox \[.*?\]", text, re.S)))
    return "\n\n".join([" ".join(box.split()) for box in boxes] + parts) + "\n"


def output_of(tool, command, project):
    words = [word.replace("PROJECT", project) for word in command]
    environment = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "TZ": "UTC"}
    for name in ("ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"):
        if name in os.environ:
            environment[name] = os.environ[name]
    result = subprocess.run([tool, *words], env=environment, stdout=subprocess.PIPE, check=True)
    if "--pdf" in command:
        return drawing_of(result.stdout)
    return result.stdout.decode().replace(project, "PROJECT").replace(os.path.dirname(project), "SAMPLES")


def main():
    tool, samples = sys.argv[1:3]
    may_write = sys.argv[3:] == ["--write"]
    wrong = 0
    with tempfile.TemporaryDirectory() as folder:
        project = f"{os.path.realpath(folder)}/samples/Notebook"
        shutil.copytree(samples, os.path.dirname(project))
        for name, command in COMMANDS.items():
            output, kept = output_of(tool, command, project), KEPT / name
            if may_write and not kept.exists():
                kept.write_bytes(output.encode())
            if not kept.exists() or kept.read_bytes() != output.encode():
                wrong += 1
                print(f"{name} has changed:\n{output}")
    unknown = {file.name for file in KEPT.iterdir()} - set(COMMANDS)
    if unknown:
        print("no command gives", *sorted(unknown))
    return 1 if wrong or unknown else 0


if __name__ == "__main__":
    sys.exit(main())
