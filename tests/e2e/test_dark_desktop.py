"""The window on a desktop with dark colours."""

import os
import pathlib

from desktop import DesktopTest, Program

DRAG_SOURCE = os.environ["KESTRUM_DRAG_SOURCE"]
# The toolkit itself reads these colours where the desktop calls itself KDE.
DARK_COLOURS = "".join(f"[Colors:{part}]\nBackgroundNormal=30,30,30\nForegroundNormal=240,240,240\n"
                       for part in ("Window", "View", "Button", "Tooltip", "Selection"))
KDE = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_SESSION_VERSION": "5"}


class DarkDesktop(DesktopTest):
    def setUp(self):
        super().setUp()
        settings = pathlib.Path(self.desktop.environment["XDG_CONFIG_HOME"]) / "kdeglobals"
        settings.write_text(DARK_COLOURS, encoding="ascii")

    def test_the_window_is_light_where_other_programs_are_dark(self):
        other = self.desktop.start([DRAG_SOURCE], env={**self.desktop.environment, **KDE})
        other_window = self.desktop.find_window(other, "^Drag source$")
        self.desktop.wait_for(lambda: 0.0 < self.desktop.brightness(other_window) < 0.3, "a dark window")
        program = Program(self.desktop, **KDE)
        self.desktop.wait_for(lambda: self.desktop.brightness(program.window) > 0.7, "a light window")
        self.finish(program)
