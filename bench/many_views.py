#!/usr/bin/env python3
"""Measures what many pages cost: many_views.py PROGRAM BARE_PROGRAM [RUNS]

Ours with twenty watch windows, a multi-link of twelve pages in cells of their own, and ten tabs,
each of which was looked at; the bare program with as many views, in windows of their own. Told is
the proportional set size of the process tree once it has settled, and how many processes there are.
"""

import json
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "tests" / "system"))
import controls  # noqa: E402
import driver  # noqa: E402
import whole_program  # noqa: E402

WATCHES, CELLS, TABS = 20, 12, 10
VIEWS = 1 + WATCHES + CELLS + TABS  # and the pane of the multi-link
GOAL = 1.05
PATIENCE = 120


def serve(server, name, count):
    """Pages with some text and a picture; their paths."""
    paths = [f"/{name}{number}" for number in range(1, count + 1)]
    for path in paths:
        server.pages[path] = (f"<title>{path}</title><h1>{path}</h1>" +
                              "<p>Shares closed higher after results.</p>" * 60 +
                              "<svg width=300 height=200><circle r=90 cx=100 cy=100 /></svg>")
    return paths


def settle(program, server, paths):
    for path in paths:
        server.wait_for_request(path, seconds=PATIENCE)
    tree = whole_program.process_tree(program.process.pid)
    return whole_program.settled_memory(program.process.pid), len(tree)


def bare(binary, server, _folder):
    paths = serve(server, "view", VIEWS)
    addresses = [f"http://{server.host}{path}" for path in paths]
    with driver.Program(binary, addresses[0], addresses[0], *addresses[1:]) as program:
        return settle(program, server, paths)


def ours(binary, server, folder):
    profile = Path(folder) / "profile"
    profile.mkdir()
    cells = serve(server, "cell", CELLS)
    tabs = serve(server, "tab", TABS)
    watches = serve(server, "watch", WATCHES)
    kept = [f"Tab{number}={server.host}{path}\nTabTitle{number}=tab"
            for number, path in enumerate(tabs, 1)]
    kept += [f"Watch{number}={server.host}{path}\nWatchTitle{number}=w{number}\n"
             f"WatchSeconds{number}=3600\nWatchTells{number}=False"
             for number, path in enumerate(watches, 1)]
    (profile / "settings.ini").write_text(
        "[Settings]\nFirst=OK\nStocks1=MSFT|\nKeepPages=True\nCustom101=MULTILINK:Cells.mlnk\n"
        "CustomT101=Cells\nCustomC101=4\n[frmMain]\nTop=50\nLeft=50\nHeight=13500\nWidth=19200\n"
        "[Pages]\n" + "\n".join(kept) + "\n")
    frames = "".join('<IFRAME height="100%" width="100%" SCROLLING=Yes '
                     f'SRC="http://{server.host}{path}"></IFRAME>\r\n' for path in cells)
    (profile / "Cells.mlnk").write_text(f"<html><body>{frames}</body></html>\r\n")
    sites = Path(folder) / "all-sites.toml"
    sites.write_text(f'[hosts]\ndefault = "http://{server.host}"\n')
    with driver.Program(binary, "--web", "direct", "--sites", sites, profile=profile) as program:
        window = program.main_window()
        for path in watches:
            server.wait_for_request(path, seconds=PATIENCE)
        driver.xdotool("windowactivate", "--sync", program.window_id())
        for path in tabs:
            driver.press("ctrl+Tab")
            server.wait_for_request(path, seconds=PATIENCE)
        driver.press("ctrl+Tab")
        controls.select(window, "MSFT")
        window.find(name="Cells").click()
        return settle(program, server, cells)


def work(kind, options):
    """One start; its figures as a line. A display of its own, so that no other program draws."""
    with driver.desktop(), driver.Server() as server, tempfile.TemporaryDirectory() as folder:
        print(json.dumps(kind(options[0], server, folder)))


def main():
    programs = {"bare": sys.argv[2], "ours": sys.argv[1]}
    if len(sys.argv) > 3 and sys.argv[3] in programs:
        work(bare if sys.argv[3] == "bare" else ours, [programs[sys.argv[3]]])
        return
    runs = int(sys.argv[3]) if len(sys.argv) > 3 else 3
    figures = {kind: [] for kind in programs}
    for _ in range(runs):
        for kind in programs:
            answer = subprocess.run([sys.executable, "-B", __file__, *sys.argv[1:3], kind],
                                    check=True, capture_output=True, text=True)
            figures[kind].append(json.loads(answer.stdout))
    held = {kind: statistics.median(memory for memory, _ in figures[kind]) for kind in programs}
    print(f"\n{VIEWS} pages at once ({WATCHES} watch windows, {CELLS} cells, {TABS} tabs), medians "
          f"of {runs} runs")
    for kind in programs:
        print(f"{kind:6}{held[kind]:10.1f} MB{figures[kind][0][1]:6} processes")
    print(f"ratio {held['ours'] / held['bare']:10.2f}   goal {GOAL:.2f}")


if __name__ == "__main__":
    main()
