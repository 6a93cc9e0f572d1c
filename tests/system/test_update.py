"""An old version that replaces itself by a newer one: a bundle moved to where it was not built, a web server on this
machine, and a key that only these programs trust."""
import http.server
import json
import os
import shutil
import signal
import subprocess
import tempfile
import threading
import time
import unittest
from pathlib import Path

from case import SystemTest
from desktop import HELPERS, PROGRAM, Process, wait_for

PACKAGING = Path(__file__).parents[2] / "packaging"
OLD, NEW = "0.0.9", "99.1"


class Server(http.server.ThreadingHTTPServer):
    """Serves the files of a folder, some of them only in part."""

    def __init__(self, folder):
        self.truncated = set()
        self.served = []

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):
                self.server.served.append(self.path)
                file = folder / self.path.lstrip("/")
                if not file.is_file():
                    return self.send_error(404)
                content = file.read_bytes()
                self.send_response(200)
                self.send_header("Content-Length", str(len(content)))
                self.end_headers()
                self.wfile.write(content[:len(content) // 2] if self.path in self.server.truncated else content)

            def log_message(self, *_):
                pass

        super().__init__(("127.0.0.1", 0), Handler)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, *_):
        pass  # a program that was ended in the middle

    def url(self, path):
        return f"http://127.0.0.1:{self.server_port}/{path}"


class Update(SystemTest):
    window_manager = "openbox"
    bus = True

    @classmethod
    def setUpClass(cls):
        cls.store = Path(tempfile.mkdtemp(prefix="vellumora bundles "))
        cls.addClassCleanup(shutil.rmtree, cls.store, True)
        subprocess.run([PACKAGING / "make-bundle", Path(PROGRAM).parent, cls.store], check=True, stdout=subprocess.DEVNULL,
                       env={**os.environ, "XZ_OPT": "-0"})
        (cls.store / "Vellumora.app").rename(cls.store / "plain.app")
        cls.bundle_of(NEW, cls.store / "new")
        cls.site = cls.store / "site"
        cls.site.mkdir()
        subprocess.run(["tar", "-C", cls.store / "new", "-cf", cls.site / "new.tar", "Vellumora.app"], check=True)
        cls.server = Server(cls.site)
        cls.addClassCleanup(cls.server.server_close)
        cls.addClassCleanup(cls.server.shutdown)
        cls.notes = cls.store / "notes.json"
        cls.notes.write_text(json.dumps({"en": "Everything is faster."}))
        signed = cls.sign(cls.site)
        if signed.returncode != 0:
            raise AssertionError(signed.stderr)

    @classmethod
    def sign(cls, folder, **words):
        options = {"key": HELPERS / "update-key-private.pem", "public_key": HELPERS / "update-key.pem", "version": NEW,
                   "url": cls.server.url("new.tar"), "notes": cls.notes, "archive": cls.site / "new.tar", **words}
        archive = options.pop("archive")
        named = [str(word) for name, value in options.items() for word in ("--" + name.replace("_", "-"), value)]
        return subprocess.run([PACKAGING / "sign-manifest", *named, archive, folder], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, check=False)

    @classmethod
    def bundle_of(cls, version, folder):
        folder.mkdir(parents=True)
        bundle = folder / "Vellumora.app"
        shutil.copytree(cls.store / "plain.app", bundle, symlinks=True)
        shutil.copy2(HELPERS / f"libvellumora-{version}.so", bundle / "lib/libvellumora.so")
        return bundle

    def setUp(self):
        super().setUp()
        self.server.truncated.clear()
        self.place = self.desktop.folder / "moved here"
        self.bundle = self.bundle_of(OLD, self.place)
        self.temporary = self.desktop.folder / "tmp"
        self.temporary.mkdir()
        config = self.desktop.home / ".config/Vellumora/Vellumora.conf"
        config.parent.mkdir(parents=True)
        config.write_text(f'[General]\nurlActualizacion={self.server.url("actualizacion.json")}\n')
        self.addCleanup(self.end_reopened)

    def running(self):
        """The processes that run from the bundle, whoever has started them."""
        program = str(self.bundle / "bin/vellumora")
        found = []
        for process in Path("/proc").glob("[0-9]*"):
            try:
                if os.readlink(process / "exe") == program:
                    found.append(process)
            except OSError:
                pass
        return found

    def end_reopened(self):
        for process in self.running():
            os.kill(int(process.name), signal.SIGTERM)

    def start_old(self, **environment):
        return Process(self.desktop, "old", [self.bundle / "bin/vellumora"], TMPDIR=str(self.temporary), **environment)

    def other_session(self):
        """What makes a start one of another session of the same user, which the first knows nothing of."""
        return {"DBUS_SESSION_BUS_ADDRESS": "", "XDG_RUNTIME_DIR": tempfile.mkdtemp(dir=self.desktop.folder)}

    def wait_for_log(self, text):
        wait_for(lambda: text in self.desktop.log(), text)

    def assert_new_version_runs(self, old):
        self.assertEqual(old.status(), 0)
        self.wait_for_log(f"actualizacion: web {NEW}, instalada {NEW}")
        self.assertIn(f"actualizacion: instalando {NEW}", self.desktop.log())
        (process,) = self.running()
        libraries = (process / "maps").read_text()
        for library in ("libvellumora.so", "libQt6Core.so.6"):
            self.assertIn(f"{self.bundle}/lib/{library}", libraries)
        self.assertNotIn("/usr/lib/x86_64-linux-gnu/libQt6", libraries)
        wait_for(lambda: os.listdir(self.place) == [self.bundle.name], "the end of the old bundle")
        self.assertEqual(os.listdir(self.temporary), [])
        self.assertTrue(os.access(self.bundle / "register", os.X_OK) and list(self.bundle.glob("share/applications/*.desktop")))
        self.desktop.press_shortcut()
        self.desktop.key("Escape")
        self.desktop.wait_until_over()

    def test_unattended_in_a_bundle_that_was_renamed_meanwhile(self):
        old = self.start_old(VELLUMORA_PRUEBA_ACTUALIZAR="1")
        self.wait_for_log("registro de atajo")
        self.bundle = self.bundle.rename(self.place / "Renamed.app")
        self.wait_for_log(f"actualizacion: web {NEW}, instalada {OLD}")
        self.assert_new_version_runs(old)

    def test_the_offer_waits_for_a_capture_and_is_accepted(self):
        desktop = self.desktop
        old = self.start_old()
        self.wait_for_log("registro de atajo")
        desktop.press_shortcut()
        self.wait_for_log(f"actualizacion: web {NEW}, instalada {OLD}")
        self.assertEqual(len(desktop.overlays()), 2)
        desktop.drag((200, 200), (600, 500))
        # The first copies and ends the capture; an offer that came with the end of it would take the second.
        desktop.key("Return")
        desktop.wait_until_over()
        ended = time.monotonic()
        desktop.key("Return")
        picture = desktop.pixels_of(desktop.clipboard("png"))
        (alert,) = wait_for(lambda: len(found := desktop.windows("^Vellumora$")) == 1 and found, "the offer")
        self.assertGreater(time.monotonic() - ended, 8)
        wait_for(lambda: desktop.focus() == int(alert), "the focus of the offer")
        desktop.key("Return")
        wait_for(lambda: "instalando" in desktop.log(), "the update")
        self.assertEqual(old.status(), 0)
        wait_for(lambda: self.running(), "the new version")
        wait_for(lambda: desktop.pixels_of(desktop.clipboard("png")) == picture, "the picture on the clipboard")
        self.assert_new_version_runs(old)

    def test_of_two_updates_at_once_one_is_refused(self):
        both = [self.start_old(VELLUMORA_PRUEBA_ACTUALIZAR="1", **self.other_session()) for _ in range(2)]
        self.wait_for_log("actualizacion: otra actualizacion en curso")
        wait_for(lambda: not all(old.running() for old in both), "the end of one")
        self.wait_for_log(f"actualizacion: web {NEW}, instalada {NEW}")
        self.assertEqual(sorted(old.running() for old in both), [False, True])
        wait_for(lambda: os.listdir(self.place) == [self.bundle.name], "the end of the old bundle")
        self.assertEqual(self.desktop.log().count("actualizacion: instalando"), 1)
        version = self.desktop.run(str(self.bundle / "bin/vellumora"), "--version")
        self.assertEqual(version.strip(), f"Vellumora {NEW}")

    def test_a_manifest_that_nobody_could_use_is_not_signed(self):
        def made(name, *command):
            path = self.desktop.folder / name
            path.write_text(self.desktop.run("openssl", *command))
            return path

        other = made("other.pem", "ecparam", "-name", "prime256v1", "-genkey", "-noout")
        half = self.desktop.folder / "half.tar"
        subprocess.run(["tar", "-C", self.store / "new", "--exclude=libvellumora.so", "-cf", half, "Vellumora.app"], check=True)
        for reason, words in {
            "numbers with dots": {"version": "99.1beta"},
            "not 99.2": {"version": "99.2"},
            "not an https address": {"url": "http://vellumora.example/new.tar"},
            "no English notes": {"notes": self.desktop.folder / "notes.json"},
            "could be unpacked": {"archive": self.notes},
            "does not run here": {"archive": half},  # though what it lacks lies in the build folder
            "not a P-256 key": {"key": made("wide.pem", "ecparam", "-name", "secp384r1", "-genkey", "-noout")},
            "dgst: ": {"key": other},  # the programs trust another one
        }.items():
            with self.subTest(reason):
                (self.desktop.folder / "notes.json").write_text('{"es": "Todo va más rápido."}')
                signed = self.sign(self.desktop.folder / "signed", **words)
                self.assertIn(reason, signed.stderr)
                self.assertNotEqual(signed.returncode, 0)
                self.assertFalse((self.desktop.folder / "signed").exists())

    def test_a_truncated_download_changes_nothing(self):
        self.server.truncated.add("/new.tar")
        old = self.start_old(VELLUMORA_PRUEBA_ACTUALIZAR="1")
        self.wait_for_log("actualizacion: fallo (")
        (alert,) = wait_for(lambda: self.desktop.windows("^Vellumora$"), "the alert")
        wait_for(lambda: self.desktop.focus() == int(alert), "the focus of the alert")
        self.desktop.key("Escape")
        wait_for(lambda: not self.desktop.windows("^Vellumora$"), "the end of the alert")
        self.assertTrue(old.running())
        version = self.desktop.run(str(self.bundle / "bin/vellumora"), "--version")
        self.assertEqual(version.strip(), f"Vellumora {OLD}")
        self.assertEqual(os.listdir(self.temporary), [])


if __name__ == "__main__":
    unittest.main()
