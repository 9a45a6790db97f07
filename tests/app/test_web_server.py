#!/usr/bin/env python3
"""What the embedded web server lets in and what it says, over bare sockets."""

import http.client
import os
import re
import shutil
import signal
import socket
import stat
import subprocess
import time
import unittest

from web_support import Answer, ServedTest, is_open, read_all, read_answer, seconds_until_cut

# On every answer, whoever gives it.
COMMON = {
    "X-Content-Type-Options": "nosniff",
    "Referrer-Policy": "no-referrer",
    "Cache-Control": "no-store",
    "Cross-Origin-Resource-Policy": "same-origin",
}
HEAD_LIMIT = 8192


def other_address():
    """An address of this machine that is not a loopback one."""
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as probe:
        try:
            probe.connect(("192.0.2.1", 9))
        except OSError:
            return None
        return probe.getsockname()[0]


def has_six():
    try:
        with socket.socket(socket.AF_INET6) as probe:
            probe.bind(("::1", 0))
        return True
    except OSError:
        return False


class Loopback(ServedTest):
    def setUp(self):
        super().setUp()
        self.serve()

    def refusals(self):
        host = f"Host: 127.0.0.1:{self.port}"
        return {
            200: f"GET / HTTP/1.1\r\n{host}\r\n\r\n",
            404: f"GET /nothing HTTP/1.1\r\n{host}\r\n\r\n",
            405: f"POST / HTTP/1.1\r\n{host}\r\n\r\n",
            421: "GET / HTTP/1.1\r\nHost: evil.example\r\n\r\n",
            400: f"GET / HTTP/1.1\r\n{host}\r\nX : y\r\n\r\n",
            413: f"GET / HTTP/1.1\r\n{host}\r\nContent-Length: 5\r\n\r\nhello",
            431: f"GET / HTTP/1.1\r\n{host}\r\nX: {'y' * HEAD_LIMIT}\r\n\r\n",
            505: f"GET / HTTP/3.0\r\n{host}\r\n\r\n",
        }

    def test_every_answer_carries_the_same_headers_and_says_nothing_of_the_program(self):
        for status, request in self.refusals().items():
            answer = self.ask(request.encode())
            self.assertEqual(answer.status, status, request)
            for name, value in COMMON.items():
                self.assertEqual(answer.header(name), value, (status, name))
            # Whoever breaks the rules has to go.
            self.assertEqual(answer.header("Connection"), None if status in (200, 404) else "close", status)
            policy = answer.header("Content-Security-Policy")
            for rule in ("default-src 'none'", "img-src 'self'", "frame-ancestors 'self'", "form-action 'none'"):
                self.assertIn(rule, policy.split("; "), status)
            self.assertNotIn("unsafe", policy)
            self.assertEqual(int(answer.header("Content-Length")), len(answer.body), status)
            self.assertIsNone(answer.header("Server"))
            self.assertNotRegex(answer.raw.decode("latin-1").lower(), r"microhttpd|exception|station/\d")

    def test_only_bare_pictures_may_be_styled_by_the_browser(self):
        self.assertIn("style-src 'unsafe-inline'", self.get("/favicon.svg").header("Content-Security-Policy").split("; "))
        for target in ("/", "/style.css", "/nothing"):
            self.assertIn("style-src 'self'", self.get(target).header("Content-Security-Policy").split("; "), target)

    def test_both_loopback_addresses_share_a_port(self):
        self.assertEqual(self.get().status, 200)
        self.assertEqual(self.get(host=f"localhost:{self.port}").status, 200)
        if has_six():
            six = self.get(host=f"[::1]:{self.port}", source="::1", to="::1")
            self.assertEqual(six.status, 200)

    def test_other_addresses_of_the_machine_are_not_served(self):
        if not (address := other_address()):
            self.skipTest("the machine has no other address")
        with self.assertRaises(ConnectionRefusedError):
            self.connect(source=address, to=address)

    def test_head_is_get_without_the_body(self):
        for target in ("/", "/nothing"):
            get, head = self.get(target), self.get(target, method="HEAD")
            self.assertEqual(head.status, get.status)
            self.assertEqual(head.body, b"")
            self.assertEqual(head.header("Content-Length"), str(len(get.body)))
        refused = self.get("/", "X : y", method="HEAD")
        self.assertEqual((refused.status, refused.body), (400, b""))

    def test_other_methods_are_told_which_there_are(self):
        for method in ("POST", "PUT", "DELETE", "OPTIONS", "TRACE", "PATCH", "CONNECT", "get"):
            answer = self.get(method=method)
            self.assertEqual((answer.status, answer.header("Allow")), (405, "GET, HEAD"), method)

    def test_only_the_servers_own_names_are_answered(self):
        for host in ("127.0.0.1", "localhost", "LOCALHOST"):
            self.assertEqual(self.get("/nothing", host=f"{host}:{self.port}").status, 404, host)
        for host in ("evil.example", f"evil.example:{self.port}", "127.0.0.1:1", f"localhost.evil.example:{self.port}",
                     f"192.168.1.1:{self.port}", socket.gethostname() + ".evil.example"):
            self.assertEqual(self.get(host=host).status, 421, host)
        self.assertEqual(self.ask(b"GET / HTTP/1.1\r\n\r\n").status, 421)
        self.assertEqual(self.ask(b"GET / HTTP/1.0\r\n\r\n").status, 421)
        self.assertEqual(self.get("/", "Host: 127.0.0.1").status, 400)

    def test_a_head_of_eight_kibibytes_is_read_and_one_byte_more_is_not(self):
        rest = len(f"GET /nothing HTTP/1.1\r\nHost: 127.0.0.1:{self.port}\r\nX: \r\n\r\n")
        self.assertEqual(self.get("/nothing", "X: " + "y" * (HEAD_LIMIT - rest)).status, 404)
        self.assertEqual(self.get("/nothing", "X: " + "y" * (HEAD_LIMIT - rest + 1)).status, 431)
        self.assertEqual(self.ask(b"x" * 1_000_000).status, 431)
        target = "/" + "y" * 4000 + "%20" * 1200
        self.assertEqual(self.get(target).status, 404)

    def test_sixty_four_headers_are_read_and_one_more_is_not(self):
        headers = [f"X{number}: y" for number in range(63)]
        self.assertEqual(self.get("/nothing", *headers).status, 404)
        self.assertEqual(self.get("/nothing", *headers, "X: y").status, 431)

    def test_bodies_are_refused_before_they_come(self):
        for header in ("Content-Length: 1000000000", "Transfer-Encoding: chunked"):
            # Nothing of the body is sent: the answer does not wait for it.
            self.assertEqual(self.get("/", header).status, 413, header)
            self.assertEqual(self.get("/", header, "Expect: 100-continue").status, 413, header)
        self.assertEqual(self.get("/", "Content-Length: 0").status, 200)
        self.assertEqual(self.get("/", "Content-Length: x").status, 400)

    def test_a_body_without_end_is_cut(self):
        connection = self.connect()
        connection.sendall(b"POST / HTTP/1.1\r\nHost: localhost\r\nContent-Length: 999999999\r\n\r\n")
        with self.assertRaises(ConnectionError):
            for _ in range(1000):
                connection.sendall(b"x" * 65536)

    def test_a_head_in_pieces_is_read(self):
        connection = self.connect()
        for piece in (b"G", b"ET / HTTP/1.1\r", b"\nHost: localhost\r\n", b"\r", b"\n"):
            connection.sendall(piece)
            time.sleep(0.05)
        self.assertEqual(read_answer(connection).status, 200)

    def test_a_client_that_has_said_all_may_close_its_side(self):
        connection = self.connect()
        connection.sendall(b"GET / HTTP/1.1\r\nHost: localhost\r\n\r\n")
        connection.shutdown(socket.SHUT_WR)
        self.assertEqual(Answer(read_all(connection)).status, 200)

    def test_slow_heads_are_cut_after_five_seconds(self):
        """A silent client and one that sends a byte every half second."""
        silent, trickling = self.connect(), self.connect()
        start = time.monotonic()
        ended = seconds_until_cut(trickling, start)
        self.assertIsNotNone(ended)
        self.assertTrue(4.5 < ended < 7, ended)
        self.assertEqual(silent.recv(1), b"")
        self.assertLess(time.monotonic() - start, 7)

    def test_the_thirty_third_of_one_client_pushes_its_first_out(self):
        connections = [self.connect("127.0.0.2") for _ in range(32)]
        other = self.connect("127.0.0.3")
        self.assertTrue(is_open(connections[0]))
        self.assertEqual(self.get("/nothing", source="127.0.0.2").status, 404)
        self.assertFalse(is_open(connections[0]))
        self.assertTrue(all(map(is_open, connections[1:8])))
        self.assertTrue(is_open(other))

    def test_the_sixty_fifth_of_all_pushes_the_first_out(self):
        connections = [self.connect(f"127.0.0.{10 + number // 8}") for number in range(64)]
        self.assertTrue(is_open(connections[0]))
        self.assertEqual(self.get("/nothing").status, 404)
        self.assertFalse(is_open(connections[0]))
        self.assertTrue(is_open(connections[1]))

    def test_no_answer_stalls(self):
        times = []
        for _ in range(20):
            start = time.monotonic()
            self.get("/nothing")
            times.append(time.monotonic() - start)
        # Forty milliseconds is what an acknowledgement that is waited for takes.
        self.assertLess(sorted(times)[10], 0.03)

    def test_no_answer_stalls_on_a_kept_connection(self):
        """The system delays acknowledgements on these, so that an answer in two pieces would take 44 ms."""
        connection = self.connect()
        times = []
        for _ in range(20):
            start = time.monotonic()
            self.assertEqual(self.ask_on(connection, self.request("/style.css")).status, 200)
            times.append(time.monotonic() - start)
        self.assertLess(sorted(times)[10], 0.03)

    def test_ends_well_on_either_signal_with_connections_open(self):
        idle, half = self.connect(), self.connect()
        half.sendall(b"GET / HT")
        self.assertLess(self.end(signal.SIGINT), 3)
        self.assertEqual((read_all(idle), read_all(half)), (b"", b""))
        self.serve()
        self.assertLess(self.end(signal.SIGTERM), 3)


class KeptConnections(ServedTest):
    """What comes after the first request on a connection."""

    def setUp(self):
        super().setUp()
        self.serve()
        self.connection = self.connect()
        self.assertEqual(self.ask_on(self.connection, self.request("/nothing")).status, 404)

    def assert_refused(self, raw, status):
        """As the same would be on a connection of its own, and the connection ends."""
        alone = self.ask(raw)
        answer = self.ask_on(self.connection, raw)
        self.assertEqual((answer.status, alone.status), (status, status), raw[:100])
        without_date = lambda headers: sorted(each for each in headers if each[0] != "Date")
        self.assertEqual(without_date(answer.headers), without_date(alone.headers))
        self.assertEqual((answer.header("Connection"), answer.body), ("close", alone.body))
        self.assertEqual(read_all(self.connection), b"")

    def test_answers_one_request_after_the_other(self):
        for target, status in (("/", 200), ("/style.css", 200), ("/nothing", 404), ("/", 200)):
            answer = self.ask_on(self.connection, self.request(target))
            self.assertEqual((answer.status, answer.header("Connection")), (status, None))
            for name, value in COMMON.items():
                self.assertEqual(answer.header(name), value, (target, name))
        answer = self.ask_on(self.connection, self.request("/style.css", method="HEAD"))
        self.assertEqual((answer.status, answer.body), (200, b""))
        self.assertTrue(is_open(self.connection))

    def test_answers_what_comes_in_one_piece_in_its_order(self):
        self.connection.sendall(self.request("/style.css") + self.request("/nothing") + self.request("/favicon.svg"))
        answers = [read_answer(self.connection) for _ in range(3)]
        self.assertEqual([answer.status for answer in answers], [200, 404, 200])
        self.assertEqual([answer.header("Content-Type") for answer in answers],
                         ["text/css; charset=utf-8", "text/plain; charset=utf-8", "image/svg+xml"])
        self.assertTrue(is_open(self.connection))

    def test_a_head_in_pieces_is_read(self):
        request = self.request("/style.css")
        for at in range(0, len(request), 10):
            self.connection.sendall(request[at:at + 10])
            time.sleep(0.01)
        self.assertEqual(read_answer(self.connection).status, 200)

    def test_whoever_wants_to_go_is_let_go(self):
        answer = self.ask_on(self.connection, self.request("/nothing", "Connection: close"))
        self.assertEqual((answer.status, answer.header("Connection")), (404, "close"))
        self.assertEqual(read_all(self.connection), b"")
        old = self.connect()
        answer = self.ask_on(old, b"GET /nothing HTTP/1.0\r\nHost: localhost\r\n\r\n")
        self.assertEqual(answer.status, 404)
        self.assertEqual(read_all(old), b"")

    def test_a_head_of_eight_kibibytes_is_read_and_one_byte_more_is_not(self):
        rest = len(self.request("/nothing", "X: "))
        fits = self.request("/nothing", "X: " + "y" * (HEAD_LIMIT - rest))
        self.assertEqual(self.ask_on(self.connection, fits).status, 404)
        self.assert_refused(self.request("/nothing", "X: " + "y" * (HEAD_LIMIT - rest + 1)), 431)

    def test_sixty_four_headers_are_read_and_one_more_is_not(self):
        headers = [f"X{number}: y" for number in range(63)]
        self.assertEqual(self.ask_on(self.connection, self.request("/nothing", *headers)).status, 404)
        self.assert_refused(self.request("/nothing", *headers, "X: y"), 431)

    def test_a_foreign_name_is_refused(self):
        self.assert_refused(self.request(host="evil.example"), 421)

    def test_two_names_are_refused(self):
        self.assert_refused(self.request("/", "Host: localhost"), 400)

    def test_another_method_is_refused(self):
        self.assert_refused(self.request(method="POST"), 405)

    def test_a_body_is_refused_before_it_comes(self):
        self.assert_refused(self.request("/", "Content-Length: 1000000"), 413)

    def test_a_body_in_chunks_is_refused_before_it_comes(self):
        self.assert_refused(self.request("/", "Transfer-Encoding: chunked"), 413)

    def test_an_expectation_is_refused(self):
        self.assert_refused(self.request("/", "Expect: 100-continue"), 417)

    def test_a_zero_byte_in_the_path_is_refused(self):
        self.assert_refused(self.request("/style.css%00.png"), 400)

    def test_a_slow_head_is_cut_after_five_seconds(self):
        start = time.monotonic()
        ended = seconds_until_cut(self.connection, start)
        self.assertIsNotNone(ended)
        self.assertTrue(4 < ended < 8, ended)

    def test_silence_ends_it(self):
        start = time.monotonic()
        self.assertEqual(self.connection.recv(1), b"")
        self.assertTrue(4 < time.monotonic() - start < 8)

    def test_a_newcomer_pushes_the_longest_silent_out(self):
        kept = [self.connect("127.0.0.2") for _ in range(32)]
        for connection in [*kept[1:], kept[0]]:
            self.assertEqual(self.ask_on(connection, self.request("/style.css")).status, 200)
        self.assertEqual(self.get("/nothing", source="127.0.0.2").status, 404)
        self.assertEqual([is_open(connection) for connection in kept], [True, False] + [True] * 30)

    def test_ends_well_with_silent_connections(self):
        kept = [self.connection, *(self.connect() for _ in range(7))]
        for connection in kept:
            self.assertEqual(self.ask_on(connection, self.request("/style.css")).status, 200)
        self.assertLess(self.end(), 3)
        self.assertEqual([read_all(connection) for connection in kept], [b""] * 8)


class OtherMachines(ServedTest):
    """Served on all addresses: everybody needs the token."""

    def setUp(self):
        super().setUp()
        self.line = self.serve("0.0.0.0")
        self.token = re.search(r"/\?token=([0-9a-f]{32})$", self.line.strip()).group(1)
        self.cookie = f"station-{self.port}={self.token}"

    def test_the_token_is_kept_for_its_owner_alone_and_stays_the_same(self):
        self.end()
        file = re.search(r"kept in (.+)", self.said).group(1)
        with open(file, encoding="ascii") as text:
            self.assertEqual(text.read().strip(), self.token)
        self.assertEqual(stat.S_IMODE(os.stat(file).st_mode), 0o600)
        self.assertIn(self.token, self.serve("0.0.0.0"))
        self.end()
        os.remove(file)
        self.assertNotIn(self.token, self.serve("0.0.0.0"))

    def test_the_token_opens_as_header_cookie_or_once_in_the_address(self):
        self.assertEqual(self.get("/nothing", f"Authorization: Bearer {self.token}").status, 404)
        self.assertEqual(self.get("/nothing", f"Cookie: a=b; {self.cookie}").status, 404)
        answer = self.get(f"/nothing?x=1&token={self.token}")
        self.assertEqual((answer.status, answer.header("Location")), (303, "/nothing?x=1"))
        self.assertEqual(answer.header("Set-Cookie"), f"{self.cookie}; HttpOnly; SameSite=Strict; Path=/")
        self.assertEqual(self.get(f"//evil.example/?token={self.token}").header("Location"), "/evil.example/")
        self.assertEqual(self.get(f"/?token={self.token}", method="HEAD").status, 303)

    def test_nothing_else_opens_not_even_from_this_machine(self):
        for header in ("X: y", f"Authorization: Bearer {self.token[:-1]}", f"Authorization: Basic {self.token}",
                       f"Cookie: station-{self.port}={self.token[::-1]}x", f"Cookie: token={self.token}"):
            answer = self.get("/", header)
            self.assertEqual((answer.status, answer.header("WWW-Authenticate")), (401, "Bearer"), header)
            self.assertNotIn(self.token.encode(), answer.raw)
        self.assertEqual(self.get("/?token=").status, 401)
        self.assertEqual(self.get("/", f"Cookie: {self.cookie}", host="evil.example").status, 421)

    def test_ten_failures_shut_one_client_out(self):
        for _ in range(10):
            self.assertEqual(self.get("/?token=0").status, 401)
        answer = self.get("/", f"Cookie: {self.cookie}")
        self.assertEqual(answer.status, 429)
        self.assertTrue(1 <= int(answer.header("Retry-After")) <= 60)
        self.assertEqual(answer.header("Cache-Control"), "no-store")
        self.assertEqual(self.get("/", f"Cookie: {self.cookie}", source="127.0.0.9").status, 200)

    def test_answers_to_the_machines_name(self):
        name = socket.gethostname()
        self.assertEqual(self.get("/nothing", f"Cookie: {self.cookie}", host=f"{name}:{self.port}").status, 404)

    def test_eight_connections_for_each_other_machine(self):
        if not (address := other_address()):
            self.skipTest("the machine has no other address")
        self.assertIn(f"http://{address}:{self.port}/?token=", self.line)
        connections = [self.connect(address, address) for _ in range(8)]
        host = f"{address}:{self.port}"
        answer = self.get("/nothing", f"Cookie: {self.cookie}", host=host, source=address, to=address)
        self.assertEqual(answer.status, 404)
        self.assertEqual(connections[0].recv(1), b"")
        connections[1].settimeout(0.1)
        with self.assertRaises(TimeoutError):
            connections[1].recv(1)

    @unittest.skipUnless(shutil.which("curl"), "needs curl")
    def test_a_client_that_keeps_cookies_gets_in_by_the_address(self):
        jar = os.path.join(self.home, "jar")
        fetched = subprocess.run(["curl", "--silent", "--noproxy", "*", "--location", "--cookie", jar, "--cookie-jar",
                                  jar, f"http://127.0.0.1:{self.port}/?token={self.token}"],
                                 capture_output=True, timeout=60)
        self.assertEqual(fetched.returncode, 0)
        self.assertIn(b"<html", fetched.stdout)


class Clients(ServedTest):
    def test_an_ordinary_client_reads_pages_and_pictures(self):
        self.serve("127.0.0.1")
        client = http.client.HTTPConnection("127.0.0.1", self.port, timeout=30)
        client.request("GET", "/")
        page = client.getresponse().read().decode()
        picture = re.search(r'href="(/plugins/[^"]*\.png)"', page).group(1)
        client.request("GET", picture)
        answer = client.getresponse()
        self.assertEqual((answer.status, answer.getheader("Content-Type")), (200, "image/png"))
        self.assertTrue(answer.read().startswith(b"\x89PNG"))
        client.close()


if __name__ == "__main__":
    unittest.main()
