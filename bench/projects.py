#!/usr/bin/env python3
"""Project-scale benchmarks, run by bench/run.sh.

Generates projects with tools/gen-project (kept under BUILD/bench-projects, made
again only when missing) for N database entries in {100, 1,000, 10,000} and
H x C in {10 x 50, 50 x 500}, then measures:
  - opening (data files + HUD document + the first HUD onto the canvas), a
    change of HUD between the two largest HUDs, saving, and a bare JSON parse
    and compact write of the same document, in process (velmora-bench-project);
  - velmora-cli check, resave and outline of the 50 x 500 projects, as
    processes;
  - the editor's peak resident memory after opening the 50 x 500 project;
  - velmora-cli render of every HUD of the 100 / 50 x 500 project at zoom 1
    and 2, in total and per HUD;
  - Tiled against velmora-cli resave (bench/peer.sh).
Prints one table of medians.

    python3 bench/projects.py BUILD RUNS
"""
import os
import shutil
import statistics
import subprocess
import sys
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SIZES = [(n, h, c) for n in (100, 1000, 10000) for (h, c) in ((10, 50), (50, 500))]


def project_path(build, n, h, c):
    return os.path.join(build, "bench-projects", "n%d-%dx%d" % (n, h, c))


def generate(build):
    for n, h, c in SIZES:
        path = project_path(build, n, h, c)
        if not os.path.exists(os.path.join(path, "data", "plugin", "VelmoraHUD.json")):
            subprocess.run([os.path.join(ROOT, "tools", "gen-project"), "--out", path, "--entries", str(n),
                            "--huds", str(h), "--components", str(c), "--depth", "4", "--seed", "7"],
                           check=True, stdout=subprocess.DEVNULL)


def median_ms(command, runs, env):
    times = []
    for _ in range(runs):
        start = time.perf_counter()
        subprocess.run(command, check=True, env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        times.append((time.perf_counter() - start) * 1000)
    return statistics.median(times)


def peak_resident_mb(build, project, env):
    """Starts the editor on the project (offscreen) and reads its peak resident
    memory once it has settled: VmHWM unchanged for two seconds."""
    home = os.path.join(build, "bench-home")
    os.makedirs(home, exist_ok=True)
    child_env = dict(env, HOME=home, XDG_CONFIG_HOME=os.path.join(home, "config"),
                     XDG_DATA_HOME=os.path.join(home, "data"), XDG_CACHE_HOME=os.path.join(home, "cache"))
    editor = subprocess.Popen([os.path.join(build, "bin", "velmora"), project], env=child_env,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    peak, steady_since, deadline = 0, time.time(), time.time() + 60
    try:
        while time.time() < deadline and time.time() - steady_since < 2:
            time.sleep(0.1)
            with open("/proc/%d/status" % editor.pid) as status:
                for line in status:
                    if line.startswith("VmHWM:"):
                        value = int(line.split()[1])
                        if value != peak:
                            peak, steady_since = value, time.time()
    finally:
        editor.kill()
        editor.wait()
    return peak / 1024


def render_table(build, runs, env):
    """velmora-cli render of every HUD of the 50 x 500 project. Per HUD is the
    total less the opening of the project (timed by check), divided by the
    number of pictures written."""
    cli = os.path.join(build, "bin", "velmora-cli")
    project = project_path(build, 100, 50, 500)
    out = os.path.join(build, "bench-render")
    opening = median_ms([cli, "check", project], runs, env)
    print("| project | zoom | HUDs drawn | total ms | per HUD ms |")
    print("|---|---|---|---|---|")
    for zoom in ("1", "2"):
        shutil.rmtree(out, ignore_errors=True)
        total = median_ms([cli, "render", project, "--out", out, "--zoom", zoom], runs, env)
        drawn = len([name for name in os.listdir(out) if name.endswith(".png")])
        print("| %s | %s | %d | %.0f | %.1f |" % (os.path.basename(project), zoom, drawn, total,
                                                (total - opening) / max(drawn, 1)))
    sys.stdout.flush()


def main():
    build, runs = sys.argv[1], int(sys.argv[2])
    env = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    generate(build)
    projects = [project_path(build, *size) for size in SIZES]

    result = subprocess.run([os.path.join(build, "bin", "velmora-bench-project"), str(runs)] + projects,
                            check=True, env=env, capture_output=True, text=True)
    rows = {}
    for line in result.stdout.splitlines()[1:]:
        name, data, document, first, opened, change, save, bare = line.split("\t")
        rows[name] = dict(data=data, document=document, first=first, open=opened, change=change, save=save,
                          bare=bare)

    cli = os.path.join(build, "bin", "velmora-cli")
    print("| project | data ms | document ms | first HUD ms | open ms | HUD change ms | save ms | bare JSON ms "
          "| check ms | resave ms | outline ms | editor peak MB |")
    print("|---|---|---|---|---|---|---|---|---|---|---|---|")
    for (n, h, c), path in zip(SIZES, projects):
        name = os.path.basename(path)
        row = rows[name]
        check = resave = outline = peak = "-"
        if c == 500:
            check = "%.0f" % median_ms([cli, "check", path], runs, env)
            resave = "%.0f" % median_ms([cli, "resave", path, "--out", os.path.join(build, "bench-resave.json")],
                                        runs, env)
            outline = "%.0f" % median_ms([cli, "outline", path], runs, env)
            peak = "%.0f" % peak_resident_mb(build, path, env)
        print("| %s | %s | %s | %s | %s | %s | %s | %s | %s | %s | %s | %s |"
              % (name, row["data"], row["document"], row["first"], row["open"], row["change"], row["save"],
                 row["bare"], check, resave, outline, peak))
    sys.stdout.flush()
    print()
    render_table(build, runs, env)
    print()
    subprocess.run(["bash", os.path.join(ROOT, "bench", "peer.sh"), str(runs),
                    project_path(build, 100, 10, 50), project_path(build, 100, 50, 500)], check=True,
                   env=dict(os.environ, VELMORA_BUILD=build))


if __name__ == "__main__":
    main()
