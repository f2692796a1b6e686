#!/bin/sh
# Compares the start of the application with that of a bare window of the toolkit, in one run, and measures how long the
# interface is deaf while a large project is opened. Usage: bench/app.sh BUILD_FOLDER, on a display.
set -eu
bin=${1:?usage: bench/app.sh BUILD_FOLDER}/bin

python3 - "$bin/quillmeter_bare_window_start" "$bin/quillmeter_main_screen_start" <<'END'
import statistics, subprocess, sys, time
times = {program: [] for program in sys.argv[1:]}
for run in range(31):
    for program in times:
        start = time.perf_counter()
        subprocess.run([program], check=True, stderr=subprocess.DEVNULL)
        if run:  # the first one warms the caches
            times[program].append(time.perf_counter() - start)
bare, screen = (statistics.median(times[program]) * 1000 for program in sys.argv[1:])
print("start to first paint: bare window %.1f ms, main screen %.1f ms, ratio %.2f" % (bare, screen, screen / bare))
END
"$bin/quillmeter_responsiveness"
