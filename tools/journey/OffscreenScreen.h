#pragma once

namespace bravona {

// Windows without a display, on a screen of a usual size; before the application is made.
void useOffscreenScreen();

}  // namespace bravona
