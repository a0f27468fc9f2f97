#pragma once

/// Gives the application a light palette where the desktop's is dark, that is, where the text is lighter than
/// the window: the forms' own colours are made for a light background. Call it after the application object
/// is made and before the first widget.
void useLightPaletteOnDarkDesktop();
