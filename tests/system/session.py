"""What every private desktop of a test has: a home folder of its own, an environment in which nothing of the machine's shows,
the programs that run there, and Vellumora's settings and log. All of it goes with the session."""
import os
import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

PROGRAM = os.environ["VELLUMORA"]
HELPERS = Path(os.environ["VELLUMORA_HELPERS"])
# Its name among all programs of a desktop.
ID = re.search(r"VELLUMORA_ID (\S+)\)", (Path(__file__).parents[2] / "CMakeLists.txt").read_text("utf-8"))[1]
PATIENCE = 20  # seconds; a wait that takes longer has failed


def wait_for(condition, what, patience=PATIENCE):
    """Returns what the condition answers as soon as that is true."""
    end = time.monotonic() + patience
    while time.monotonic() < end:
        answer = condition()
        if answer:
            return answer
        time.sleep(0.02)
    raise AssertionError(f"waited in vain for {what}")


class Process:
    """A program of the test. What it prints is kept in a file, so that nothing waits for an unread pipe."""

    def __init__(self, session, name, command, **environment):
        self.session = session
        self.output = session.folder / f"{name}-{len(session.processes)}.out"
        with open(self.output, "wb") as output:
            self.process = subprocess.Popen([*session.prefix, *command], env={**session.environment, **environment},
                                            stdout=output, stderr=subprocess.STDOUT, cwd=session.home)
        session.processes.append(self)

    def lines(self):
        return self.output.read_text("utf-8", "replace").splitlines()

    def says(self, start):
        """The first line with this beginning."""
        return wait_for(lambda: next((line for line in self.lines() if line.startswith(start)), None), start)

    def running(self):
        return self.process.poll() is None

    def status(self):
        try:
            return self.process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            raise AssertionError(f"{self.output.name} does not end\n{self.session.state()}") from None

    def end(self):
        if self.running():
            self.process.terminate()
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()


class Session:
    prefix = ()  # what runs a program as the session's user
    program = PROGRAM

    def __init__(self):
        self.folder = Path(tempfile.mkdtemp(prefix="vellumora-test-"))
        self.home = self.folder / "home"
        (self.home / "Library/Logs").mkdir(parents=True)
        (self.home / "Pictures").mkdir()
        runtime = self.folder / "run"
        runtime.mkdir(mode=0o700)
        self.processes = []
        keep = ("PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS")
        self.environment = {name: os.environ[name] for name in keep if name in os.environ}
        self.environment |= {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(runtime), "LANG": "C.UTF-8",
                             "VELLUMORA_IDIOMA": "en", "NO_AT_BRIDGE": "1"}

    def close(self):
        for process in reversed(self.processes):
            process.end()
        shutil.rmtree(self.folder, ignore_errors=True)

    def state(self):
        """Which processes live and what they said last, for whoever has to understand a failure."""
        said = [f"{process.output.name}: {'runs' if process.running() else process.process.returncode} {process.lines()[-3:]}"
                for process in self.processes]
        return "\n".join([*said, *self.log().splitlines()[-10:]])

    def start_bus(self, *options):
        daemon = Process(self, "bus", ["dbus-daemon", *(options or ["--session"]), "--nofork", "--print-address"])
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = daemon.says("unix:")

    def run(self, *command, binary=False):
        """What a command prints; an empty text when it fails."""
        done = subprocess.run([*self.prefix, *command], env=self.environment, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False)
        return done.stdout if binary else done.stdout.decode("utf-8", "replace")

    # Vellumora.

    def start(self, *arguments, **environment):
        before = self.log().count("registro de atajo")
        process = Process(self, "vellumora", [self.program, *arguments], **environment)
        if not arguments:
            wait_for(lambda: self.log().count("registro de atajo") > before, "the hot key")
        return process

    def store(self, **defaults):
        """Sets values in the user's defaults before the program starts."""
        folder = self.home / ".config/Vellumora"
        folder.mkdir(parents=True, exist_ok=True)
        lines = [f"{key}={value}" for key, value in defaults.items()]
        (folder / "Vellumora.conf").write_text("\n".join(["[General]", *lines, ""]), "utf-8")

    def log(self):
        path = self.home / "Library/Logs/Vellumora.log"
        return path.read_text("utf-8") if path.exists() else ""

    # Pictures.

    def pixels_of(self, picture, area=None):
        """The red, green and blue bytes of an area of a picture in a file."""
        crop = ["-crop", "{2}x{3}+{0}+{1}".format(*area), "+repage"] if area else []
        return self.run("convert", str(picture), *crop, "-depth", "8", "rgb:-", binary=True)
