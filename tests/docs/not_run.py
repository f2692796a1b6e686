"""The commands of the documents that no test can run, each with the reason. A pattern may hold "*". A program or script
of the repository that one begins with must exist, and so must a preset that it names."""
import fnmatch
import json
import re

BUILDS = "builds the project, which takes minutes; continuous integration runs the same presets"
MEASURES_SPEED = "takes minutes and a quiet machine"
INSTALLS = "installs, with the superuser's rights"
TALKS = "talks to a server"

NOT_RUN = {
    "scripts/run*": BUILDS,
    "scripts/test*": "runs this test",
    "cmake --preset *": BUILDS,
    "cmake --build *": BUILDS,
    "ctest --preset *": "runs this test",
    "scripts/package*": "builds and installs packages; the packages are tried by the script itself",
    "cmake --install *": INSTALLS,
    "apt install *": INSTALLS,
    "apt-get update": INSTALLS,
    "apt-get install *": INSTALLS,
    "curl *": TALKS,
    "gh *": TALKS,
    "quillmeter *PROJECT": "opens windows until they are closed; the tests in tests/ui and tests/app drive them",
    "bench/*": MEASURES_SPEED,
    "build/bench/bin/*": MEASURES_SPEED,
}


def parts(command):
    """The commands that "&&" joins."""
    return command.split(" && ")


def reason(command):
    """Why a command cannot be run by a test; None for one that can. Of joined ones none can, or it is run."""
    reasons = [next((why for pattern, why in NOT_RUN.items() if fnmatch.fnmatchcase(part, pattern)), None)
               for part in parts(command)]
    return None if None in reasons else reasons[0]


def unused(commands):
    """The patterns that none of the commands needs."""
    return [pattern for pattern in NOT_RUN
            if not fnmatch.filter([part for command in commands for part in parts(command)], pattern)]


def mistakes(command, sources):
    """What in the repository such a command names in vain."""
    presets = json.loads((sources / "CMakePresets.json").read_text(encoding="utf-8"))["configurePresets"]
    names = {preset["name"] for preset in presets}
    for preset in re.findall(r"--preset (\S+)", command):
        if preset not in names:
            yield f"there is no preset {preset}"
    program = command.split()[0]
    if "/" in program and not program.startswith("build/") and not (sources / program).is_file():
        yield f"there is no {program}"
