#!/usr/bin/env python3
"""Which libraries the tool as it is installed asks the loader for: the system's ICU, whose data would make it twenty times
as large, and nothing of the toolkit or of a display, which a build server does not have.

usage: libraries_test.py INSTALLED
"""

import os
import re
import subprocess
import sys
import unittest

INSTALLED = sys.argv[1]


class LibrariesTest(unittest.TestCase):
    def setUp(self):
        dynamic = subprocess.run(["readelf", "-W", "-d", os.path.join(INSTALLED, "bin/quillmeter-cli")], check=True,
                                 capture_output=True, text=True).stdout
        self.libraries = re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic)

    def test_icu_is_the_systems(self):
        self.assertTrue([name for name in self.libraries if name.startswith("libicuuc.so")], self.libraries)

    def test_neither_the_toolkit_nor_a_display_is_needed(self):
        self.assertEqual([name for name in self.libraries if re.match("libQt|libX|libxcb|libGL|libwayland", name)], [])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
