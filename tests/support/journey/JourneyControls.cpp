#include "support/journey/JourneyControls.h"

#include <array>

#include "platform/text/Text.h"

namespace bravona {

namespace {

std::string quotedText(const std::string& text)
{
    return "\"" + text + "\"";
}

bool inSight(const Control& control)
{
    return control.effectivelyVisible() && control.effectivelyEnabled();
}

// A button, option, check box or label by what stands on it; those that can be used first.
Control* findByCaption(const Form& form, const std::string& caption)
{
    constexpr std::array kinds{ControlKind::button, ControlKind::optionButton, ControlKind::checkBox,
                               ControlKind::label};
    Control* found = nullptr;
    for (const ControlKind kind : kinds) {
        for (const Form::Entry& entry : form.controls()) {
            if (entry.control->kind() != kind) {
                continue;
            }
            std::string shown;
            switch (kind) {
            case ControlKind::button:
                shown = static_cast<const Button*>(entry.control)->caption();
                break;
            case ControlKind::optionButton:
                shown = static_cast<const OptionButton*>(entry.control)->caption();
                break;
            case ControlKind::checkBox:
                shown = static_cast<const CheckBox*>(entry.control)->caption();
                break;
            default:
                shown = entry.control->shownText();
                break;
            }
            if (comparable(shown) == caption) {
                if (inSight(*entry.control)) {
                    return entry.control;
                }
                found = found == nullptr ? entry.control : found;
            }
        }
    }
    return found;
}

}  // namespace

std::string comparable(const std::string& text)
{
    return replaceAll(replaceAll(text, "\r\n", "\n"), "&", "");
}

Form& frontForm(Desktop& desktop)
{
    Form* form = desktop.ended() ? nullptr : desktop.front();
    if (form == nullptr) {
        throw Impossible("no window is open");
    }
    return *form;
}

Control& findControl(Desktop& desktop, const Word& name)
{
    Form& form = frontForm(desktop);
    Control* found = form.find(name.text);
    if (found == nullptr && name.quoted) {
        found = findByCaption(form, comparable(name.text));
    }
    if (found == nullptr) {
        throw Impossible("there is no " + (name.quoted ? quotedText(name.text) : name.text) + " in " + form.name());
    }
    if (found->kind() == ControlKind::composite) {
        return static_cast<Composite*>(found)->mainPart();
    }
    return *found;
}

void requireUsable(Desktop& desktop, const Control& control)
{
    if (!control.effectivelyVisible()) {
        throw Impossible(control.fullName() + " is hidden");
    }
    if (!control.effectivelyEnabled()) {
        throw Impossible(control.fullName() + " is disabled");
    }
    if (control.form() == nullptr || desktop.blocked(*control.form())) {
        throw Impossible(control.fullName() + " is behind a modal window");
    }
}

Control& usableControl(Desktop& desktop, const Word& name)
{
    Control& control = findControl(desktop, name);
    requireUsable(desktop, control);
    return control;
}

bool isReadOnly(const Control& control)
{
    switch (control.kind()) {
    case ControlKind::textBox:
        return static_cast<const TextBox&>(control).locked();
    case ControlKind::comboBox:
        return static_cast<const ComboBox&>(control).locked();
    case ControlKind::flexGrid:
        return static_cast<const FlexGrid&>(control).locked();
    case ControlKind::dataGrid: {
        const auto* set = static_cast<const DataGrid&>(control).recordset();
        return set == nullptr || !set->isOpen() || !set->isUpdatable();
    }
    default:
        return false;
    }
}

std::size_t rowCount(const Control& control)
{
    switch (control.kind()) {
    case ControlKind::listView:
        return static_cast<const ListView&>(control).rowCount();
    case ControlKind::listBox:
        return static_cast<const ListBox&>(control).items().size();
    case ControlKind::comboBox:
        return static_cast<const ComboBox&>(control).items().size();
    case ControlKind::flexGrid: {
        const int rows = static_cast<const FlexGrid&>(control).rows();
        return rows > 0 ? static_cast<std::size_t>(rows - 1) : 0;
    }
    case ControlKind::dataGrid:
        return static_cast<const DataGrid&>(control).dataRows();
    case ControlKind::treeView:
        return static_cast<const TreeView&>(control).nodes().size();
    case ControlKind::fileList:
        return static_cast<const FileList&>(control).files().size();
    case ControlKind::dirList:
        return static_cast<const DirList&>(control).folders().size();
    case ControlKind::driveList:
        return static_cast<const DriveList&>(control).drives().size();
    default:
        throw Impossible(control.fullName() + " has no rows");
    }
}

std::size_t findRow(const Control& control, const Word& row, bool newRow)
{
    const std::size_t count = newRow && control.kind() == ControlKind::dataGrid
                                  ? static_cast<const DataGrid&>(control).shownRows()
                                  : rowCount(control);
    if (!row.quoted) {
        const long long number = *parseWhole(row.text);
        if (number < 1 || static_cast<std::size_t>(number) > count) {
            throw Impossible(control.fullName() + " has " + std::to_string(count) + " rows, not row " + row.text);
        }
        return static_cast<std::size_t>(number - 1);
    }
    // In a flex grid the first column is the mark, the second one the main text.
    const std::size_t main = control.kind() == ControlKind::flexGrid ? 1 : 0;
    const std::string wanted = comparable(row.text);
    for (std::size_t at = 0; at < count; ++at) {
        if (comparable(cellText(control, at, main)) == wanted) {
            return at;
        }
    }
    throw Impossible(control.fullName() + " has no row " + quotedText(row.text));
}

std::string cellText(const Control& control, std::size_t row, std::size_t column)
{
    const auto need = [&](std::size_t columns) {
        if (column >= columns) {
            throw Impossible(control.fullName() + " has no column " + std::to_string(column));
        }
    };
    switch (control.kind()) {
    case ControlKind::listView: {
        const ListRow& found = static_cast<const ListView&>(control).row(row);
        need(found.sub.size() + 1);
        return found.cell(column);
    }
    case ControlKind::flexGrid: {
        const auto& grid = static_cast<const FlexGrid&>(control);
        need(static_cast<std::size_t>(grid.cols()));
        return grid.text(static_cast<int>(row) + 1, static_cast<int>(column));
    }
    case ControlKind::dataGrid: {
        const auto& grid = static_cast<const DataGrid&>(control);
        need(grid.columns().size());
        return grid.cellText(row, column);
    }
    case ControlKind::listBox:
        need(1);
        return static_cast<const ListBox&>(control).items().at(row).text;
    case ControlKind::comboBox:
        need(1);
        return static_cast<const ComboBox&>(control).items().at(row).text;
    case ControlKind::fileList:
        need(1);
        return static_cast<const FileList&>(control).files().at(row);
    case ControlKind::dirList:
        need(1);
        return static_cast<const DirList&>(control).folders().at(row);
    case ControlKind::driveList:
        need(1);
        return static_cast<const DriveList&>(control).drives().at(row);
    case ControlKind::treeView:
        need(1);
        return static_cast<const TreeView&>(control).nodes().at(row).text;
    default:
        throw Impossible(control.fullName() + " has no rows");
    }
}

std::string columnCaptions(const Control& control)
{
    std::vector<std::string> captions;
    switch (control.kind()) {
    case ControlKind::listView:
        for (const ListColumn& column : static_cast<const ListView&>(control).columns()) {
            captions.push_back(column.caption);
        }
        break;
    case ControlKind::flexGrid: {
        const auto& grid = static_cast<const FlexGrid&>(control);
        for (int col = 0; grid.rows() > 0 && col < grid.cols(); ++col) {
            captions.push_back(grid.text(0, col));
        }
        break;
    }
    case ControlKind::dataGrid: {
        const auto& grid = static_cast<const DataGrid&>(control);
        for (std::size_t column = 0; column < grid.columns().size(); ++column) {
            captions.push_back(grid.caption(column));
        }
        break;
    }
    case ControlKind::tabControl:
        for (const TabControl::Page& page : static_cast<const TabControl&>(control).pages()) {
            captions.push_back(page.caption);
        }
        break;
    default:
        throw Impossible(control.fullName() + " has no columns");
    }
    std::string joined;
    for (const std::string& caption : captions) {
        joined += (&caption == &captions.front() ? "" : "|") + caption;
    }
    return joined;
}

}  // namespace bravona
