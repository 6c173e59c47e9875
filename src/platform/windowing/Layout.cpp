#include "platform/windowing/Layout.h"

#include "platform/windowing/Fields.h"
#include "platform/windowing/Parts.h"

namespace bravona::layout {

namespace {

Layout node(Layout::Kind kind, std::vector<Layout> children)
{
    Layout made;
    made.kind = kind;
    made.children = std::move(children);
    return made;
}

}  // namespace

Layout row(std::vector<Layout> children)
{
    return node(Layout::Kind::row, std::move(children));
}

Layout rowEnd(std::vector<Layout> children)
{
    Layout made = row(std::move(children));
    made.alignEnd = true;
    return made;
}

Layout column(std::vector<Layout> children)
{
    return node(Layout::Kind::column, std::move(children));
}

Layout form(std::vector<Layout> lines)
{
    return node(Layout::Kind::form, std::move(lines));
}

Layout line(std::string caption, Layout content)
{
    Layout made = node(Layout::Kind::line, {std::move(content)});
    made.caption = std::move(caption);
    return made;
}

Layout line(Control& label, Layout content)
{
    Layout made = node(Layout::Kind::line, {std::move(content)});
    made.label = &label;
    return made;
}

Layout of(Control& control)
{
    Layout made = node(Layout::Kind::control, {});
    made.control = &control;
    return made;
}

Layout frame(Frame& frame, Layout content)
{
    Layout made = node(Layout::Kind::frame, {std::move(content)});
    made.control = &frame;
    return made;
}

Layout tabs(TabControl& tabs, std::vector<Layout> pages)
{
    Layout made = node(Layout::Kind::tabs, std::move(pages));
    made.control = &tabs;
    return made;
}

Layout stretch()
{
    Layout made = node(Layout::Kind::stretch, {});
    made.grow = 1;
    return made;
}

Layout grow(Layout child, int share)
{
    child.grow = share;
    return child;
}

void forEachControl(const Layout& root, const std::function<void(Control&)>& visit)
{
    if (root.label != nullptr) {
        visit(*root.label);
    }
    if (root.control != nullptr) {
        visit(*root.control);
    }
    for (const Layout& child : root.children) {
        forEachControl(child, visit);
    }
}

}  // namespace bravona::layout
