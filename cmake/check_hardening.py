#!/usr/bin/env python3
"""Reads programs as the loader would and names what of the release's hardening they lack.

usage: check_hardening.py PROGRAM …             exit status 1 and a line for each thing that is missing
       check_hardening.py --lacks-all PROGRAM   exit status 1 unless all of it is missing: checks this checker
"""
import platform
import re
import subprocess
import sys


NO_COPIES = "access to the toolkit's data in its own place (-mno-direct-extern-access)"
# What a program has without being asked: every linker here keeps code off the stack, and not all use the toolkit.
GIVEN = ("a stack that holds no code", NO_COPIES)


def readelf(option, program):
    return subprocess.run(["readelf", "-W", option, program], check=True, capture_output=True, text=True).stdout


def code_of(program):
    """The bytes of the section .text."""
    section = re.search(r"\s\.text\s+PROGBITS\s+\S+\s+(\S+)\s+(\S+)", readelf("-S", program))
    offset, size = (int(number, 16) for number in section.groups())
    with open(program, "rb") as file:
        file.seek(offset)
        return file.read(size)


def checks(program):
    """Pairs of what is looked for and whether it is there."""
    segments, dynamic, symbols = readelf("-l", program), readelf("-d", program), readelf("--dyn-syms", program)
    stack = re.search(r"GNU_STACK.*", segments)
    yield "read-only relocations (-z relro)", "GNU_RELRO" in segments
    yield "immediate binding (-z now)", bool(re.search(r"FLAGS_1.*\bNOW\b|\(BIND_NOW\)|FLAGS\).*BIND_NOW", dynamic))
    yield "position independence (-pie)", bool(re.search(r"FLAGS_1.*\bPIE\b", dynamic))
    yield "a stack that holds no code", bool(stack) and "RWE" not in stack.group()
    # The toolkit's libraries use their own data, not a program's copy of it: such a program crashes at its start.
    yield NO_COPIES, not re.search(r"_COPY\b.*\b_Z\w*\dQ[A-Z]", readelf("-r", program))
    yield "stack protector", "__stack_chk_fail" in symbols
    yield "checked calls of the C library (_FORTIFY_SOURCE)", bool(re.search(r"__(read|memcpy|memset|memmove|fprintf|printf)_chk", symbols))
    yield "checked containers (_GLIBCXX_ASSERTIONS)", "__glibcxx_assert_fail" in symbols
    if platform.machine() == "x86_64":
        code = code_of(program)
        yield "stack-clash protection", b"\x48\x83\x0c\x24\x00" in code  # orq $0,(%rsp): a page of the stack is touched
        # The C library's own start has one or two of them.
        yield "control-flow protection", code.count(b"\xf3\x0f\x1e\xfa") > 5  # endbr64


def main():
    arguments = sys.argv[1:]
    lacks_all = arguments[:1] == ["--lacks-all"]
    wrong = 0
    for program in arguments[1:] if lacks_all else arguments:
        for what, found in checks(program):
            if lacks_all and what in GIVEN:
                continue
            if found == lacks_all:
                wrong += 1
                print(f"{program}: {'has' if found else 'lacks'} {what}")
    return 1 if wrong or not arguments else 0


if __name__ == "__main__":
    sys.exit(main())
