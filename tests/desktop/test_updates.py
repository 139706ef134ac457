"""The update check of a build whose feed is on this machine."""

import functools
import http.server
import os
import pathlib
import ssl
import threading

from tests.desktop import desktop_case
from tests.desktop.desktop_case import VERSION
from tests.desktop.window_case import WindowCase

desktop_case.PROGRAM = pathlib.Path(os.environ["ORVANE_FEED_PROGRAM"])
NEWER = VERSION + ".1"
PORT = int(os.environ["ORVANE_FEED_PORT"])
FEED = """<?xml version="1.0"?><rss version="2.0"><channel><item>
<link>https://orvane.example/download/{version}</link>
<description>What changed in {version}.</description>
<enclosure url="https://orvane.example/orvane.tar.xz" length="4194304" version="{version}"/>
</item></channel></rss>"""


class Updates(WindowCase):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.feed = cls.desktop.folder / "appcast.xml"
        server = http.server.ThreadingHTTPServer(("127.0.0.1", PORT), functools.partial(
            http.server.SimpleHTTPRequestHandler, directory=cls.feed.parent))
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(os.environ["ORVANE_FEED_CERTIFICATE"])
        server.socket = context.wrap_socket(server.socket, server_side=True)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        cls.addClassCleanup(server.server_close)
        cls.addClassCleanup(server.shutdown)

    def test_finds_no_newer_version_an_error_and_a_newer_one(self):
        self.feed.write_text(FEED.format(version=VERSION))
        self.pointer.key("Control_L", "u")
        self.wait_for_control("Orvane is up to date")
        self.pointer.key("Escape")
        self.wait_until_gone("Orvane is up to date")

        self.feed.write_text("<html>no feed</html>")
        self.choose("Orvane", "Check for Updates...")
        self.wait_for_control("The check didn't succeed")
        self.picture("error")
        self.feed.write_text(FEED.format(version=NEWER))
        self.press("Try Again")
        self.wait_for_control("A new version is available")
        self.wait_for_control(f"Orvane {NEWER} can be downloaded (4.0 MB). You have version {VERSION}.")
        self.wait_for_control(f"What changed in {NEWER}.")
        self.picture("newer")
        self.assertEqual(self.orvane.lines(), [])
