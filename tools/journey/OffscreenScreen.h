#pragma once

#include <QPalette>

namespace bravona {

// Windows without a display, on a screen of a usual size; before the application is made.
void useOffscreenScreen();
// A palette as dark desktops have it, for pictures.
QPalette darkPalette();

}  // namespace bravona
