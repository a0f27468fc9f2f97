# The program as a client of a Wayland compositor. There is no mouse in it: no tool of Debian's moves one there.

import json
import os
import shutil
import tempfile

from desktop import AWKWARD_NAME, LIMIT_S, PICTURES, PROGRAM, DesktopTest, hex_digest

CONFIG = "output * resolution 1600x1200\ndefault_border none\nfor_window [app_id=.*] floating enable\n"


class WaylandTest(DesktopTest):
    def start_display(self):
        # The compositor refuses to serve as root, so that it may have to be somebody else, in a folder of its own.
        folder = tempfile.TemporaryDirectory(prefix="kestrum-e2e-")
        self.addCleanup(folder.cleanup)
        other_user = []
        if os.geteuid() == 0:
            other_user = ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"]
            shutil.chown(folder.name, "nobody")
        config = os.path.join(folder.name, "config")
        with open(config, "w", encoding="ascii") as file:
            file.write(CONFIG)
        os.chmod(config, 0o644)
        self.start([*other_user, "sway", "--config", config], XDG_RUNTIME_DIR=folder.name, HOME=folder.name,
                   WLR_BACKENDS="headless", WLR_LIBINPUT_NO_DEVICES="1", WLR_RENDERER="pixman")

        def place_of(beginning):
            names = (name for name in os.listdir(folder.name) if name.startswith(beginning) and "lock" not in name)
            return next((os.path.join(folder.name, name) for name in names), None)

        self.environment["WAYLAND_DISPLAY"] = self.wait_for(lambda: place_of("wayland-"), "a compositor")
        self.environment["SWAYSOCK"] = self.wait_for(lambda: place_of("sway-ipc"), "its commands")
        self.environment["QT_QPA_PLATFORM"] = "wayland"

    def take_picture(self, name):
        PICTURES.mkdir(parents=True, exist_ok=True)
        self.ask("grim", str(PICTURES / f"{name}.png"))
        return PICTURES / f"{name}.png"

    # The window with the keyboard, as the compositor knows it.
    def window(self):
        nodes = [json.loads(self.ask("swaymsg", "-t", "get_tree") or "{}")]
        for node in nodes:
            nodes += node.get("nodes", []) + node.get("floating_nodes", [])
        return next((node for node in nodes if node.get("focused") and node.get("app_id")), {})

    def clipboard(self, *options):
        return self.ask("timeout", "5", "wl-paste", "--no-newline", *options)

    # The keyboard comes and goes with the keys, so that the window gets a moment to notice it. With the keyboard newer
    # versions of Qt let go what others have on the clipboard.
    def press(self, *keys, modifiers=()):
        held = [argument for name in modifiers for argument in ("-M", name)]
        pressed = [argument for key in keys for argument in ("-k", key)]
        self.ask("wtype", "-s", "300", *held, *pressed)

    # Presses F5 until the digest is on the clipboard: a window that has just opened may miss a key.
    def digest(self, text):
        self.wait_for(lambda: self.press("F5") or self.clipboard() == text, f"the clipboard holds {text}")

    def test_digests_copies_and_pastes_at_every_scale_under_its_desktop_entry(self):
        file, other = self.make_file(AWKWARD_NAME), self.make_file("other file.bin", b"other")
        for scale in ("1", "1.5", "2"):
            with self.subTest(scale):
                self.assertTrue(self.ask("swaymsg", "output", "*", "scale", scale))
                program = self.start([PROGRAM, file])
                self.wait_for(lambda: self.window().get("app_id") == "example.quillon.Kestrum", "the program's window")
                self.assertRegex(self.window()["name"], "^Kestrum v")
                self.digest(hex_digest("sha256"))
                self.start(["wl-copy", "--foreground", str(other)])
                self.wait_for(lambda: self.clipboard() == str(other), "the other file's name on the clipboard")
                self.press("a", "v", modifiers=["ctrl"])
                self.digest(hex_digest("sha256", b"other"))
                self.ask("swaymsg", '[app_id="example.quillon.Kestrum"] kill')
                self.assertEqual(program.wait(9), 0)
