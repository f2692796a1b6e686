#!/usr/bin/env python3
"""Validates the JSON that the tool writes against its schemas, and the schemas against broken outputs.

usage: check_outputs.py TOOL SCHEMA_DIR SAMPLES_DIR
"""
import copy
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import jsonschema


def closed(schema):
    """The schema without room for members that it does not describe: what is written is written down."""
    if isinstance(schema, list):
        return [closed(item) for item in schema]
    if not isinstance(schema, dict):
        return schema
    result = {key: value if key == "if" else closed(value) for key, value in schema.items()}
    if "properties" in result and isinstance(result.get("type", "object"), (str, list)):
        result["additionalProperties"] = False
    return result


def errors(schema, output):
    return [error.message for error in jsonschema.Draft202012Validator(schema).iter_errors(output)]


# Members that an output may do without.
OPTIONAL = {"rules", "by", "groups"}


def broken(output):
    """The output with one member missing, or one number that is none, at a time; the first item of lists."""
    if isinstance(output, list) and output:
        for item in broken(output[0]):
            yield [item, *output[1:]]
    if isinstance(output, dict):
        for key, value in output.items():
            if key not in OPTIONAL:
                yield {k: v for k, v in output.items() if k != key}
            if isinstance(value, int) and key != "difference":
                yield {**output, key: -1}
            for item in broken_counts(value) if key == "other" else broken(value):
                yield {**copy.deepcopy(output), key: item}


def broken_counts(counts):
    for key in counts:
        yield {**counts, key: -1}


def commands_with_json(tool):
    """The commands that --format json is an option of, as the tool's help has it."""
    def help_of(*command):
        return subprocess.run([tool, *command, "--help"], stdout=subprocess.PIPE, check=True, text=True).stdout

    names = re.findall(r"^  (\w+) {2,}", help_of().split("Subcommands:")[1], re.MULTILINE)
    return {name for name in names if re.search(r"--format \w*:?\{[a-z,]*\bjson\b", help_of(name))}


def run(tool, *arguments):
    done = subprocess.run([tool, *arguments], stdout=subprocess.PIPE, check=True)
    return json.loads(done.stdout)


def compared_by_current_rules(tool, before, after):
    """The comparison of two states of a project of today, as projects and as JSON files."""
    views = after / "Weather/Views"
    (views / "Rain.swift").write_text("let rain = 1\n" * 9)
    (views / "ForecastRow.swift").unlink()
    (after / "Units/Sources/Units/Speed.swift").rename(after / "Weather/Model/Speed.swift")
    store = after / "Weather/Model/ForecastStore.swift"
    store.write_text(store.read_text() + "// Stores.\n")
    rules = ["--rules", "current"]
    comparison = run(tool, "compare", "--format", "json", *rules, before, after)
    changes = {(file["change"], file["filePathBefore"], file["filePath"]) for file in comparison["files"]}
    assert changes == {
        ("added", "Weather/Views/Rain.swift", "Weather/Views/Rain.swift"),
        ("removed", "Weather/Views/ForecastRow.swift", "Weather/Views/ForecastRow.swift"),
        ("moved", "Units/Sources/Units/Speed.swift", "Weather/Model/Speed.swift"),
        ("grown", "Weather/Model/ForecastStore.swift", "Weather/Model/ForecastStore.swift")}, changes
    states = []
    for state in (before, after):
        states.append(state / "numbers.json")
        subprocess.run([tool, "measure", "--format", "json", "-o", states[-1], *rules, state], check=True)
    assert run(tool, "compare", "--format", "json", *states) == comparison
    lines = [sum(file["noLinesTotal"] for file in json.loads(state.read_text())["files"]
                 if file["fileName"].endswith((".swift", ".h"))) for state in states]
    total = comparison["totals"]["noLinesTotal"]
    assert [total["before"], total["after"], total["difference"]] == [*lines, lines[1] - lines[0]], total
    assert comparison["rules"] == "current"
    refused = subprocess.run([tool, "compare", states[0], after], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                             check=False)
    said = refused.stderr.decode().splitlines()[-1]
    assert (refused.returncode, refused.stdout) == (2, b"") and said == (
        "quillmeter-cli: these numbers cannot be compared: the earlier ones are by the current rules, the later ones by "
        "the classic rules; measure both with --rules current, or both without"), (refused, said)
    return comparison


def outputs(tool, samples, folder):
    before = folder / "before"
    after = folder / "after"
    shutil.copytree(samples, before)
    shutil.copytree(samples, after)
    project = after / "Notebook"
    (project / "main.m").write_text("int main() {}\n" * 90)
    (project / "Model/Tag.m").unlink()
    (project / "Moved").mkdir()
    (project / "Model/Note.m").rename(project / "Moved/Note.m")
    changed = project / "Model/Note.h"
    changed.write_text(changed.read_text().replace("//", "/ "))
    baseline = folder / "before.json"
    run_json = ["measure", "--format", "json"]
    subprocess.run([tool, *run_json, "-o", baseline, before / "Notebook"], check=True)
    yield "measure", json.loads(baseline.read_text())
    yield "measure", run(tool, *run_json, project)
    current = ["--rules", "current", before / "Weather"]
    yield "measure", run(tool, *run_json, *current)
    yield "measure", run(tool, *run_json, "--by", "target", *current)
    yield "references", run(tool, "references", "--format", "json", *current)
    yield "compare", compared_by_current_rules(tool, before / "Weather", after / "Weather")
    misspelt = folder / "Misspelt"
    (misspelt / "App.xcodeproj").mkdir(parents=True)
    (misspelt / "Main.m").touch()
    (misspelt / "App.xcodeproj/project.pbxproj").write_text(
        "/* Begin PBXFileReference section */\n1 /* main.m */ = {path = main.m; };\n/* End PBXFileReference section */")
    yield "references", run(tool, "references", "--format", "json", misspelt)
    yield "cleanup", run(tool, "cleanup", "--format", "json", project)
    yield "methods", run(tool, "methods", "--format", "json", project / "main.m", changed)
    comparison = run(tool, "compare", "--format", "json", baseline, project)
    assert {file["change"] for file in comparison["files"]} >= {"grown", "removed", "moved"}, comparison["files"]
    yield "compare", comparison
    backwards = run(tool, "compare", "--format", "json", project, before / "Notebook")
    assert "added" in {file["change"] for file in backwards["files"]}
    yield "compare", backwards
    yield "compare", run(tool, "measure", "--baseline", baseline, "--format", "json", "--top", "1", project)


def main():
    tool, schema_folder, samples = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    faults = []
    seen = set()
    checked = 0
    with tempfile.TemporaryDirectory() as folder:
        for name, output in outputs(tool, samples, pathlib.Path(folder)):
            seen.add(name)
            schema = json.loads((schema_folder / f"{name}.schema.json").read_text())
            jsonschema.Draft202012Validator.check_schema(schema)
            faults += [f"{name}: {error}" for error in errors(closed(schema), output)]
            for bad in broken(output):
                if not errors(schema, bad):
                    faults.append(f"{name}: the schema takes a broken output: {json.dumps(bad)[:300]}")
                checked += 1
    faults += [f"{name}: no output was checked" for name in sorted(commands_with_json(tool) - seen)]
    print("\n".join(faults) or f"the outputs are as described; {checked} broken ones are not")
    return 1 if faults or checked < 50 else 0


if __name__ == "__main__":
    sys.exit(main())
