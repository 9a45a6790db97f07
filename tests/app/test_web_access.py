#!/usr/bin/env python3
"""The web access of the window, switched on and off by a person with the keyboard. STATION names the program."""

import re
import shutil
import socket
import subprocess
import unittest

from window_support import WindowTestCase, wait_for

TOOLS = ("curl", "xclip", "identify")


@unittest.skipUnless(all(shutil.which(tool) for tool in TOOLS), "needs " + ", ".join(TOOLS))
class WebAccessTest(WindowTestCase):
    def setUp(self):
        super().setUp()
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            self.port = free.getsockname()[1]
        self.prefer("[web]", f"port={self.port}")

    def prefer(self, *lines):
        file = self.path / "config" / "station" / "station.conf"
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text("\n".join(lines) + "\n")

    def show_dialog(self):
        self.activate(self.window)
        self.key("alt+f")
        self.key("w")
        self.dialog = self.window_titled("^Web Access$")
        self.xdotool("windowfocus", "--sync", self.dialog)

    def fetch(self, path="/", host="127.0.0.1"):
        run = subprocess.run(["curl", "--silent", "--noproxy", "*", "--max-time", "30", f"http://{host}:{self.port}{path}"],
                             capture_output=True)
        return run.stdout if run.returncode == 0 else None

    def is_served(self):
        return self.fetch() is not None

    def links(self):
        return re.findall(r'href="(/plugins/[^"]*\.png)"', (self.fetch() or b"").decode())

    def test_serves_nobody_until_it_is_switched_on(self):
        self.open(self.make_site())
        self.assertFalse(self.is_served())

    def test_switched_on_it_serves_and_switched_off_it_does_not(self):
        self.open(self.make_site())
        self.show_dialog()
        self.key("alt+s")
        wait_for(self.is_served, "the page is served")
        page = self.fetch().decode()
        self.assertIn("Garden", page)
        self.assertTrue(self.fetch(self.links()[0]).startswith(b"\x89PNG"))
        self.key("alt+s")
        wait_for(lambda: not self.is_served(), "the page is gone")
        self.key("Escape")
        wait_for(lambda: not self.xdotool("search", "--onlyvisible", "--name", "^Web Access$"), "the dialog is gone")

    def test_the_keyboard_reaches_an_address_and_copies_it(self):
        self.open(self.make_site())
        self.show_dialog()
        self.key("alt+s")
        wait_for(self.is_served, "the page is served")
        self.key("alt+p")
        self.key("Tab", "Tab", "space")
        wait_for(lambda: self.clipboard() == f"http://127.0.0.1:{self.port}/", "the address is on the clipboard")

    def clipboard(self):
        run = subprocess.run(["xclip", "-selection", "clipboard", "-out"], env=self.environment, capture_output=True,
                             text=True, timeout=30)
        return run.stdout

    def test_its_help_opens_beside_it(self):
        self.open(self.make_site())
        self.show_dialog()
        self.key("F1")
        help_window = self.window_titled("^Station Help$")
        self.xdotool("windowfocus", "--sync", help_window)
        self.key("ctrl+w")
        wait_for(lambda: not self.xdotool("search", "--onlyvisible", "--name", "^Station Help$"), "the help is gone")
        self.xdotool("windowfocus", "--sync", self.dialog)
        self.key("alt+s")
        wait_for(self.is_served, "the page is served")

    def test_what_was_chosen_holds_at_the_next_start_and_ends_with_the_program(self):
        site = self.make_site()
        self.open(site)
        self.show_dialog()
        self.key("alt+s")
        wait_for(self.is_served, "the page is served")
        self.key("Escape")
        self.activate(self.window)
        self.key("ctrl+w")
        self.assertEqual(self.program.wait(timeout=30), 0, self.program.stderr.read())
        self.assertFalse(self.is_served())
        self.open(site)
        wait_for(self.is_served, "the page is served again")

    def test_every_open_document_is_on_the_page(self):
        self.prefer("[web]", f"port={self.port}", "serves=true")
        site = self.make_site()
        copy = self.path / "copy.site"
        copy.write_bytes(site.read_bytes())
        self.open(site, copy)
        wait_for(lambda: (self.fetch() or b"").count(b"<section ") == 2, "both documents")
        links = self.links()
        self.assertEqual(len(links), len(set(links)))
        for link in (links[0], links[-1]):
            self.assertTrue(self.fetch(link).startswith(b"\x89PNG"), link)

    def test_a_port_that_is_taken_is_told_in_the_dialog(self):
        with socket.socket() as other:
            other.bind(("127.0.0.1", self.port))
            other.listen()
            self.open(self.make_site())
            self.show_dialog()
            before = self.settled("before", self.dialog)
            self.key("alt+s")
            wait_for(lambda: self.height(self.dialog) > self.height_of(before), "the dialog says more")
        # Chosen again once the port is free.
        self.key("alt+s")
        wait_for(lambda: self.height(self.dialog) == self.height_of(before), "the dialog says no more")
        self.key("alt+s")
        wait_for(self.is_served, "the page is served")

    def test_other_machines_are_served_after_a_second_choice_and_need_the_token(self):
        self.open(self.make_site())
        self.show_dialog()
        self.key("alt+s")
        wait_for(self.is_served, "the page is served")
        self.assertIn(b"<h1>", self.fetch())
        self.key("alt+o")
        wait_for(lambda: b"<h1>REST" not in (self.fetch() or b"<h1>REST"), "the token is asked for")
        self.key("alt+p")
        self.key("Tab", "Tab", "space")
        wait_for(lambda: "token=" in self.clipboard(), "the address with the token is on the clipboard")
        # The token is shown once and kept as a cookie.
        address = f"http://127.0.0.1:{self.port}/?" + self.clipboard().split("/?")[1]
        run = subprocess.run(["curl", "--silent", "--noproxy", "*", "--location", "--cookie", "", address],
                             capture_output=True, timeout=60)
        self.assertIn(b"<h1>REST API for Dashboard</h1>", run.stdout)

    def height(self, window):
        geometry = self.xdotool("getwindowgeometry", "--shell", window)
        return int(re.search(r"HEIGHT=(\d+)", geometry)[1])

    def height_of(self, picture):
        run = subprocess.run(["identify", "-format", "%h", picture], capture_output=True, text=True, check=True)
        return int(run.stdout)


if __name__ == "__main__":
    unittest.main()
