#!/usr/bin/env python3
"""Runs the program behind ./dev probe on tables that lead to a server of the loopback interface."""

import http.server
import pathlib
import subprocess
import sys
import tempfile
import threading
import tomllib

program, data = sys.argv[1], pathlib.Path(sys.argv[2])
asked = []


class Handler(http.server.BaseHTTPRequestHandler):
    def do_GET(self):
        asked.append((self.path, self.headers["User-Agent"]))
        missing = self.path.startswith("/missing")
        self.send_response(404 if missing else 200)
        self.send_header("Content-Type", "text/html")
        self.end_headers()
        self.wfile.write(b"<html>a page</html>")

    def log_message(self, *_):
        pass


def servers(count):
    """One for each kind of question, since a host is asked with pauses."""
    for _ in range(count):
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        yield "http://127.0.0.1:%d" % server.server_address[1]


def run(*options):
    return subprocess.run([program, *map(str, options)], capture_output=True, text=True,
                          timeout=60)


links, menus, *hosts = servers(2 + 7)
with tempfile.TemporaryDirectory() as folder:
    folder = pathlib.Path(folder)
    table = [f'[hosts]\ndefault = "{links}"\n[links]\n3 = "{links}/quote/{{upper}}"\n'
             f'15 = "{links}/missing"\n16 = "portal:"\n']
    # Whatever the menus lead to leads to one page here, so that nothing asks the network.
    for array, items in tomllib.loads((data / "menus.toml").read_text()).items():
        table.append(f"[menus.{array}]\n" + "".join(f'{n} = "{menus}/menu"\n' for n in items))
    (folder / "table.toml").write_text("".join(table))
    sources = tomllib.loads((data / "sources.toml").read_text())["sources"]
    (folder / "sources.toml").write_text("".join(
        f'[sources.{key}]\nrequest = "{host}/{key}"\n'
        for key, host in zip(sources, hosts, strict=True)))
    (folder / "sites.toml").write_text(f'[links]\n29 = "{links}/mine/{{lower}}"\n')

    result = run("--profile", folder, "--sites", folder / "table.toml")
    lines = result.stdout.splitlines()
    assert result.returncode == 1, result
    assert f"good      links.3  {links}/quote/MSFT" in lines, result.stdout
    assert f"good      links.29  {links}/mine/msft" in lines, "a row of the user's own"
    assert f"bad       links.15  {links}/missing  status 404" in lines, result.stdout
    for key in sources:
        line = next(line for line in lines if f"sources.{key} " in line)
        assert line.startswith("doubtful") and "the source refuses programs" in line, line
    assert lines[-1] == "3 good, 7 doubtful, 1 bad", lines[-1]
    paths = [path.split("?")[0] for path, _ in asked]
    of_sources = {f"/{key}" for key in sources}
    assert sorted(path for path in paths if path in of_sources) == sorted(of_sources), asked
    # For a page the network library may ask again when the connection ends with the answer.
    assert set(paths) - of_sources == {"/quote/MSFT", "/missing", "/mine/msft", "/menu"}, asked
    assert all("Tallowmere" in agent for _, agent in asked), asked
    assert run("--sites", folder / "none.toml", "--profile", folder).returncode == 2

assert run("--nonsense").returncode == 2
