"""The web that the driven program sees: a server on the loopback interface that remembers what was
asked of it."""

import contextlib
import http.server
import threading
import time

PATIENCE = 30.0  # seconds that anything is waited for


class Server:
    """A web server on the loopback interface. `pages` maps a path with its query to a body; any
    other address gives a small page that names it. `headers` maps a path to further headers of its
    answer. `services` maps a path without its query to a function that gives the type and the body
    of an answer to a path, with a status behind them if it is not 200, or None to hang up. `held`
    maps a path to an event that the second half of its answer waits for.
    `requests` is what was asked for, in order."""

    def __init__(self):
        self.pages = {}
        self.headers = {}
        self.services = {}
        self.held = {}
        self.requests = []
        self._changed = threading.Condition()
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                # A circumflex comes as it is from one client and percent-encoded from another.
                path = self.path.replace("%5E", "^").replace("%5e", "^")
                with server._changed:
                    server.requests.append((time.monotonic(), path))
                    server._changed.notify_all()
                kind, body, status = "text/html; charset=utf-8", server.pages.get(path), []
                if service := server.services.get(path.partition("?")[0]):
                    if (answer := service(path)) is None:
                        return
                    kind, body, *status = answer
                if body is None:
                    body = f"<html><head><title>{path}</title></head>" \
                           f"<body><h1>Page {path}</h1></body></html>"
                data = body.encode()
                self.send_response(*(status or [200]))
                self.send_header("Content-Type", kind)
                self.send_header("Content-Length", str(len(data)))
                for header, value in server.headers.get(path, {}).items():
                    self.send_header(header, value)
                self.end_headers()
                with contextlib.suppress(BrokenPipeError, ConnectionResetError):
                    if event := server.held.get(path):
                        self.wfile.write(data[:len(data) // 2])
                        self.wfile.flush()
                        event.wait()
                        data = data[len(data) // 2:]
                    self.wfile.write(data)

            def log_message(self, *_):
                pass

        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self._server.daemon_threads = True
        self.host = "127.0.0.1:%d" % self._server.server_address[1]
        threading.Thread(target=self._server.serve_forever, daemon=True).start()

    def paths(self):
        with self._changed:
            return [path for _, path in self.requests]

    def count(self, path):
        return self.paths().count(path)

    def wait_for_request(self, path, times=1, seconds=PATIENCE):
        """Waits until a path was asked for so many times; gives the moment of the last time."""
        with self._changed:
            def moments():
                return [moment for moment, asked in self.requests if asked == path]
            if not self._changed.wait_for(lambda: len(moments()) >= times, seconds):
                raise AssertionError(f"no request for {path} (wanted {times}); there were "
                                     f"{[asked for _, asked in self.requests]}")
            return moments()[times - 1]

    def close(self):
        self._server.shutdown()
        self._server.server_close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
