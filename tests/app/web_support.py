"""One run of `station serve` that a test talks to over bare sockets. STATION names the program."""

import os
import re
import shutil
import signal
import socket
import subprocess
import tempfile
import time
import unittest

STATION = os.path.abspath(os.environ["STATION"])


class Answer:
    def __init__(self, raw):
        head, _, self.body = raw.partition(b"\r\n\r\n")
        lines = head.decode("latin-1").split("\r\n")
        self.raw = raw
        self.status = int(lines[0].split()[1]) if lines[0] else 0
        self.headers = [tuple(line.split(": ", 1)) for line in lines[1:]]

    def header(self, name):
        """The only value of that name, or none."""
        values = [value for each, value in self.headers if each.lower() == name.lower()]
        assert len(values) <= 1, (name, values)
        return values[0] if values else None


def read_all(connection):
    """Until the other side ends it, however it does so."""
    raw = b""
    try:
        while chunk := connection.recv(65536):
            raw += chunk
    except ConnectionError:
        pass
    return raw


def read_answer(connection, has_body=True):
    """One answer and nothing of what may follow it, or what has come of it where the other side ends it before."""
    raw = b""
    try:
        while b"\r\n\r\n" not in raw:
            if not (chunk := connection.recv(1)):
                return Answer(raw)
            raw += chunk
        length = int(Answer(raw).header("Content-Length") or 0) if has_body else 0
        while length > 0 and (chunk := connection.recv(min(length, 65536))):
            raw += chunk
            length -= len(chunk)
    except ConnectionError:
        pass
    return Answer(raw)


def is_open(connection):
    """Whether the other side has neither ended the connection nor said anything more."""
    connection.settimeout(0.05)
    try:
        connection.recv(1)
        return False
    except TimeoutError:
        return True
    except ConnectionError:
        return False
    finally:
        connection.settimeout(30)


def seconds_until_cut(connection, start):
    """From `start` until the server ends a connection that sends a byte every half second; None after 20 seconds."""
    connection.settimeout(0.5)
    while time.monotonic() - start < 20:
        try:
            connection.sendall(b"G")
            if not connection.recv(1):
                return time.monotonic() - start
        except TimeoutError:
            pass
        except ConnectionError:
            return time.monotonic() - start
    return None


class ServedTest(unittest.TestCase):
    """`serve` starts the program; it ends with the test and must end well."""

    def setUp(self):
        self.home = tempfile.mkdtemp(prefix="station-web-")
        self.addCleanup(shutil.rmtree, self.home)
        self.server = None

    def serve(self, address="localhost", **environment):
        """Gives the first line that it says about itself; `said` are the others, after the end."""
        self.server = subprocess.Popen(
            [STATION, "serve", "demo", "--http", f"{address}:0"], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            text=True, env={**os.environ, "HOME": self.home, "XDG_DATA_HOME": os.path.join(self.home, "data"), **environment})
        self.addCleanup(self.end)
        line = self.server.stdout.readline()
        self.assertRegex(line, r"http://\S+:\d+/")
        self.port = int(re.search(r":(\d+)/", line).group(1))
        return line

    def end(self, how=signal.SIGTERM):
        """How many seconds the end took."""
        if not self.server:
            return 0
        server, self.server = self.server, None
        start = time.monotonic()
        server.send_signal(how)
        with server:
            try:
                server.wait(timeout=30)
            except subprocess.TimeoutExpired:
                server.kill()
                raise
            took = time.monotonic() - start
            self.said = server.stdout.read()
            self.assertEqual(server.returncode, 0, server.stderr.read())
        return took

    def connect(self, source="127.0.0.1", to="127.0.0.1", timeout=30):
        connection = socket.create_connection((to, self.port), timeout=timeout, source_address=(source, 0))
        self.addCleanup(connection.close)
        return connection

    def ask(self, raw, **keys):
        """The answer to these bytes on a connection of their own."""
        with self.connect(**keys) as connection:
            return self.ask_on(connection, raw)

    def ask_on(self, connection, raw):
        try:
            connection.sendall(raw)
        except ConnectionError:
            pass
        return read_answer(connection, not raw.startswith(b"HEAD "))

    def request(self, target="/", *headers, method="GET", host=None):
        lines = [f"{method} {target} HTTP/1.1", f"Host: {host or f'127.0.0.1:{self.port}'}", *headers]
        return ("\r\n".join(lines) + "\r\n\r\n").encode("latin-1")

    def get(self, target="/", *headers, method="GET", host=None, **keys):
        return self.ask(self.request(target, *headers, method=method, host=host), **keys)
