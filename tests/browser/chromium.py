"""Drives a headless Chromium over its DevTools pipe.

Chromium reads commands from file descriptor 3 and writes answers and events to 4: JSON, each text
ended by a NUL. Every page has a session; `Page.events` keeps what the page told, oldest first.
"""

import fcntl
import json
import os
import pathlib
import select
import shutil
import signal
import tempfile
import time
from typing import Any, Optional

PROGRAMS = ("chromium", "chromium-browser", "google-chrome")
FLAGS = ("--headless", "--remote-debugging-pipe", "--no-sandbox", "--disable-gpu", "--disable-quic",
         "--no-first-run", "--disable-background-networking", "--disable-component-update",
         "--disable-sync", "--disable-extensions", "--disable-dev-shm-usage")
TIMEOUT = 300.0  # seconds until a command or an event is missed

Message = dict[str, Any]


class ChromiumError(Exception):
    """Chromium refused a command, ended, or did not answer in time."""


def find_program() -> Optional[str]:
    """Returns the path of Chromium, or None where there is none."""
    return next((path for name in PROGRAMS if (path := shutil.which(name))), None)


def _pipe() -> tuple[int, int]:
    """Makes a pipe whose ends stay clear of the descriptors 3 and 4."""
    ends = os.pipe()
    high = tuple(fcntl.fcntl(end, fcntl.F_DUPFD_CLOEXEC, 10) for end in ends)
    for end in ends:
        os.close(end)
    return high[0], high[1]


class Browser:
    """A running Chromium with a new profile. Use it in a `with` statement."""

    def __init__(self, program: str) -> None:
        self._profile = tempfile.mkdtemp(prefix="chromium-")
        commands, self._write = _pipe()
        self._read, answers = _pipe()
        arguments = [program, *FLAGS, f"--user-data-dir={self._profile}", "about:blank"]
        self._process = os.posix_spawn(program, arguments, os.environ, file_actions=[
            (os.POSIX_SPAWN_OPEN, 1, os.devnull, os.O_WRONLY, 0),
            (os.POSIX_SPAWN_OPEN, 2, os.devnull, os.O_WRONLY, 0),
            (os.POSIX_SPAWN_DUP2, commands, 3), (os.POSIX_SPAWN_DUP2, answers, 4)], setpgroup=0)
        os.close(commands)
        os.close(answers)
        self._unread = b""
        self._last_id = 0
        self._pages: dict[str, "Page"] = {}

    def __enter__(self) -> "Browser":
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def call(self, method: str, session: str = "", **parameters: Any) -> Message:
        """Sends a command and returns its result."""
        self._last_id += 1
        command = {"id": self._last_id, "method": method, "params": parameters}
        if session:
            command["sessionId"] = session
        self._send(json.dumps(command).encode() + b"\0")
        deadline = time.monotonic() + TIMEOUT
        while True:
            message = self.receive(deadline)
            if message.get("id") != self._last_id:
                continue
            if "error" in message:
                raise ChromiumError(f"{method}: {message['error'].get('message')}")
            result: Message = message["result"]
            return result

    def _send(self, data: bytes) -> None:
        while data:
            data = data[os.write(self._write, data):]

    def receive(self, deadline: float) -> Message:
        """Returns the next message; an event is also kept by its page."""
        parts = [self._unread]
        while b"\0" not in parts[-1]:
            if not select.select([self._read], [], [], max(0.0, deadline - time.monotonic()))[0]:
                raise ChromiumError("no answer in time")
            parts.append(os.read(self._read, 1 << 20))
            if not parts[-1]:
                raise ChromiumError("ended")
        text, _, self._unread = b"".join(parts).partition(b"\0")
        message: Message = json.loads(text)
        page = self._pages.get(message.get("sessionId", ""))
        if page and "method" in message:
            page.events.append(message)
        return message

    def new_page(self) -> "Page":
        """Opens an empty page whose events are told from its start."""
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        self._pages[session] = Page(self, target, session)
        for domain in ("Page", "Runtime", "Log", "Network"):
            self._pages[session].call(f"{domain}.enable")
        return self._pages[session]

    def close(self) -> None:
        """Ends Chromium and removes its profile."""
        try:
            self.call("Browser.close")
        except (ChromiumError, OSError):
            pass
        os.close(self._write)
        os.close(self._read)
        deadline = time.monotonic() + 10
        while os.waitpid(self._process, os.WNOHANG) == (0, 0):
            if time.monotonic() > deadline:
                os.killpg(self._process, signal.SIGKILL)
            time.sleep(0.02)
        shutil.rmtree(self._profile, ignore_errors=True)


class Page:
    """A page of the browser."""

    def __init__(self, browser: Browser, target: str, session: str) -> None:
        self._browser = browser
        self._target = target
        self._session = session
        self.events: list[Message] = []

    def call(self, method: str, **parameters: Any) -> Message:
        """Sends a command to this page and returns its result."""
        return self._browser.call(method, self._session, **parameters)

    def wait(self, method: str, since: int = 0) -> Message:
        """Returns the first event of this name from the given index on, and waits for it."""
        deadline = time.monotonic() + TIMEOUT
        while True:
            for event in self.events[since:]:
                if event["method"] == method:
                    return event
            since = len(self.events)
            self._browser.receive(deadline)

    def navigate(self, where: "str | pathlib.Path") -> None:
        """Opens a URL or a file and returns when it is loaded."""
        url = where.resolve().as_uri() if isinstance(where, pathlib.Path) else where
        start = len(self.events)
        failure = self.call("Page.navigate", url=url).get("errorText")
        if failure:
            raise ChromiumError(f"{url}: {failure}")
        self.wait("Page.loadEventFired", start)

    def evaluate(self, expression: str) -> Any:
        """Returns the value of a JavaScript expression, or of the promise that it gives."""
        answer = self.call("Runtime.evaluate", expression=expression, returnByValue=True,
                           awaitPromise=True)
        if "exceptionDetails" in answer:
            details = answer["exceptionDetails"]
            raise ChromiumError(details.get("exception", {}).get("description", details["text"]))
        return answer["result"].get("value")

    def press(self, key: str, code: int) -> None:
        """Presses a key that types no text, such as ("Tab", 9)."""
        for kind in ("rawKeyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=key, code=key,
                      windowsVirtualKeyCode=code)

    def close(self) -> None:
        """Closes the page."""
        self._browser.call("Target.closeTarget", targetId=self._target)
