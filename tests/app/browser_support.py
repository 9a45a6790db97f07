"""What a test needs that looks at pages with a browser: Chromium without a window, driven over its DevTools protocol.
STATION names the program."""

import base64
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest
import urllib.request

from window_support import STATION, wait_for

try:
    import websocket
except ImportError:
    websocket = None

CHROMIUM = shutil.which("chromium")
FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-sync",
         "--disable-background-networking", "--disable-component-update", "--remote-debugging-port=0",
         "--remote-allow-origins=*"]
PROBLEM_EVENTS = ("Runtime.exceptionThrown", "Log.entryAdded", "Runtime.consoleAPICalled", "Network.loadingFailed")


class Server:
    """station serve SITE on a free port."""

    def __init__(self, site, environment, *words):
        self.program = subprocess.Popen([STATION, "serve", site, "--http", "127.0.0.1:0", *words],
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, env=environment)
        self.url = self.program.stdout.readline().split()[-1]

    def get(self, path):
        with urllib.request.urlopen(self.url[:-1] + path, timeout=60) as answer:
            return answer.read().decode()

    def end(self):
        self.program.send_signal(signal.SIGTERM)
        _, errors = self.program.communicate(timeout=60)
        assert self.program.returncode == 0, errors


class Browser:
    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self.process = subprocess.Popen([CHROMIUM, *FLAGS, "--user-data-dir=" + self.folder.name, "about:blank"],
                                        stderr=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
        port_file = pathlib.Path(self.folder.name, "DevToolsActivePort")
        wait_for(lambda: port_file.exists() and "\n" in port_file.read_text(), "Chromium started")
        self.port = int(port_file.read_text().splitlines()[0])

    def targets(self):
        with urllib.request.urlopen(f"http://127.0.0.1:{self.port}/json", timeout=30) as answer:
            return [each for each in json.load(answer) if each["type"] == "page"]

    def page(self):
        """A new tab."""
        request = urllib.request.Request(f"http://127.0.0.1:{self.port}/json/new?about:blank", method="PUT")
        with urllib.request.urlopen(request, timeout=30) as answer:
            return Page(json.load(answer)["webSocketDebuggerUrl"])

    def end(self):
        self.process.terminate()
        self.process.wait(timeout=30)
        self.folder.cleanup()


class Page:
    """One tab. `problems` are the errors that its console shows."""

    def __init__(self, address):
        self.socket = websocket.create_connection(address, timeout=60)
        self.count = 0
        self.events = []
        for domain in ("Page", "Runtime", "Log", "Network", "Accessibility", "DOM"):
            self.do(domain + ".enable")

    def do(self, method, **parameters):
        self.count += 1
        self.socket.send(json.dumps({"id": self.count, "method": method, "params": parameters}))
        while True:
            message = json.loads(self.socket.recv())
            if "method" in message:
                self.events.append(message)
            elif message["id"] == self.count:
                assert "error" not in message, (method, message)
                return message["result"]

    def ask(self, expression):
        """The value of an expression in the page."""
        result = self.do("Runtime.evaluate", expression=expression, returnByValue=True, awaitPromise=True)
        assert "exceptionDetails" not in result, result
        return result["result"].get("value")

    def open(self, url):
        self.events.clear()
        self.do("Page.navigate", url=url)
        wait_for(lambda: self.ask("document.readyState") == "complete" and self.ask("location.href") != "about:blank",
                 url)

    def resize(self, width, height, scale=1):
        self.do("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=scale,
                mobile=width < 600)

    def set_scheme(self, scheme):
        self.do("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": scheme}])

    def key(self, key, code=0):
        for kind in ("keyDown", "keyUp"):
            self.do("Input.dispatchKeyEvent", type=kind, key=key, code=key, windowsVirtualKeyCode=code,
                    text="\r" if key == "Enter" and kind == "keyDown" else "")

    def picture(self, file):
        with open(file, "wb") as out:
            out.write(base64.b64decode(self.do("Page.captureScreenshot")["data"]))

    def accessible(self, role):
        """The names of all elements of that role, as a screen reader gets them."""
        nodes = self.do("Accessibility.getFullAXTree")["nodes"]
        return [node["name"]["value"] for node in nodes
                if not node["ignored"] and node["role"]["value"] == role and "name" in node]

    def problems(self):
        self.ask("0")
        return [event for event in self.events if event["method"] in PROBLEM_EVENTS
                and not event["params"].get("canceled")]

    def close(self):
        self.do("Page.close")
        self.socket.close()


def needs_browser(test_class):
    missing = [name for name, there in (("chromium", CHROMIUM), ("python3-websocket", websocket)) if not there]
    if missing:
        print(f"{test_class.__name__} is SKIPPED: it needs {', '.join(missing)}", file=sys.stderr)
    return unittest.skipIf(missing, "needs " + ", ".join(missing))(test_class)
