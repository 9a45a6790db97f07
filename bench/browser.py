"""A headless browser of this machine, spoken to through its pipe: one page, warm."""

import base64
import json
import os
import shutil
import subprocess
import tempfile

FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync", "--hide-scrollbars"]


def leanest():
    """The leanest headless browser there is, or None."""
    return shutil.which("chromium-headless-shell") or shutil.which("chromium")


class Browser:
    def __init__(self, size):
        self.folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        own_read, its_write = os.pipe()
        its_read, own_write = os.pipe()

        def wire():
            # The browser reads from 3 and writes to 4; beyond the range first, as one may be the other.
            os.dup2(its_read, 30)
            os.dup2(its_write, 40)
            os.dup2(30, 3)
            os.dup2(40, 4)

        self.process = subprocess.Popen(
            [leanest(), *FLAGS, "--remote-debugging-pipe", f"--user-data-dir={self.folder.name}",
             f"--window-size={size[0]},{size[1]}", "about:blank"],
            preexec_fn=wire, close_fds=False, stderr=subprocess.DEVNULL)
        os.close(its_read)
        os.close(its_write)
        self.reader = os.fdopen(own_read, "rb")
        self.writer = os.fdopen(own_write, "wb")
        self.number = 0
        self.session = None
        target = self.call("Target.createTarget", url="about:blank", width=size[0], height=size[1])["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        self.call("Page.enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        self.reader.close()
        self.writer.close()
        self.folder.cleanup()

    def receive(self):
        message = b""
        while not message.endswith(b"\0"):
            message += self.reader.read(1) if not self.reader.peek(1) else self.read_up_to_end()
        return json.loads(message[:-1])

    def read_up_to_end(self):
        ready = self.reader.peek()
        end = ready.find(b"\0")
        return self.reader.read(end + 1 if end >= 0 else len(ready))

    def call(self, method, **parameters):
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters}
        if self.session:
            message["sessionId"] = self.session
        self.writer.write(json.dumps(message).encode() + b"\0")
        self.writer.flush()
        while True:
            answer = self.receive()
            if answer.get("id") == self.number:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]

    def show(self, html):
        self.call("Page.setDocumentContent", frameId=self.call("Page.getFrameTree")["frameTree"]["frame"]["id"],
                  html=html)

    def run(self, script):
        return self.call("Runtime.evaluate", expression=script, returnByValue=True)["result"].get("value")

    def png(self):
        return base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"])

    def pdf(self, width, height):
        return base64.b64decode(self.call("Page.printToPDF", printBackground=True, paperWidth=width / 96,
                                          paperHeight=height / 96, marginTop=0, marginBottom=0, marginLeft=0,
                                          marginRight=0)["data"])
