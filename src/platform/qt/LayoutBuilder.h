#pragma once

#include <QBoxLayout>
#include <QGridLayout>

#include "platform/windowing/Layout.h"

namespace bravona {

class FormWindow;

// Turns a form's layout tree into widgets in layouts: spacing, alignment and widths are decided here, once for all
// windows.
class LayoutBuilder {
public:
    explicit LayoutBuilder(FormWindow& window) : window_(window) {}
    // The tree as the contents of `parent`, with a margin in pixels around it.
    void build(const Layout& root, QWidget* parent, int margin);

    [[nodiscard]] static bool growsAcross(const Layout& node);
    [[nodiscard]] static bool growsDown(const Layout& node);

private:
    void addTo(QBoxLayout& box, const Layout& node, QWidget* parent, bool amongButtons);
    void fill(QBoxLayout& box, const Layout& node, QWidget* parent);
    QGridLayout* grid(const Layout& node, QWidget* parent);
    void addLine(QGridLayout& grid, int row, const Layout& line, QWidget* parent);
    QWidget* lineLabel(const Layout& line, QWidget* parent);
    QWidget* place(const Layout& node, QWidget* parent);

    FormWindow& window_;
};

}  // namespace bravona
