#!/usr/bin/env python3
"""Whether run_commands.py finds the commands of a document, and what is wrong with them."""
import pathlib
import tempfile

import not_run
import run_commands
from document_commands import UnknownBlock, commands

TEXT = """Text quillmeter-cli no

    quillmeter-cli a \\
      --b   # ends with status 1
    other

    # a comment

```sh
$ echo "one two"
one …

three
$ cat > file <<'END'
$ no command
END
$ quillmeter-cli c
quillmeter-cli: an error

```
    not a block after text? yes: quillmeter-cli d
```text
quillmeter-cli no
```

```yaml
job:
  before_script: [first]
  script:
    - second
  steps:
    - run: |
        third
        fourth
    - uses: something
```
"""


def check_parsing():
    found = list(commands(TEXT))
    assert [c.text for c in found] == [
        "quillmeter-cli a \\\n  --b   # ends with status 1", "other", 'echo "one two"',
        "cat > file <<'END'\n$ no command\nEND", "quillmeter-cli c", "first", "second", "third", "fourth"], \
        [c.text for c in found]
    listed = list(commands("1. Then\n\n       $ a\n       b\n         c\n\n   ```sh\n   d\n   ```\n"))
    listed = [(command.text, command.output) for command in listed]
    assert listed == [("a", ["b", "  c", ""]), ("d", None)], listed
    assert found[0].status() == 1 and found[0].output is None and found[0].line_number == 3
    assert found[1].status() == 0 and found[1].without_comment() == "other"
    assert found[2].output == ["one …", "", "three"] and found[4].output == ["quillmeter-cli: an error", ""]
    assert found[5].line_number == TEXT.splitlines().index("job:") + 1
    for text in ("```fish\nls\n```\n", "    output\n    $ command\n"):
        try:
            list(commands("\n" + text))
            raise AssertionError(text)
        except UnknownBlock:
            pass


def check_matching():
    assert run_commands.matches(["one …", "", "three", ""], "one two\n\nthree\n")
    assert not run_commands.matches(["one …"], "one two\nthree\n")
    assert run_commands.matches(["…", "c"], "a\nb\nc\n") and not run_commands.matches(["…", "c"], "a\nb\n")


def check_running(folder):
    (folder / "samples").mkdir()
    (folder / "quillmeter-cli").write_text("#!/bin/sh\necho $1 $KEPT; exit 3\n")
    (folder / "quillmeter-cli").chmod(0o755)
    document = folder / "d.md"
    for shown, expected in {
            "$ quillmeter-cli x # status 3\n    x": 0, "$ quillmeter-cli x # status 3\n    y": 1,
            "$ quillmeter-cli x\n    x": 1, "status3": 1, "false   # status 1": 0, "quillmeter PROJECT": 0,
            "cd samples\n    export KEPT=k\n    (quillmeter-cli; pwd) | grep -e k -e samples": 0,
            "cd samples\n\n```fish\n```": 1, "scripts/test": 0, "scripts/test && scripts/run": 0,
            "scripts/test && quillmeter-cli x": 1}.items():
        document.write_text("\n\n    " + shown + "\n")
        assert len(list(run_commands.faults(document, folder, folder))) == expected, shown


def check_list(folder):
    (folder / "scripts").mkdir()
    (folder / "scripts/run").touch()
    (folder / "CMakePresets.json").write_text('{"configurePresets": [{"name": "dev"}]}')
    document = folder / "d.md"
    document.write_text("\n    scripts/run\n    scripts/running\n    cmake --preset dev\n    cmake --preset gone\n")
    found = list(run_commands.faults_of_list([document], folder))
    unused = [fault for fault in found if fault.startswith("not_run.py")]
    assert len(unused) == len(not_run.NOT_RUN) - 2, found
    assert [fault for fault in found if fault not in unused] == [
        "scripts/running: there is no scripts/running", "cmake --preset gone: there is no preset gone"], found


def main():
    check_parsing()
    check_matching()
    with tempfile.TemporaryDirectory() as name:
        check_running(pathlib.Path(name))
        check_list(pathlib.Path(name))


if __name__ == "__main__":
    main()
