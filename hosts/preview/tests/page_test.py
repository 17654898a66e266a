#!/usr/bin/env python3
"""Tests of the page for browsers, in headless Chromium through its driver.

    page_test.py --preview PATH --worker PATH [--screenshot FILE]

Exits with 77 where chromium or chromedriver is missing, unless CI is set.
"""

import argparse
import base64
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import urllib.request

ROOT = pathlib.Path(__file__).resolve().parents[3]
DRAWING = ROOT / "tests" / "drawings" / "generated" / "viewport_clip_R2000.dxf"
FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
         "--disable-background-networking", "--disable-component-update", "--disable-sync",
         "--window-size=1000,700"]
# The driver is on this machine, whatever the environment says of proxies.
NO_PROXY = urllib.request.build_opener(urllib.request.ProxyHandler({}))
OPTIONS = argparse.Namespace()
# Only a hang reaches it. The driver has limits of its own, in milliseconds.
HANG_SECONDS = 600
TIMEOUTS = {name: HANG_SECONDS * 1000 for name in ("script", "pageLoad")}


class Browser:
    """A session of the WebDriver protocol, as far as these tests need it."""

    def __init__(self, folder):
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL, text=True)
        self.address = "http://127.0.0.1:" + self.read_port()
        try:
            answer = self.start(folder)
        except Exception:
            self.driver.kill()
            raise
        self.session = "/session/" + answer["sessionId"]

    def start(self, folder):
        options = {"args": [*FLAGS, f"--user-data-dir={folder}"]}
        return self.send("POST", "/session", {"capabilities": {"alwaysMatch": {
            "timeouts": TIMEOUTS, "goog:chromeOptions": options, "goog:loggingPrefs": {"browser": "ALL"}}}})

    def read_port(self):
        for line in self.driver.stdout:
            if "successfully on port" in line:
                return line.split("on port")[1].strip(" .\n")
        raise RuntimeError("chromedriver named no port")

    def send(self, method, path, body=None):
        request = urllib.request.Request(self.address + path, method=method,
                                         data=None if body is None else json.dumps(body).encode(),
                                         headers={"Content-Type": "application/json"})
        with NO_PROXY.open(request, timeout=HANG_SECONDS) as answer:
            return json.load(answer)["value"]

    def open(self, file):
        self.send("POST", self.session + "/url", {"url": pathlib.Path(file).as_uri()})

    def run(self, script, *arguments):
        return self.send("POST", self.session + "/execute/sync",
                         {"script": script, "args": list(arguments)})

    def wait_until_painted(self):
        """Two frames: the second begins when the first is on the screen."""
        self.send("POST", self.session + "/execute/async", {"args": [], "script":
                  "const done = arguments[0];"
                  "requestAnimationFrame(() => requestAnimationFrame(() => done()))"})

    def actions(self, *actions):
        self.send("POST", self.session + "/actions", {"actions": list(actions)})

    def log(self):
        return self.send("POST", self.session + "/se/log", {"type": "browser"})

    def screenshot(self):
        return base64.b64decode(self.send("GET", self.session + "/screenshot"))

    def close(self):
        try:
            self.send("DELETE", self.session)
        finally:
            self.driver.terminate()
            self.driver.wait(timeout=HANG_SECONDS)
            self.driver.stdout.close()


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        cls.addClassCleanup(folder.cleanup)
        cls.page = os.path.join(folder.name, "page.html")
        subprocess.run([OPTIONS.preview, "--worker", OPTIONS.worker, str(DRAWING), "--html",
                        cls.page], check=True, capture_output=True, timeout=HANG_SECONDS)
        cls.browser = Browser(os.path.join(folder.name, "profile"))
        cls.addClassCleanup(cls.browser.close)

    def setUp(self):
        self.browser.open(self.page)

    def box(self):
        return self.browser.run("return document.querySelector('.sheet.open')"
                                ".getAttribute('viewBox').split(' ').map(Number)")

    def open_sheet(self):
        return self.browser.run("return document.querySelector('.sheet.open').id")

    def test_opens_without_errors_and_shows_model_space(self):
        self.assertEqual(self.open_sheet(), "sheet0")
        self.assertEqual(self.browser.log(), [])
        drawn = self.browser.run("const b = document.querySelector('#sheet0 use').getBBox();"
                                 "return [b.width, b.height]")
        self.assertGreater(min(drawn), 0)

    def test_tabs_open_sheets(self):
        self.browser.run("document.querySelectorAll('[role=tab]')[1].click()")
        self.assertEqual(self.open_sheet(), "sheet1")
        shown = self.browser.run("return [...document.querySelectorAll('.sheet')].filter("
                                 "s => getComputedStyle(s).display !== 'none').length")
        self.assertEqual(shown, 1)

    def test_switches_hide_and_show_layers(self):
        count = """
            const name = arguments[0];
            return [...document.querySelectorAll('#model path')].filter(p =>
              p.classList.contains(name) && getComputedStyle(p).display !== 'none').length"""
        used = self.browser.run("return document.querySelector('#model path').classList[0]")
        before = self.browser.run(count, used)
        self.assertGreater(before, 0)
        click = "document.querySelector(`input[data-layer='${arguments[0]}']`).click()"
        self.browser.run(click, used[1:])
        self.assertEqual(self.browser.run(count, used), 0)
        self.browser.run(click, used[1:])
        self.assertEqual(self.browser.run(count, used), before)

    def test_wheel_zooms_at_the_pointer(self):
        before = self.box()
        self.browser.actions({"type": "wheel", "id": "wheel", "actions": [
            {"type": "scroll", "x": 300, "y": 300, "deltaX": 0, "deltaY": -400,
             "origin": "viewport"}]})
        after = self.box()
        self.assertLess(after[2], before[2])
        self.assertAlmostEqual(after[3] / before[3], after[2] / before[2], places=6)

    def test_dragging_pans_by_what_the_pointer_moves(self):
        before = self.box()
        scale = self.browser.run("return document.querySelector('.sheet.open').getScreenCTM().a")
        self.browser.actions({"type": "pointer", "id": "mouse", "actions": [
            {"type": "pointerMove", "x": 300, "y": 300}, {"type": "pointerDown", "button": 0},
            {"type": "pointerMove", "x": 350, "y": 330}, {"type": "pointerUp", "button": 0}]})
        after = self.box()
        self.assertAlmostEqual(after[0] - before[0], -50 / scale, delta=1 / scale)
        self.assertAlmostEqual(after[1] - before[1], -30 / scale, delta=1 / scale)

    def test_fit_shows_all_again(self):
        before = self.box()
        self.browser.run("zoom(0.1, 300, 300); document.getElementById('fit').click()")
        self.assertEqual(self.box(), before)

    def test_viewports_show_model_space(self):
        uses = self.browser.run("return [...document.querySelectorAll('.sheet')].map(s =>"
                                "s.querySelectorAll('use[href=\"#model\"]').length)")
        self.assertEqual(uses[0], 1)
        self.assertGreater(max(uses[1:]), 0)

    # Where on the screen a record is seen: a little along the first element that it has,
    # away from the texts and crossings of the drawing's grid.
    PLACE = """
        const [record, sheet] = arguments;
        show(sheet);
        const el = document.querySelector(`#model [data-r='${record}']`);
        const seen = groupsOf(sheets[sheet]).find(g => g.group.id === 'model');
        const [x0, y0, x1, y1] = numbers(el.getAttribute('d')), m = seen.matrix;
        const x = x0 + 0.123 * (x1 - x0), y = y0 + 0.123 * (y1 - y0);
        const c = sheets[sheet].getScreenCTM();
        const px = m.a * x + m.c * y + m.e, py = m.b * x + m.d * y + m.f;
        return [c.a * px + c.c * py + c.e, c.b * px + c.d * py + c.f].map(Math.round)"""

    def record_of(self, condition):
        """The first record of which a condition in JavaScript holds, and its number."""
        return self.browser.run(f"return load().then(() => {{ const i = data.records.findIndex(r =>"
                                f"{condition}); return [i, data.records[i]] }})")

    def click(self, x, y):
        self.browser.actions({"type": "pointer", "id": "mouse", "actions": [
            {"type": "pointerMove", "x": x, "y": y}, {"type": "pointerDown", "button": 0},
            {"type": "pointerUp", "button": 0}]})

    def wait_for(self, condition):
        """Until a condition in JavaScript holds, looked at in every frame."""
        self.browser.send("POST", self.browser.session + "/execute/async", {"args": [], "script":
                          "const done = arguments[0]; const look = () => "
                          f"({condition}) ? done() : requestAnimationFrame(look); look()"})

    def listed(self):
        rows = self.browser.run("return [...document.querySelectorAll('#keys tr')].map(r =>"
                                "[r.cells[0].textContent, r.cells[1].textContent])")
        return dict(rows)

    def test_a_click_lists_the_keys_of_the_record(self):
        number, record = self.record_of("r.type === 'LINE'")
        self.click(*self.browser.run(self.PLACE, number, 0))
        self.wait_for("document.querySelector('.picked')")
        listed = self.listed()
        self.assertEqual(listed["type"], "LINE")
        self.assertEqual(listed["layer"], record["layer"])
        self.assertEqual(float(listed["startX"]), record["startX"])
        self.assertEqual(self.browser.run("return picked"), record)

    def test_a_click_beside_everything_clears_the_list(self):
        number, _ = self.record_of("r.type === 'LINE'")
        self.click(*self.browser.run(self.PLACE, number, 0))
        self.wait_for("document.querySelector('.picked')")
        corner = self.browser.run("const b = stage.getBoundingClientRect();"
                                  "return [Math.round(b.left + 2), Math.round(b.bottom - 2)]")
        self.click(*corner)
        self.wait_for("!document.querySelector('.picked')")
        self.assertEqual(self.listed(), {})

    def test_a_click_does_not_find_layers_that_are_off(self):
        number, record = self.record_of("r.type === 'LINE'")
        place = self.browser.run(self.PLACE, number, 0)
        self.browser.run("document.querySelectorAll('input[data-layer]').forEach(i => i.checked && i.click())")
        hit = "return load().then(() => hitAt(arguments[0], arguments[1]) === null)"
        self.assertTrue(self.browser.run(hit, *place))
        self.browser.run("document.querySelectorAll('input[data-layer]').forEach(i => i.click())")
        self.assertFalse(self.browser.run(hit, *place))

    def test_a_click_finds_model_space_through_a_viewport(self):
        middle = """
            show(1);
            return load().then(() => {
              const seen = groupsOf(sheets[1]).filter(g => g.use);
              for (const g of seen) for (const e of entriesOf(g.group)) {
                const [x, y] = numbers(e.el.getAttribute('d')), m = g.matrix;
                const px = m.a * x + m.c * y + m.e, py = m.b * x + m.d * y + m.f;
                if (probe(g.clip, px, py).inside && isShown(e.el, g.use)) {
                  const c = sheets[1].getScreenCTM();
                  return [e.r, c.a * px + c.c * py + c.e, c.b * px + c.d * py + c.f];
                }
              }
            })"""
        _, x, y = self.browser.run(middle)
        self.click(round(x), round(y))
        self.wait_for("document.querySelector('#sheet1 .picked')")
        self.assertIn("type", self.listed())

    def test_finds_text_and_jumps_to_it(self):
        self.browser.run("document.getElementById('find').value = '15';"
                         "return find('15')")
        hits = self.browser.run("return [...document.querySelectorAll('#hits button')].map("
                                "b => b.textContent)")
        self.assertEqual(hits, ["Model: 15"])
        before = self.box()
        self.browser.run("document.querySelector('#hits button').click()")
        self.assertLess(self.box()[2], before[2])
        self.assertEqual(self.listed()["html"], "<p>15</p>")
        inside = self.browser.run("""
            const a = document.querySelector('.picked').getBoundingClientRect();
            const b = stage.getBoundingClientRect();
            return a.width > 0 && a.left >= b.left && a.right <= b.right && a.top >= b.top &&
                   a.bottom <= b.bottom""")
        self.assertTrue(inside)

    def test_steps_through_the_hits_by_key(self):
        self.browser.run("return find('1')")
        hits = self.browser.run("return hits.map(h => h.said)")
        self.assertGreater(len(hits), 2)
        step = "dispatchEvent(new KeyboardEvent('keydown', {key: 'F3', shiftKey: arguments[0]}))"
        for shift, expected in ((False, 0), (False, 1), (True, 0), (True, len(hits) - 1)):
            self.browser.run(step, shift)
            self.assertEqual(self.listed()["html"], f"<p>{hits[expected]}</p>")

    def test_typing_in_the_field_does_not_zoom(self):
        self.browser.run("zoom(0.5, 300, 300); document.getElementById('find').focus()")
        before = self.box()
        self.browser.actions({"type": "key", "id": "keys", "actions": [
            {"type": "keyDown", "value": "0"}, {"type": "keyUp", "value": "0"}]})
        self.assertEqual(self.box(), before)
        self.assertEqual(self.browser.run("return document.getElementById('find').value"), "0")

    def test_can_be_looked_at(self):
        self.browser.run("document.querySelectorAll('[role=tab]')[1].click()")
        self.browser.wait_until_painted()
        picture = self.browser.screenshot()
        if OPTIONS.screenshot:
            pathlib.Path(OPTIONS.screenshot).write_bytes(picture)
        self.assertEqual(picture[:8], b"\x89PNG\r\n\x1a\n")


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--preview", required=True)
    parser.add_argument("--worker", required=True)
    parser.add_argument("--screenshot")
    OPTIONS, rest = parser.parse_known_args()
    if not all(map(shutil.which, ("chromium", "chromedriver"))):
        print("chromium or chromedriver is missing")
        sys.exit(1 if os.environ.get("CI") else 77)
    unittest.main(argv=[sys.argv[0], *rest])
