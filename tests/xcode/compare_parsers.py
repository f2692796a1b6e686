#!/usr/bin/env python3
"""Compares the property-list parser with one that others wrote, the npm package @bacons/xcode.

usage: compare_parsers.py DUMP FOLDER [DESCRIPTION …]

DUMP is the program that writes property lists as JSON; FOLDER takes the package and the made-up descriptions. Exit
status 77, and a word why, where node or npm is not there or the package cannot be fetched.

The other parser differs where the format has no one definition; the made-up descriptions keep away from that: a "+" or
a letter beyond ASCII in bare strings, octal escapes from 200, and escapes of characters that need none.
"""
import json
import pathlib
import random
import shutil
import subprocess
import sys

PACKAGE = "@bacons/xcode@1.0.0-alpha.33"
SKIPPED = 77
THEIRS = """
const fs = require("fs");
const { parse } = require("@bacons/xcode/json");
const plain = (value) => {
  if (Buffer.isBuffer(value)) return { data: value.toString("hex") };
  if (Array.isArray(value)) return value.map(plain);
  if (value !== null && typeof value === "object")
    return Object.fromEntries(Object.entries(value).map(([key, inner]) => [key, plain(inner)]));
  return String(value);
};
for (const file of process.argv.slice(2)) {
  try {
    console.log(JSON.stringify(plain(parse(fs.readFileSync(file, "utf8")))));
  } catch (fault) {
    console.log(JSON.stringify("fault: " + fault.message));
  }
}
"""
BARE = "abcxyzABCXYZ0123456789_$/:.-"
PLAIN = BARE + "+ ;={}(),<>'*\tgrößeé日本😀"
ESCAPES = [r"\"", r"\\", r"\n", r"\t", r"\r", r"\a", r"\b", r"\f", r"\v", r"\101", r"\12", r"\U00e4", r"\U20AC",
           r"\Ud83d\Ude00"]


def blank(dice):
    return dice.choice(["", "", "", " ", "\n", "\t", "\r\n", " /* a = b; */ ", " // {c\n", " /**/ "])


def string(dice, key=False):
    if dice.random() < 0.5:
        text = "".join(dice.choices(BARE, k=dice.randint(1, 12)))
        # Two of them begin a comment; numbers are read as such by the other parser and may lose their form.
        return "k" + text
    pieces = dice.choices(PLAIN, k=dice.randint(1 if key else 0, 10))
    pieces += dice.choices(ESCAPES, k=dice.randint(0, 4))
    dice.shuffle(pieces)
    if dice.random() < 0.2:
        return "'" + "".join(piece for piece in pieces if piece != "'") + "'"
    return '"' + "".join(pieces) + '"'


def value(dice, depth):
    kind = dice.random()
    if depth == 0 or kind < 0.5:
        return string(dice)
    if kind < 0.55:
        pairs = ["%02x" % dice.randrange(256) for _ in range(dice.randint(1, 6))]
        return "<" + dice.choice(["", " "]).join(pairs) + ">"
    if kind < 0.75:
        items = [blank(dice) + value(dice, depth - 1) + blank(dice) for _ in range(dice.randint(0, 4))]
        return "(" + ",".join(items) + (dice.choice([",", ""]) if items else "") + blank(dice) + ")"
    return dictionary(dice, depth - 1)


def dictionary(dice, depth):
    keys = [string(dice, key=True) for _ in range(dice.randint(0, 5))]
    keys += keys[:1] if dice.random() < 0.2 else []
    entries = [f"{blank(dice)}{key} = {value(dice, depth)}{blank(dice)};" for key in keys]
    return "{" + "".join(entries) + blank(dice) + "}"


def made_up(folder, count):
    dice = random.Random(2025)
    for number in range(count):
        path = folder / f"{number:04}.pbxproj"
        path.write_bytes(("// !$*UTF8*$!\n" + dictionary(dice, 6) + "\n").encode())
        yield path


def skip(reason):
    print("skipped:", reason)
    sys.exit(SKIPPED)


def fetch(folder):
    if not shutil.which("node") or not shutil.which("npm"):
        skip("node and npm are not there")
    if (folder / "node_modules/@bacons/xcode/package.json").is_file():
        return
    command = ["npm", "install", "--prefix", ".", "--no-audit", "--no-fund", "--ignore-scripts", "--fetch-retries=0",
               PACKAGE]
    try:
        fetched = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120)
    except subprocess.TimeoutExpired:
        skip("npm takes too long")
    if fetched.returncode != 0:
        skip(f"npm cannot fetch {PACKAGE}")


def lines(command, folder):
    output = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, check=True).stdout
    return [json.loads(line) for line in output.decode().split("\n") if line]


def main():
    dump, folder = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    folder.mkdir(parents=True, exist_ok=True)
    fetch(folder)
    (folder / "theirs.js").write_text(THEIRS)
    files = [pathlib.Path(file).resolve() for file in sys.argv[3:]] + list(made_up(folder, 500))
    ours = lines([dump, *files], folder)
    theirs = lines(["node", "theirs.js", *files], folder)
    different = [file for file, mine, other in zip(files, ours, theirs, strict=True) if mine != other]
    for file in different:
        print("read differently:", file)
    print(f"{len(files)} descriptions compared, {len(different)} read differently")
    return 1 if different else 0


if __name__ == "__main__":
    sys.exit(main())
