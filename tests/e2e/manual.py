"""The manual as it is read, and as the program opens it: manual.py SOURCE

Links and pictures are followed, and what the program calls by name has to be there."""
import glob
import os
import re
import struct
import sys
import unittest
from html.parser import HTMLParser

SOURCE = sys.argv[1]
MANUAL = SOURCE + "/content/Manual"
FIRST = "index.htm"
EMPTY = {"meta", "link", "img", "br"}  # elements that have no end


class Page(HTMLParser):
    def __init__(self, name):
        super().__init__()
        self.open, self.links, self.pictures, self.problems, self.title, self.anchors = [], [], [], [], "", set()
        with open(os.path.join(MANUAL, name), encoding="utf-8") as file:
            self.feed(file.read())
        if self.open:
            self.problems.append(f"not ended: {self.open}")

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self.anchors.add(values.get("id"))
        if tag not in EMPTY:
            self.open.append(tag)
        if tag in ("a", "link"):
            self.links.append(values["href"])
        elif tag == "img":
            self.pictures.append(values)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.problems.append(f"line {self.getpos()[0]}: </{tag}> ends nothing")

    def handle_data(self, data):
        if self.open[-1:] == ["title"]:
            self.title += data


def size_of(picture):
    with open(os.path.join(MANUAL, picture), "rb") as file:
        return struct.unpack(">II", file.read(24)[16:])


class Manual(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.pages = {name: Page(name) for name in sorted(os.listdir(MANUAL)) if name.endswith(".htm")}

    def test_every_page_is_well_formed_has_a_title_of_its_own_and_links_within_the_manual(self):
        self.assertEqual(len({page.title for page in self.pages.values()} - {""}), len(self.pages))
        for name, page in self.pages.items():
            self.assertEqual(page.problems, [], name)
            for link in page.links:
                target, _, anchor = link.partition("#")
                with self.subTest(page=name, link=link):
                    self.assertIn(target or name, os.listdir(MANUAL))
                    if anchor:
                        self.assertIn(anchor, self.pages[target or name].anchors)

    def test_every_page_is_reached_from_the_first(self):
        reached, next_ones = set(), {FIRST}
        while next_ones:
            reached |= next_ones
            links = {link.partition("#")[0] for name in next_ones for link in self.pages[name].links}
            next_ones = (links & set(self.pages)) - reached
        self.assertEqual(reached, set(self.pages))

    def test_every_picture_is_there_sharp_on_any_display_and_described(self):
        pictures = [picture for page in self.pages.values() for picture in page.pictures]
        self.assertNotEqual(pictures, [])
        for picture in pictures:
            with self.subTest(picture=picture):
                width, height = size_of(picture["src"])
                path, scale = picture["srcset"].split()
                self.assertEqual((scale, size_of(path)), ("2x", (2 * width, 2 * height)))
                self.assertGreater(len(picture["alt"]), 5)

    def test_every_topic_that_the_program_names_has_its_page(self):
        topics = {FIRST}
        for folder in ("gui", "backend", "host", "apps"):
            for path in glob.glob(f"{SOURCE}/{folder}/**/*.[ch]*", recursive=True):
                with open(path, encoding="utf-8") as file:
                    topics |= set(re.findall(r'"([^"\n]*\.htm)"', file.read()))
        self.assertEqual(topics - set(self.pages), set())


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[2:], verbosity=1)
