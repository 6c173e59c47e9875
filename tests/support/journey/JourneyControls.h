#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/windowing/Desktop.h"
#include "platform/windowing/Grids.h"
#include "platform/windowing/Lists.h"
#include "support/journey/JourneyHost.h"
#include "support/journey/JourneyText.h"

namespace bravona {

// Finding what a step names, in the window in front; Impossible where there is no such thing.

Form& frontForm(Desktop& desktop);
// By its name; a compound answers for its main part. In quotes also by its caption.
Control& findControl(Desktop& desktop, const Word& name);
// The same, in sight, enabled and in a window that takes input.
Control& usableControl(Desktop& desktop, const Word& name);
void requireUsable(Desktop& desktop, const Control& control);
template <class C>
C& as(Control& control, ControlKind kind, const char* what)
{
    if (control.kind() != kind) {
        throw Impossible(control.fullName() + " is no " + what);
    }
    return static_cast<C&>(control);
}
[[nodiscard]] bool isReadOnly(const Control& control);

// Rows of any list, combo, grid or tree, without a heading.
[[nodiscard]] std::size_t rowCount(const Control& control);
// The row that a step names, from 0, by number (from 1) or by its main text. A grid's new-row line counts where
// `newRow`.
std::size_t findRow(const Control& control, const Word& row, bool newRow = false);
// Text of a cell, both from 0.
std::string cellText(const Control& control, std::size_t row, std::size_t column);
std::string columnCaptions(const Control& control);  // parted by bars

// Texts as they are compared: without "&", a carriage return with a line feed as a line feed.
std::string comparable(const std::string& text);

}  // namespace bravona
