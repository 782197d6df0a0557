"""Chromium without a window, driven through its own WebDriver program."""
import json
import os
import socket
import subprocess
import tempfile
import time
import urllib.error
import urllib.request


class Browser:
    def __init__(self, width, height, touch=False):
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            self.port = free.getsockname()[1]
        self.folder = tempfile.TemporaryDirectory()
        self.driver = subprocess.Popen(["chromedriver", f"--port={self.port}"], stdout=subprocess.DEVNULL,
                                       stderr=subprocess.DEVNULL)
        options = {"args": ["--headless=new", "--no-sandbox", "--use-angle=swiftshader",
                            "--enable-unsafe-swiftshader", "--no-first-run", "--disable-background-networking",
                            "--disable-component-update", "--disable-sync", "--disable-quic",
                            f"--user-data-dir={self.folder.name}", f"--window-size={width},{height}"]}
        if touch:
            options["mobileEmulation"] = {
                "deviceMetrics": {"width": width, "height": height, "pixelRatio": 2, "touch": True}}
        wanted = {"browserName": "chrome", "goog:chromeOptions": options,
                  "goog:loggingPrefs": {"browser": "ALL", "performance": "ALL"}}
        self.session = ""
        for _ in range(200):
            try:
                answer = self.send("POST", "/session", {"capabilities": {"alwaysMatch": wanted}})
                break
            except OSError:  # not listening yet
                time.sleep(0.05)
        self.session = "/session/" + answer["sessionId"]
        if not touch:
            self.send("POST", "/goog/cdp/execute",
                      {"cmd": "Emulation.setDeviceMetricsOverride",
                       "params": {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False}})

    def send(self, method, path, body=None):
        data = json.dumps(body or {}).encode() if method == "POST" else None
        request = urllib.request.Request(f"http://127.0.0.1:{self.port}{self.session}{path}", method=method, data=data,
                                         headers={"Content-Type": "application/json"})
        try:
            with urllib.request.urlopen(request, timeout=60) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise RuntimeError(error.read().decode()) from None

    def open(self, file):
        self.send("POST", "/url", {"url": "file://" + os.path.abspath(file)})

    def run(self, script, *arguments):
        return self.send("POST", "/execute/sync", {"script": script, "args": list(arguments)})

    def wait(self, script, *arguments):
        for _ in range(100):
            if found := self.run(script, *arguments):
                return found
            time.sleep(0.05)
        raise AssertionError(f"never true: {script}")

    def point(self, x, y, press=False):
        actions = [{"type": "pointerMove", "duration": 0, "x": round(x), "y": round(y)}]
        if press:
            actions += [{"type": "pointerDown", "button": 0}, {"type": "pointerUp", "button": 0}]
        self.send("POST", "/actions", {"actions": [{"type": "pointer", "id": "mouse", "actions": actions}]})

    def press(self, *keys):
        actions = [{"type": kind, "value": key} for key in keys for kind in ("keyDown", "keyUp")]
        self.send("POST", "/actions", {"actions": [{"type": "key", "id": "keys", "actions": actions}]})

    def messages(self):
        return [entry["message"] for entry in self.send("POST", "/se/log", {"type": "browser"})]

    def requests(self):
        """The addresses that pages of files asked for, themselves included."""
        log = [json.loads(entry["message"])["message"] for entry in self.send("POST", "/se/log", {"type": "performance"})]
        return [entry["params"]["request"]["url"] for entry in log if entry["method"] == "Network.requestWillBeSent"
                and entry["params"]["documentURL"].startswith("file:")]

    def close(self):
        try:
            self.send("DELETE", "")
        finally:
            self.driver.terminate()
            self.driver.wait()
            self.folder.cleanup()
