#pragma once

#include <string>
#include <vector>

#include "platform/windowing/Control.h"

namespace bravona {

class Frame;
class TabControl;

// How the controls of a form stand: a small tree of rows, columns, labelled lines, frames and tabs. The order of the
// tree is the order of Tab. Spacing, alignment and widths are the renderer's.
struct Layout {
    enum class Kind {
        row,      // children side by side
        column,   // children one above the other
        form,     // lines: labels in one right-aligned column, contents beside them
        line,     // one line of a form: `caption` or `label`, and one child
        control,  // `control`
        frame,    // `control` is a Frame, one child
        tabs,     // `control` is a TabControl, one child a page
        stretch   // takes spare room
    };
    Kind kind = Kind::column;
    Control* control = nullptr;
    Control* label = nullptr;  // of a line, when the label is a control of the form
    std::string caption;       // of a line
    std::vector<Layout> children;
    int grow = 0;           // share of the spare room along the parent's direction; 0 for none
    bool alignEnd = false;  // of a row: its children stand at the right edge
};

namespace layout {
Layout row(std::vector<Layout> children);
Layout rowEnd(std::vector<Layout> children);  // at the right edge, as command buttons stand
Layout column(std::vector<Layout> children);
Layout form(std::vector<Layout> lines);
Layout line(std::string caption, Layout content);
Layout line(Control& label, Layout content);
Layout of(Control& control);
Layout frame(Frame& frame, Layout content);
Layout tabs(TabControl& tabs, std::vector<Layout> pages);
Layout stretch();
Layout grow(Layout child, int share = 1);
// Every control of the tree, in Tab order.
void forEachControl(const Layout& root, const std::function<void(Control&)>& visit);
}  // namespace layout

}  // namespace bravona
