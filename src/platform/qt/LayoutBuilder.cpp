#include "platform/qt/LayoutBuilder.h"

#include <QLabel>
#include <algorithm>

#include "platform/qt/Binder.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/PartBinders.h"
#include "platform/qt/Theme.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

namespace {

bool controlGrowsAcross(const Control& control)
{
    switch (control.kind()) {
    case ControlKind::textBox:
        return static_cast<const TextBox&>(control).grows || static_cast<const TextBox&>(control).multiLine;
    case ControlKind::comboBox:
        return static_cast<const ComboBox&>(control).grows;
    case ControlKind::label: {
        const auto& label = static_cast<const Label&>(control);
        return label.wrap || label.sunken;
    }
    case ControlKind::button:
    case ControlKind::checkBox:
    case ControlKind::optionButton:
    case ControlKind::datePicker:
    case ControlKind::spinButton:
    case ControlKind::pictureBox:
        return false;
    case ControlKind::scrollBar:
        return static_cast<const ScrollBar&>(control).horizontal;
    case ControlKind::composite:
        return LayoutBuilder::growsAcross(static_cast<const Composite&>(control).layout());
    default:
        return true;
    }
}

bool controlGrowsDown(const Control& control)
{
    switch (control.kind()) {
    case ControlKind::textBox: {
        // A few lines of notes stay as they are; a sheet to write on takes what room there is.
        constexpr int sheet = 6;
        const auto& box = static_cast<const TextBox&>(control);
        return box.multiLine && (box.grows || box.lines >= sheet);
    }
    case ControlKind::listBox:
    case ControlKind::listView:
    case ControlKind::treeView:
    case ControlKind::flexGrid:
    case ControlKind::dataGrid:
    case ControlKind::dirList:
    case ControlKind::fileList:
    case ControlKind::pageView:
        return true;
    case ControlKind::scrollBar:
        return !static_cast<const ScrollBar&>(control).horizontal;
    case ControlKind::composite:
        return LayoutBuilder::growsDown(static_cast<const Composite&>(control).layout());
    default:
        return false;
    }
}

// Frames, tabs and blocks of lines stand apart from what is around them.
bool isGroup(const Layout& node)
{
    switch (node.kind) {
    case Layout::Kind::frame:
    case Layout::Kind::tabs:
    case Layout::Kind::form:
        return true;
    case Layout::Kind::row:
        return node.alignEnd || std::any_of(node.children.begin(), node.children.end(), isGroup);
    case Layout::Kind::column:
        return std::any_of(node.children.begin(), node.children.end(), isGroup);
    default:
        return false;
    }
}

bool isButton(const Layout& node)
{
    return node.kind == Layout::Kind::stretch ||
           (node.kind == Layout::Kind::control && node.control->kind() == ControlKind::button);
}

}  // namespace

bool LayoutBuilder::growsAcross(const Layout& node)
{
    switch (node.kind) {
    case Layout::Kind::control:
        return controlGrowsAcross(*node.control);
    case Layout::Kind::tabs:
    case Layout::Kind::frame:
    case Layout::Kind::stretch:
        return true;
    default:
        return std::any_of(node.children.begin(), node.children.end(), [&node](const Layout& child) {
            return growsAcross(child) || (node.kind == Layout::Kind::row && child.grow > 0);
        });
    }
}

bool LayoutBuilder::growsDown(const Layout& node)
{
    if (node.kind == Layout::Kind::control) {
        return controlGrowsDown(*node.control);
    }
    if (node.kind == Layout::Kind::stretch) {
        return false;
    }
    return std::any_of(node.children.begin(), node.children.end(), [&node](const Layout& child) {
        return growsDown(child) || (node.kind == Layout::Kind::column && child.grow > 0);
    });
}

void LayoutBuilder::build(const Layout& root, QWidget* parent, int margin)
{
    auto* box = new QVBoxLayout(parent);
    box->setContentsMargins(margin, margin, margin, margin);
    box->setSpacing(theme::unit());
    if (root.kind == Layout::Kind::column) {
        fill(*box, root, parent);
    } else {
        Layout column;
        column.children.push_back(root);
        fill(*box, column, parent);
    }
}

// The children of a row or column into its box.
void LayoutBuilder::fill(QBoxLayout& box, const Layout& node, QWidget* parent)
{
    const bool across = box.direction() == QBoxLayout::LeftToRight;
    const bool buttons = std::all_of(node.children.begin(), node.children.end(), isButton);
    const bool grows = std::any_of(node.children.begin(), node.children.end(), [across](const Layout& child) {
        return child.grow > 0 || child.kind == Layout::Kind::stretch ||
               (across ? growsAcross(child) : growsDown(child));
    });
    if (across && node.alignEnd && !grows) {
        box.addStretch(1);
    }
    const Layout* before = nullptr;
    for (const Layout& child : node.children) {
        if (before != nullptr && (isGroup(*before) || isGroup(child))) {
            box.addSpacing(theme::group() - theme::unit());
        }
        addTo(box, child, parent, buttons);
        before = &child;
    }
    if (!grows && !(across && node.alignEnd)) {
        box.addStretch(1);
    }
}

void LayoutBuilder::addTo(QBoxLayout& box, const Layout& node, QWidget* parent, bool amongButtons)
{
    const bool across = box.direction() == QBoxLayout::LeftToRight;
    switch (node.kind) {
    case Layout::Kind::stretch:
        box.addStretch(std::max(1, node.grow));
        break;
    case Layout::Kind::row: {
        auto* inner = new QHBoxLayout;
        inner->setSpacing(theme::unit());
        box.addLayout(inner, node.grow);
        fill(*inner, node, parent);
        break;
    }
    case Layout::Kind::column: {
        auto* inner = new QVBoxLayout;
        inner->setSpacing(theme::unit());
        box.addLayout(inner, node.grow);
        fill(*inner, node, parent);
        break;
    }
    case Layout::Kind::form:
        box.addLayout(grid(node, parent), node.grow);
        break;
    case Layout::Kind::line: {
        auto* inner = new QHBoxLayout;
        inner->setSpacing(theme::unit());
        box.addLayout(inner, node.grow);
        inner->addWidget(lineLabel(node, parent), 0, Qt::AlignVCenter);
        for (const Layout& child : node.children) {
            addTo(*inner, child, parent, false);
        }
        if (!across && !growsAcross(node)) {
            inner->addStretch(1);
        }
        break;
    }
    case Layout::Kind::control:
    case Layout::Kind::frame:
    case Layout::Kind::tabs: {
        QWidget* widget = place(node, parent);
        const bool keepsWidth = !across && !growsAcross(node) && !(amongButtons && isButton(node));
        Qt::Alignment alignment;
        if (keepsWidth) {
            alignment |= Qt::AlignLeft;
        }
        if (across && node.kind == Layout::Kind::control && !growsDown(node)) {
            alignment |= growsAcross(node) ? Qt::Alignment() : Qt::AlignVCenter;
        }
        box.addWidget(widget, node.grow, alignment);
        break;
    }
    }
}

QWidget* LayoutBuilder::place(const Layout& node, QWidget* parent)
{
    Binder& binder = window_.place(*node.control, parent);
    if (node.kind == Layout::Kind::frame) {
        auto* frame = static_cast<FrameWidget*>(binder.widget());
        for (const Layout& child : node.children) {
            build(child, frame, 0);
        }
        frame->leaveRoomForCaption();
    } else if (node.kind == Layout::Kind::tabs) {
        auto* tabs = static_cast<TabWidget*>(binder.widget());
        for (const Layout& child : node.children) {
            auto* page = new QWidget;
            tabs->addTab(page, QString());
            build(child, page, theme::group());
        }
    } else if (node.control->kind() == ControlKind::composite) {
        build(static_cast<Composite*>(node.control)->layout(), binder.widget(), 0);
    }
    binder.refresh();
    return binder.widget();
}

QGridLayout* LayoutBuilder::grid(const Layout& node, QWidget* parent)
{
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(theme::unit());
    grid->setVerticalSpacing(theme::unit());
    grid->setColumnStretch(1, 1);
    int row = 0;
    bool grows = false;
    for (const Layout& line : node.children) {
        addLine(*grid, row, line, parent);
        const bool down = growsDown(line);
        grid->setRowStretch(row, down ? std::max(1, line.grow) : 0);
        grows = grows || down;
        ++row;
    }
    if (!grows) {
        grid->setRowStretch(row, 1);
    }
    return grid;
}

void LayoutBuilder::addLine(QGridLayout& grid, int row, const Layout& line, QWidget* parent)
{
    if (line.kind != Layout::Kind::line) {
        auto* box = new QHBoxLayout;
        box->setSpacing(theme::unit());
        Layout inner;
        inner.kind = Layout::Kind::row;
        inner.children.push_back(line);
        grid.addLayout(box, row, 1);
        fill(*box, inner, parent);
        return;
    }
    grid.addWidget(lineLabel(line, parent), row, 0, Qt::AlignRight | Qt::AlignTop);
    auto* box = new QHBoxLayout;
    box->setSpacing(theme::unit());
    grid.addLayout(box, row, 1);
    if (line.children.size() == 1 && line.children.front().kind == Layout::Kind::row) {
        fill(*box, line.children.front(), parent);
        return;
    }
    Layout inner;
    inner.kind = Layout::Kind::row;
    inner.children = line.children;
    fill(*box, inner, parent);
}

// The text in front of a line: a label of the form or a caption of the layout, standing as high as one field.
QWidget* LayoutBuilder::lineLabel(const Layout& line, QWidget* parent)
{
    std::vector<Control*> contents;
    for (const Layout& child : line.children) {
        layout::forEachControl(child, [&contents](Control& control) { contents.push_back(&control); });
    }
    QLabel* label = nullptr;
    if (line.label != nullptr) {
        Binder& binder = window_.place(*line.label, parent);
        binder.refresh();
        label = qobject_cast<QLabel*>(binder.widget());
    } else {
        label = new QLabel(toQt(line.caption), parent);
        label->setTextFormat(Qt::PlainText);
    }
    if (label == nullptr) {
        return window_.binder(*line.label)->widget();
    }
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumHeight(theme::fieldHeight(label->font()));
    window_.addLine(label, line, std::move(contents));
    return label;
}

}  // namespace bravona
