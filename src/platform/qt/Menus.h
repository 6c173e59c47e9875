#pragma once

#include <functional>

#include "platform/windowing/Parts.h"

class QMenu;
class QMenuBar;

namespace bravona::menus {

// Called when an entry is chosen by hand.
using Chosen = std::function<void(Menu&)>;

// The bar as the record stands now; made anew only when entries came or went.
void follow(QMenuBar& bar, Menu& record, const Chosen& chosen);
void fill(QMenu& menu, Menu& record, const Chosen& chosen);
// Opens the menu of the bar whose title carries this letter; false when there is none.
bool openByLetter(QMenuBar& bar, char32_t letter);

}  // namespace bravona::menus
