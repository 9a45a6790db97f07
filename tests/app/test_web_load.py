#!/usr/bin/env python3
"""The web server with five hundred slow clients at the door: whoever asks properly is answered all the same."""

import errno
import json
import multiprocessing
import re
import selectors
import socket
import sys
import threading
import time
import unittest

from web_support import ServedTest

SLOW_CLIENTS = 500
ADDRESSES = 100
SECONDS = 8
EVERY = 0.1
# All that the memory may have grown by afterwards; pictures leave caches behind.
GROWTH_KIB = 48 * 1024


def besiege(port, end, cut):
    """Five hundred connections that send a byte a second each; those that are cut come again a second later."""
    selector = selectors.DefaultSelector()
    head = b"GET / HTTP/1.1\r\nHost: localhost\r\nX: " + b"y" * 4000
    sent = {}

    def come(number):
        connection = socket.socket()
        connection.setblocking(False)
        connection.bind((f"127.0.1.{1 + number % ADDRESSES}", 0))
        if connection.connect_ex(("127.0.0.1", port)) not in (0, errno.EINPROGRESS):
            connection.close()
            return
        sent[connection] = 0
        selector.register(connection, selectors.EVENT_READ, number)

    for number in range(SLOW_CLIENTS):
        come(number)
    again = []
    next_byte = time.monotonic()
    while not end.is_set():
        for key, _ in selector.select(timeout=0.05):
            try:
                key.fileobj.recv(4096)
            except OSError:
                pass
            selector.unregister(key.fileobj)
            del sent[key.fileobj]
            key.fileobj.close()
            cut.value += 1
            again.append((time.monotonic() + 1, key.data))
        while again and again[0][0] <= time.monotonic():
            come(again.pop(0)[1])
        if time.monotonic() >= next_byte:
            next_byte += 1
            for connection, count in sent.items():
                try:
                    connection.send(head[count:count + 1])
                    sent[connection] = count + 1
                except OSError:
                    pass


class Load(ServedTest):
    def setUp(self):
        super().setUp()
        self.serve()
        page = self.get()
        self.assertEqual(page.status, 200)
        self.pictures = re.findall(r'href="(/plugins/[^"]*\.png)"', page.body.decode())
        for picture in self.pictures:
            self.get(picture)

    def memory(self):
        """KiB in use."""
        with open(f"/proc/{self.server.pid}/status", encoding="ascii") as status:
            return int(re.search(r"VmRSS:\s+(\d+)", status.read()).group(1))

    def besieged(self):
        """Until the test ends or the event is set: gives the event and the count of those that were cut."""
        context = multiprocessing.get_context("fork")
        end, cut = context.Event(), context.Value("i", 0)
        process = context.Process(target=besiege, args=(self.port, end, cut))
        process.start()

        def stop():
            end.set()
            process.join()

        self.addCleanup(stop)
        time.sleep(0.5)
        return stop, cut

    def ask_regularly(self):
        """Ten requests a second, one of them for a picture: the answers' states and how long each took."""
        taken = []

        def ask(number):
            start = time.monotonic()
            try:
                target = self.pictures[number // 10 % len(self.pictures)] if number % 10 == 9 else "/"
                status = self.get(target).status
            except OSError as error:
                status = str(error)
            taken.append((status, time.monotonic() - start))

        threads = []
        start = time.monotonic()
        for number in range(int(SECONDS / EVERY)):
            time.sleep(max(0, start + number * EVERY - time.monotonic()))
            threads.append(threading.Thread(target=ask, args=(number,)))
            threads[-1].start()
        for thread in threads:
            thread.join()
        return taken

    def test_every_honest_request_is_answered_and_the_memory_comes_back(self):
        before = self.memory()
        stop, cut = self.besieged()
        taken = self.ask_regularly()
        during = self.memory()
        stop()
        self.assertEqual([status for status, _ in taken], [200] * int(SECONDS / EVERY))
        seconds = sorted(took for _, took in taken)
        slowest = seconds[int(len(seconds) * 0.99)]
        after = self.memory()
        figures = {"p50": round(seconds[len(seconds) // 2], 4), "p99": round(slowest, 4), "slow clients cut": cut.value,
                   "KiB before": before, "during": during, "after": after}
        print(json.dumps(figures), file=sys.stderr)
        self.assertGreater(cut.value, SLOW_CLIENTS - 64)
        self.assertLess(slowest, 2)
        self.assertLess(during, before + GROWTH_KIB)
        self.assertLess(after, before + GROWTH_KIB)

    def test_ends_within_three_seconds_under_load(self):
        self.besieged()
        ended = threading.Event()

        def ask_without_pause(target):
            while not ended.is_set():
                try:
                    self.get(target)
                except OSError:
                    time.sleep(0.02)

        threads = [threading.Thread(target=ask_without_pause, args=(target,)) for target in self.pictures + ["/"] * 4]
        for thread in threads:
            thread.start()
        time.sleep(1)
        took = self.end()
        ended.set()
        for thread in threads:
            thread.join()
        self.assertLess(took, 3)


if __name__ == "__main__":
    unittest.main()
