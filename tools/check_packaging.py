#!/usr/bin/env python3
"""Fails when something that packages and bundles carry is not as desktops, shells and readers of manuals expect it: each is judged
by the tool that knows best. Takes a build folder, build/release unless named."""
import os
import pty
import re
import select
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

BUILD = Path(sys.argv[1] if len(sys.argv) > 1 else "build/release").absolute()
SHARE = BUILD / "share"
PATIENCE = 20  # seconds
found = []


def run(*command, **environment):
    done = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                          timeout=PATIENCE, env={**os.environ, **environment})
    return done.returncode, done.stdout.decode("utf-8", "replace")


CONTROLS = re.compile(r"\0|\x1b\[[0-9;?]*[A-Za-z]")  # of a terminal


def flags_in(text):
    return set(re.findall(r"(?<![\w-])--[a-z][a-z-]+", text))


def judge(*command, **environment):
    """A tool that says nothing is content."""
    status, said = run(*command, **environment)
    if status != 0 or said.strip():
        found.append(f"{command[0]}:\n{said.strip()}")


def typed(shell, setup, line, wanted, cwd):
    """What a shell shows for a line that ends in tabs: as much as it takes until all that is wanted is there."""
    pid, terminal = pty.fork()
    if pid == 0:
        os.chdir(cwd)
        os.execvpe(shell[0], shell, {"PATH": os.environ["PATH"], "HOME": str(cwd), "TERM": "vt100", "LC_ALL": "C.UTF-8"})
    shown = ""
    os.write(terminal, setup.encode() + b"\n")
    end = time.monotonic() + PATIENCE
    sent = False
    while time.monotonic() < end and not (sent and all(word in shown for word in wanted)):
        if select.select([terminal], [], [], 0.2)[0]:
            shown += CONTROLS.sub("", os.read(terminal, 65536).decode("utf-8", "replace"))
        if not sent and "are ready" in shown:
            shown, sent = "", True
            os.write(terminal, line.encode())
    os.kill(pid, signal.SIGKILL)
    os.waitpid(pid, 0)
    os.close(terminal)
    return shown


def check_flags(flags):
    """Everything that the program understands is written about and completed, and nothing else."""
    sources = {f"{page.relative_to(SHARE)}": run("gzip", "-dc", page)[1].replace("\\-", "-") for page in SHARE.glob("man/**/*.gz")}
    sources |= {name: (SHARE / name).read_text("utf-8") for name in
                ("bash-completion/completions/vellumora", "zsh/site-functions/_vellumora")}
    sources["fish"] = "".join(run("fish", "-c", f"complete -C 'vellumora {words}--'", **FISH)[1] for words in ("", "--capturar "))
    for name, text in sorted(sources.items()):
        for flag in sorted(flags ^ flags_in(text)):
            found.append(f"{name}: {flag} " + ("is missing" if flag in flags else "is not in --help"))


# Without the user's own completions and history.
FISH = {"XDG_DATA_DIRS": str(SHARE), "XDG_CONFIG_HOME": "/nonexistent", "XDG_DATA_HOME": "/nonexistent", "LC_ALL": "C.UTF-8",
        "PATH": f"{BUILD}:{os.environ['PATH']}"}  # it completes only what there is


FOR_SCRIPTS = {"--salida", "--pantalla", "--region"}  # after --capturar


def terminals():
    """Whether this machine has any; a bare system without /dev/pts has none."""
    try:
        for end in pty.openpty():
            os.close(end)
    except OSError:
        return False
    return True


def check_typed(flags, folder):
    """In bash and zsh, which complete only for somebody who types."""
    ready = "echo completions 'are' ready"
    bash = f"source {SHARE}/bash-completion/completions/vellumora; {ready}"
    zsh = f"fpath=({SHARE}/zsh/site-functions $fpath); autoload -U compinit; compinit -u -d {folder}/.dump; LISTMAX=999; {ready}"
    for shell, setup in ((["bash", "--norc", "--noprofile", "-i"], bash), (["zsh", "-f", "-i"], zsh)):
        for line, wanted in (("vellumora --\t\t\t", flags - FOR_SCRIPTS), ("vellumora --capturar --\t\t\t", FOR_SCRIPTS),
                             ("vellumora --demo a\\ pic\t", ["ture.png"]), ("vellumora --selftest al\t", ["bums/"])):
            shown = typed(shell, setup, line, wanted, folder)
            found.extend(f"{shell[0]}: {line!r} does not bring up {word}" for word in wanted if word not in shown)


def check_completions(flags):
    with tempfile.TemporaryDirectory() as folder:
        (Path(folder) / "a picture.png").touch()
        (Path(folder) / "albums").mkdir()
        if terminals():
            check_typed(flags, folder)
        else:
            print("packaging: there are no terminals here, so what bash and zsh complete was not tried")
        for words, wanted in (("--demo a", "a picture.png"), ("--selftest al", "albums/")):
            said = run("fish", "-c", f"cd {folder}; complete -C 'vellumora {words}'", **FISH)[1]
            if wanted not in said:
                found.append(f"fish: {words!r} does not bring up {wanted}: {said}")


(entry,) = SHARE.glob("applications/*.desktop")
(metainfo,) = SHARE.glob("metainfo/*.xml")
judge("desktop-file-validate", entry)
# The placeholder for the website ends with a word that no real name ends with.
status, said = run("appstreamcli", "validate", "--strict", "--no-net", "--explain", "--override=cid-maybe-not-rdns=pedantic", metainfo)
if status != 0:
    found.append(said)
for page in BUILD.glob("man/**/vellumora.1"):
    judge("sh", "-c", f"man --warnings -E UTF-8 -Tutf8 -Z -l '{page}' 2>&1 >/dev/null", LC_ALL="C.UTF-8", MANROFFSEQ="")
_, usage = run(BUILD / "vellumora", "--help")
check_flags(flags_in(usage))
check_completions(flags_in(usage))
print("\n".join(found) or "packaging: in order")
sys.exit(bool(found))
