#!/usr/bin/env python3
"""Looks for links in the documents that lead nowhere: to files, to pictures, and to headings of another document; and for
pictures and pages that nothing leads to.

    check_links.py ROOT
    check_links.py --self-test
"""

import pathlib
import re
import sys
import tempfile

LINK = re.compile(r"""!?\[[^\]]*\]\(([^)\s]+)\)|<(?:img|a) (?:src|href)="([^"]+)\"""")
OUTSIDE = re.compile(r"^[a-z]+:")


def anchors(document):
    """The names under which a document's headings can be linked to."""
    headings = re.findall(r"^#+ +(.+)$", document.read_text(encoding="utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def documents(root):
    return sorted(path for folder in ("", "docs", "packaging", "samples")
                  for path in (root / folder).glob("*.md" if folder in ("", "docs") else "**/*.md"))


def links(document):
    """Where a document leads to within the project."""
    targets = (link or tag for link, tag in LINK.findall(document.read_text(encoding="utf-8")))
    return [target for target in targets if not OUTSIDE.match(target)]


def dead_links(root):
    found = []
    for document in documents(root):
        for target in links(document):
            name, _, anchor = target.partition("#")
            path = document.parent / name if name else document
            if not path.exists():
                found.append("%s: %s is not there" % (document.relative_to(root), target))
            elif anchor and path.suffix == ".md" and anchor not in anchors(path):
                found.append("%s: %s has no such heading" % (document.relative_to(root), target))
    return found


def unused_pictures(root):
    """Pictures that no document shows."""
    texts = "".join(document.read_text(encoding="utf-8") for document in documents(root))
    return ["docs/screenshots/%s is shown nowhere" % picture.name
            for picture in sorted((root / "docs/screenshots").glob("*.png")) if picture.name not in texts]


def unlinked_pages(root):
    """Pages that no reader of the README finds."""
    reached, to_read = set(), [root / "README.md"]
    while to_read:
        document = to_read.pop()
        if document in reached or document.suffix != ".md" or not document.is_file():
            continue
        reached.add(document)
        to_read += [(document.parent / link.partition("#")[0]).resolve() for link in links(document)]
    return ["%s: no link leads there from README.md" % document.relative_to(root)
            for document in documents(root) if document not in reached]


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder).resolve()
        (root / "docs/screenshots").mkdir(parents=True)
        (root / "docs/screenshots/there.png").touch()
        (root / "docs/screenshots/forgotten.png").touch()
        (root / "docs/page.md").write_text("# A heading\n![x](screenshots/there.png) [y](#a-heading)\n")
        (root / "README.md").write_text("[a](docs/page.md#a-heading) [b](docs/page.md#other) ![c](docs/gone.png) "
                                        "[d](https://quillmeter.example/) <img src=\"docs/lost.png\" alt=\"e\">\n")
        (root / "docs/alone.md").write_text("[back](../README.md)\n")
        assert dead_links(root) == ["README.md: docs/page.md#other has no such heading",
                                    "README.md: docs/gone.png is not there",
                                    "README.md: docs/lost.png is not there"], dead_links(root)
        assert unused_pictures(root) == ["docs/screenshots/forgotten.png is shown nowhere"]
        assert unlinked_pages(root) == ["docs/alone.md: no link leads there from README.md"], unlinked_pages(root)


def main():
    if sys.argv[1] == "--self-test":
        self_test()
        return 0
    root = pathlib.Path(sys.argv[1]).resolve()
    problems = dead_links(root) + unused_pictures(root) + unlinked_pages(root)
    print("\n".join(problems))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
