#!/usr/bin/env python3
"""The page that browsers get: what Chromium makes of it, and that no title becomes more than text. STATION names the
program."""

import html.parser
import json
import os
import random
import subprocess
import tempfile
import unittest
import urllib.error

from browser_support import STATION, Browser, Server, needs_browser, wait_for

TITLES = ["Standard Dashboard", "Current Weather", "Hi-Def Dashboard", "Quad Plots", "Blank"]
WIDTHS = (320, 768, 1440, 2560)
PICTURES = "[...document.querySelectorAll('iframe')].map(each => each.contentDocument?.querySelector('img'))"
ELEMENTS = {"html", "head", "meta", "title", "link", "body", "main", "section", "h1", "h2", "p", "ul", "li", "div", "a",
            "iframe"}

MARKUP = [
    "<h1>big</h1>", "</a></h2><h1>out</h1>", "<", ">", "<h2>", "</h2>", "<p>", "</a>", "<a href=\"", "<!--", "-->",
    "<a href=\"/plugins/x/y.png\">mine</a>", "<a href=javascript:alert(1)>go</a>", "<svg onload=alert(1)>", "<svg/onload=alert(1)//",
    "<script>alert(1)</script>", "</title><script>alert(1)</script>", "</style><img src=x onerror=alert(1)>", "<img src=x onerror=alert(1)>",
    "<iframe srcdoc='<script>alert(1)</script>'>", "<base href=//evil.example/>", "<meta http-equiv=refresh content=0;url=//evil.example>",
    "<link rel=stylesheet href=//evil.example>", "<object data=//evil.example>", "<math><mi//xlink:href=data:x>", "<template><h1>x",
    "<noscript><p title='</noscript><img src=x onerror=alert(1)>'>", "<plaintext>", "<xmp>", "<textarea>", "<select><option>", "<table><tr><td>",
    "<form action=//evil.example><input name=x autofocus onfocus=alert(1)>", "<details open ontoggle=alert(1)>", "<h1", "<h1 ", "<h1/>",
    "</h1 x>", "<H1>", "< h1>", "<\u00a0h1>", "<h1\t>", "<h1\n>x", "<h1\f>x", "<h1\x0b>x",
    "\"", "'", "`", "\" onclick=\"alert(1)", "' onclick='alert(1)", "\"><h1>", "'><h1>", "target=\"_blank\">", "_blank\">x</a></h2><h1>y",
    "&", "&lt;h1&gt;", "&#60;h1&#62;", "&#x3c;h1&#x3e;", "&amp;lt;h1&amp;gt;", "&lt", "&notit;", "&#0;", "&#x110000;", "&nbsp;",
    "<![CDATA[<h1>x</h1>]]>", "<?php echo 1 ?>", "<!DOCTYPE x>", "<!ENTITY x>", "]]>", "{{7*7}}", "${x}",
    "\u202e<h1>txet</h1>", "\u2066<h1>", "\u200b", "\u00ad", "\ufeff<h1>", "\uff1ch1\uff1e", "\u02c2h1\u02c3", "\u2028<h1>", "\u0000<h1>", "<\u0000h1>",
    "\u007f", "\u0085", "\U000e0041", "e" + "\u0301" * 50, "\U0001f327<h2>", "\u0130<h1>", "<\u017fcript>", "\u3164",
    "", " ", "x" * 20000, "<h1>" * 500, "W" * 300 + " <b>", "\u6771" * 500, "a\u200db" * 200, "<a " * 300, "\"'" * 300,
]
PIECES = ["<", ">", "</", "/>", "<h1", "<h2>", "<p ", "<a ", "</a>", "</h2>", "href=", "\"", "'", "=", "&", "&lt;", "&#60", ";", "<!--", "-->",
          "<svg onload=", "alert(1)", " ", "\t", "\n", "x", "\u202e", "\u0000", "\ufffd", "/plugins/", ".png", "javascript:", "%3C", "\\", "`", "target=_blank"]


def hostile_titles():
    """200, the same in every run."""
    play = random.Random(7)
    titles = list(MARKUP)
    while len(titles) < 200:
        titles.append("".join(play.choice(PIECES) for _ in range(play.randrange(2, 14))))
    return titles


def as_shown(title):
    """What a reader gets: control characters cannot be written into a page, white space counts as one space."""
    shown = "".join(" " if each in "\t\n\f\r" else "\ufffd" if ord(each) < 32 or 127 <= ord(each) < 160 else each
                    for each in title)
    blank = "\u200b\u00ad\u3164\U000e0041\u00a0 "
    return shown if shown.strip(blank) else "Untitled"


class PageParser(html.parser.HTMLParser):
    """Which elements a page has, and the texts of the links in its headings."""

    def __init__(self, text):
        super().__init__()
        self.elements = []
        self.attributes = set()
        self.links = []
        self.is_link = False
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        self.elements.append(tag)
        self.attributes.update((tag, name) for name, _ in attributes)
        if tag == "a":
            self.is_link = True
            self.links.append("")

    def handle_endtag(self, tag):
        if tag == "a":
            self.is_link = False

    def handle_data(self, data):
        if self.is_link:
            self.links[-1] += data


class ServedTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        cls.environment = {**os.environ, "HOME": cls.folder.name, "XDG_DATA_HOME": cls.folder.name, "TZ": "UTC"}
        cls.server = Server(cls.site(), cls.environment)
        cls.addClassCleanup(cls.server.end)

    @classmethod
    def site(cls):
        return "demo"

    @classmethod
    def drive(cls, lines):
        """The answers to lines that must succeed."""
        run = subprocess.run([STATION, "drive"], input="".join(json.dumps(line) + "\n" for line in lines),
                             capture_output=True, text=True, cwd=cls.folder.name, env=cls.environment, check=True)
        answers = [json.loads(line) for line in run.stdout.splitlines()]
        assert all(answer.get("ok") for answer in answers), answers
        return answers


class Addresses(ServedTest):
    def test_the_page_shows_what_the_plug_in_advertises(self):
        page = PageParser(self.server.get("/"))
        self.assertEqual(page.links, TITLES)
        self.assertIn("<h1>REST API for Dashboard</h1>", self.server.get("/"))
        self.assertLessEqual(set(page.elements), ELEMENTS)

    def test_nothing_but_the_plug_ins_resources_is_found(self):
        picture = self.server.get("/").split('href="/plugins/')[1].split('"')[0]
        plug_in, name = picture.split("/")
        self.server_refuses(404, f"/{name}", f"/plugins/{name}", f"/plugins/{plug_in}", f"/plugins/{plug_in}/",
                            f"/plugins/{plug_in}0/{name}", f"/plugins/{plug_in}/{name[:-4]}.PNG",
                            f"/plugins/{plug_in}/{name[:-4]}.jpg", f"/plugins/{plug_in}/0.png", "/plugins/", "/plugins",
                            "/index.html", "/thumbnail", "/thumbnail/", "/thumbnail/http://x/")

    def server_refuses(self, status, *paths):
        for path in paths:
            with self.assertRaises(urllib.error.HTTPError, msg=path) as refused:
                self.server.get(path)
            self.assertEqual(refused.exception.code, status, path)
            refused.exception.close()


class Hostile:
    """A Site Document whose 200 dashboards have the titles of an enemy."""

    COUNTS = {"html": 1, "head": 1, "meta": 3, "title": 1, "link": 2, "body": 1, "main": 1, "section": 1, "h1": 1,
              "p": 2, "ul": 1, "li": 200, "div": 200, "iframe": 200, "h2": 200, "a": 200}

    @classmethod
    def site(cls):
        lines = [{"do": "new", "agent": {"name": "</title><h1>Garden & \"Roof\"", "properties": {}}}]
        for title in hostile_titles():
            lines += [{"do": "catalogue", "row": 4},
                      {"do": "set", "target": "dashboard", "key": "title", "value": title}]
        cls.drive(lines + [{"do": "save", "file": "hostile.site"}])
        return os.path.join(cls.folder.name, "hostile.site")


class HostileSource(Hostile, ServedTest):
    def test_no_title_is_an_element(self):
        page = PageParser(self.server.get("/"))
        self.assertEqual(len(hostile_titles()), 200)
        self.assertEqual([each.replace("\ufffd", "") for each in page.links],
                         [as_shown(each).replace("\ufffd", "") for each in hostile_titles()])
        self.assertEqual({name: page.elements.count(name) for name in set(page.elements)}, self.COUNTS)
        self.assertLessEqual(page.attributes, {
            ("html", "lang"), ("meta", "charset"), ("meta", "name"), ("meta", "content"), ("link", "rel"),
            ("link", "type"), ("link", "href"), ("section", "aria-label"), ("p", "class"), ("ul", "class"),
            ("div", "class"), ("iframe", "src"), ("iframe", "title"), ("iframe", "loading"), ("iframe", "tabindex"),
            ("iframe", "aria-hidden"), ("a", "href"), ("a", "target"), ("a", "rel")})


@needs_browser
class BrowserTest(ServedTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.browser = Browser()
        cls.addClassCleanup(cls.browser.end)

    def setUp(self):
        self.page = self.browser.page()
        self.addCleanup(self.page.close)
        self.page.resize(1440, 900)

    def open(self):
        self.page.open(self.server.url)

    def assert_no_sideways_scrolling(self, width):
        self.assertEqual(self.page.ask("innerWidth"), width)
        self.assertEqual(self.page.ask("document.documentElement.scrollWidth"),
                         self.page.ask("document.documentElement.clientWidth"))

    def wait_for_pictures(self, count):
        wait_for(lambda: self.page.ask(f"{PICTURES}.filter(each => each && each.naturalWidth > 0).length") >= count,
                 f"{count} pictures")


class InABrowser(BrowserTest):
    def test_pictures_load_and_the_console_stays_silent(self):
        self.page.resize(1440, 3000)
        self.open()
        self.wait_for_pictures(len(TITLES))
        self.assertEqual(self.page.problems(), [])

    def test_pictures_load_themselves_again(self):
        self.page.resize(1440, 3000)
        self.open()
        self.wait_for_pictures(len(TITLES))
        first = self.page.ask("frames[0].document.documentElement.setAttribute('lang', 'x')"
                              " || frames[0].document.documentElement.lang")
        self.assertEqual(first, "x")
        self.page.ask("document.querySelector('a').focus()")
        wait_for(lambda: self.page.ask("frames[0].document.documentElement?.lang") == "en", "the picture of later")
        self.assertEqual(self.page.ask("document.activeElement.textContent"), TITLES[0])
        self.wait_for_pictures(len(TITLES))
        self.assertEqual(self.page.problems(), [])

    def test_fits_every_width(self):
        for width in WIDTHS:
            for scheme in ("light", "dark"):
                with self.subTest(width=width, scheme=scheme):
                    self.page.resize(width, 900)
                    self.page.set_scheme(scheme)
                    self.open()
                    self.assert_no_sideways_scrolling(width)
                    self.assertTrue(self.page.ask("[...document.querySelectorAll('li')].every(each => "
                                                  "each.getBoundingClientRect().right <= innerWidth)"))

    def test_text_is_easy_to_read_in_both_schemes(self):
        ratio = """(() => {
            const light = color => color.match(/[0-9.]+/g).slice(0, 3).map(each => each / 255).map(
                each => each <= .04045 ? each / 12.92 : ((each + .055) / 1.055) ** 2.4
                ).reduce((sum, each, index) => sum + each * [.2126, .7152, .0722][index], 0);
            const ground = element => {
                for (; element; element = element.parentElement) {
                    const color = getComputedStyle(element).backgroundColor;
                    if (color !== 'rgba(0, 0, 0, 0)') return color;
                }
            };
            return Math.min(...[...document.querySelectorAll('h1, h2, p, a')].map(each => {
                const both = [light(getComputedStyle(each).color), light(ground(each))].sort((a, b) => a - b);
                return (both[1] + .05) / (both[0] + .05);
            }));
        })()"""
        for scheme in ("light", "dark"):
            self.page.set_scheme(scheme)
            self.open()
            self.assertGreaterEqual(self.page.ask(ratio), 4.5, scheme)

    def test_a_screen_reader_gets_headings_and_named_links(self):
        self.open()
        self.assertEqual(self.page.accessible("heading"), ["REST API for Dashboard", *TITLES])
        self.assertEqual(self.page.accessible("link"), TITLES)
        self.assertEqual(self.page.accessible("region"), ["Demo Station"])
        self.assertEqual(self.page.accessible("Iframe") + self.page.accessible("image"), [])

    def test_the_keyboard_walks_the_links_and_shows_where_it_is(self):
        self.open()
        for title in TITLES:
            self.page.key("Tab", 9)
            self.assertEqual(self.page.ask("document.activeElement.textContent"), title)
            outline = self.page.ask("getComputedStyle(document.activeElement, '::after').outline")
            self.assertIn("solid 3px", outline)

    def test_links_open_the_picture(self):
        self.open()
        for link in self.page.ask("[...document.querySelectorAll('a')].map(each => each.href)"):
            self.page.open(link)
            self.assertEqual(self.page.ask("document.contentType"), "image/png")
            self.assertGreater(self.page.ask("document.images[0].naturalWidth"), 0)
            self.assertEqual(self.page.problems(), [])

    def test_enter_opens_the_picture_beside_the_page(self):
        self.open()
        self.page.key("Tab", 9)
        self.page.key("Enter", 13)
        opened = wait_for(lambda: [each["url"] for each in self.browser.targets() if each["url"].endswith(".png")],
                          "a tab with the picture")
        self.assertEqual(opened, [self.page.ask("document.querySelector('a').href")])
        self.assertEqual(self.page.ask("location.href"), self.server.url)

    def test_the_icon_is_one(self):
        self.page.open(self.server.url + "favicon.ico")
        self.assertEqual(self.page.ask("document.documentElement.localName"), "svg")
        self.assertEqual(self.page.problems(), [])


class HostileInABrowser(Hostile, BrowserTest):
    def test_no_title_is_an_element(self):
        self.open()
        counts = self.page.ask("[...document.querySelectorAll('*')].reduce((counts, each) => "
                               "({...counts, [each.localName]: (counts[each.localName] || 0) + 1}), {})")
        self.assertEqual(counts, self.COUNTS)
        texts = self.page.ask("[...document.querySelectorAll('a')].map(each => each.textContent)")
        self.assertEqual(texts, [as_shown(each) for each in hostile_titles()])
        self.assertEqual(self.page.problems(), [])

    def test_fits_every_width_all_the_same(self):
        for width in WIDTHS:
            with self.subTest(width=width):
                self.page.resize(width, 900)
                self.open()
                self.assert_no_sideways_scrolling(width)

    def test_every_link_has_a_name(self):
        self.open()
        names = self.page.accessible("link")
        self.assertEqual(len(names), 200)
        self.assertTrue(all(name.strip() for name in names))


if __name__ == "__main__":
    unittest.main()
