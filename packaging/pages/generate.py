#!/usr/bin/env python3
"""Makes the pages and the completions of a program from what it says to --help.

usage: generate.py page PROGRAM TEMPLATE VERSION DATE PAGE     a man page, and beside it the same compressed (PAGE.gz)
       generate.py completions PROGRAM FOLDER                  bash, zsh and fish files in FOLDER
       generate.py changelog MAINTAINER VERSION DATE FILE      the changelog of a package, compressed
"""

import datetime
import email.utils
import gzip
import pathlib
import sys

from completions import completions
from man_page import page


def write_compressed(text, path):
    # The same bytes whenever they are made.
    with open(path, "wb") as raw, gzip.GzipFile("", "wb", 9, raw, mtime=0) as stream:
        stream.write(text)


def changelog(maintainer, version, date):
    day = email.utils.format_datetime(datetime.datetime.fromisoformat(date + "T00:00:00+00:00"))
    return f"""quillmeter ({version}) bookworm; urgency=medium

  * The release of this version.

 -- {maintainer}  {day}
"""


def main(what, *arguments):
    if what == "page":
        program, template, version, date, path = arguments
        text = page(pathlib.Path(template).read_text(encoding="utf-8"), program, version, date).encode()
        pathlib.Path(path).write_bytes(text)
        write_compressed(text, path + ".gz")
    elif what == "completions":
        program, folder = arguments
        for shell, text in completions(program).items():
            (pathlib.Path(folder) / shell).write_text(text, encoding="utf-8")
    elif what == "changelog":
        write_compressed(changelog(*arguments[:3]).encode(), arguments[3])
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(*sys.argv[1:])
