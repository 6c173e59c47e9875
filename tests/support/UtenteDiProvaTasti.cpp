#include <algorithm>

#include "platform/text/Text.h"
#include "support/UtenteDiProva.h"

// What the widgets of a toolkit do by themselves with the keys that the core leaves to them.

namespace bravona {

void UtenteDiProva::key(const KeyEvent& event)
{
    Form* form = front();
    if (form == nullptr || ended()) {
        return;
    }
    popup_ = nullptr;
    Control* focused = form->focusedControl();
    const Interaction::KeyResult result = interaction().key(*form, event);
    if (result.handled || focused == nullptr || form->focusedControl() != focused || ended()) {
        return;
    }
    guard([&] { widgetKey(*focused, event, result.character); });
}

void UtenteDiProva::type(std::string_view text)
{
    for (const char32_t character : toCodePoints(text)) {
        if (character == U'\n') {
            key(Key::enter);
        } else {
            key(KeyEvent{.key = Key::character, .character = character});
        }
    }
}

void UtenteDiProva::type(Control& control, std::string_view text)
{
    if (!control.hasFocus()) {
        focus(control);
    }
    if (control.hasFocus()) {
        type(text);
    }
}

void UtenteDiProva::paste(std::string_view text)
{
    Form* form = front();
    if (form == nullptr || form->focusedControl() == nullptr) {
        return;
    }
    guard([&] {
        Control& control = *form->focusedControl();
        if (control.kind() == ControlKind::textBox && static_cast<TextBox&>(control).locked()) {
            return;
        }
        const std::u32string passed = interaction().filterPaste(control, toCodePoints(text));
        if (passed.empty()) {
            return;  // refused like so many keys
        }
        if (control.kind() == ControlKind::textBox) {
            auto& box = static_cast<TextBox&>(control);
            LineEdit line(toCodePoints(box.text()), box.selStart(), box.selLength());
            const std::size_t kept = line.text().size() - line.length();
            const std::size_t room = box.maxLength == 0 ? passed.size() : box.maxLength - std::min(kept, box.maxLength);
            line.insert(std::u32string_view(passed).substr(0, std::min(passed.size(), room)));
            box.userText(fromCodePoints(line.text()), line.caret());
        } else if (control.kind() == ControlKind::comboBox && static_cast<ComboBox&>(control).editable()) {
            line_.insert(passed);
            static_cast<ComboBox&>(control).userText(fromCodePoints(line_.text()));
        } else if (control.kind() == ControlKind::dataGrid) {
            auto& grid = static_cast<DataGrid&>(control);
            if (grid.editing()) {
                line_.insert(passed);
                grid.userEditText(fromCodePoints(line_.text()));
            } else if (grid.userBeginEdit(fromCodePoints(passed))) {
                openLine(grid);
            }
        }
    });
}

void UtenteDiProva::widgetKey(Control& control, const KeyEvent& event, char32_t character)
{
    switch (control.kind()) {
    case ControlKind::textBox:
        editText(static_cast<TextBox&>(control), event, character);
        break;
    case ControlKind::comboBox:
        editCombo(static_cast<ComboBox&>(control), event, character);
        break;
    case ControlKind::datePicker:
        editDate(static_cast<DatePicker&>(control), event, character);
        break;
    case ControlKind::dataGrid:
        editData(static_cast<DataGrid&>(control), event, character);
        break;
    case ControlKind::treeView:
        moveInTree(static_cast<TreeView&>(control), event);
        break;
    case ControlKind::flexGrid: {
        auto& grid = static_cast<FlexGrid&>(control);
        const int down = event.key == Key::down ? 1 : event.key == Key::up ? -1 : 0;
        const int right = event.key == Key::right ? 1 : event.key == Key::left ? -1 : 0;
        if (down != 0 || right != 0) {
            // The heading is no place for the keyboard, and hidden columns are passed over.
            int col = grid.col() + right;
            while (right != 0 && col >= 0 && col < grid.cols() && grid.colWidth(col) == 0) {
                col += right;
            }
            if (grid.row() + down >= 1) {
                grid.userMove(grid.row() + down, col);
            }
        }
        break;
    }
    case ControlKind::listView:
    case ControlKind::listBox:
    case ControlKind::fileList:
        moveInList(control, event, character);
        break;
    default:
        break;
    }
}

// Applies a key to `line_`; true when the text has changed.
bool UtenteDiProva::editLine(const KeyEvent& event, char32_t character)
{
    const std::u32string before = line_.text();
    if (character >= 32) {
        line_.insert(std::u32string(1, character));
    } else {
        line_.key(event);
    }
    return line_.text() != before;
}

void UtenteDiProva::editText(TextBox& box, const KeyEvent& event, char32_t character)
{
    LineEdit line(toCodePoints(box.text()), box.selStart(), box.selLength());
    const bool deletes = event.key == Key::backspace || event.key == Key::del;
    if (character == 13 && !box.multiLine) {
        return;
    }
    if (character == 13 || character >= 32) {
        const std::u32string typed(1, character == 13 ? U'\n' : character);
        if (box.locked() || (box.maxLength > 0 && line.text().size() - line.length() >= box.maxLength)) {
            return;
        }
        line.insert(typed);
    } else {
        const bool nowhere = (event.key == Key::up || event.key == Key::down) && !box.multiLine;
        if (nowhere || (box.locked() && deletes) || !line.key(event)) {
            return;
        }
    }
    const std::string text = fromCodePoints(line.text());
    if (text != box.text()) {
        box.userText(text, line.caret());
    } else {
        box.userCaret(line.start(), line.length());
    }
}

void UtenteDiProva::editCombo(ComboBox& combo, const KeyEvent& event, char32_t character)
{
    if (combo.locked()) {
        return;
    }
    const int count = static_cast<int>(combo.items().size());
    int wanted = -1;
    switch (event.key) {
    case Key::down:
        wanted = combo.listIndex() + 1;
        break;
    case Key::up:
        wanted = combo.listIndex() < 0 ? -1 : std::max(0, combo.listIndex() - 1);
        break;
    case Key::home:
        wanted = combo.editable() ? -1 : 0;
        break;
    case Key::end:
        wanted = combo.editable() ? -1 : count - 1;
        break;
    default:
        break;
    }
    if (wanted >= 0) {
        if (wanted < count) {
            combo.setListIndex(wanted);
            doFocus(combo);
        }
        return;
    }
    if (combo.editable()) {
        if (editLine(event, character)) {
            combo.userText(fromCodePoints(line_.text()));
        }
        return;
    }
    if (character >= 32) {
        const std::string letter = fromCodePoints(std::u32string(1, character));
        for (int step = 1; step <= count; ++step) {
            const int item = (std::max(combo.listIndex(), -1) + step + count) % count;
            if (startsWithFolded(combo.items()[static_cast<std::size_t>(item)].text, letter)) {
                combo.setListIndex(item);
                return;
            }
        }
    }
}

void UtenteDiProva::editDate(DatePicker& picker, const KeyEvent& event, char32_t character)
{
    if (character == 13) {
        picker.endTyping();
        return;
    }
    if (event.key == Key::up || event.key == Key::down) {
        picker.setDate(picker.date().addDays(event.key == Key::up ? 1 : -1));
        doFocus(picker);
        return;
    }
    // What was begun by code stands there with the caret behind it.
    const std::u32string shown = toCodePoints(picker.typed().value_or(picker.date().text()));
    if (line_.text() != shown) {
        line_ = LineEdit(shown, shown.size(), 0);
    }
    const bool allowed = character < 32 || (character >= U'0' && character <= U'9') || character == U'/' ||
                         character == U'-' || character == U'.';
    if (allowed && editLine(event, character)) {
        picker.userTyped(fromCodePoints(line_.text()));
    }
}

void UtenteDiProva::editData(DataGrid& grid, const KeyEvent& event, char32_t character)
{
    const bool editing = grid.editing();
    const bool bare = line_.length() == 0;
    if (grid.userKey(event, bare && line_.caret() == 0, bare && line_.caret() == line_.text().size())) {
        if (!editing && grid.editing()) {
            openLine(grid);
        }
    } else if (grid.editing()) {
        if (editLine(event, character)) {
            grid.userEditText(fromCodePoints(line_.text()));
        }
    } else if (character >= 32 && grid.userBeginEdit(fromCodePoints(std::u32string(1, character)))) {
        openLine(grid);
    }
}

// The line of an edit that has begun: its text selected, or the caret behind it.
void UtenteDiProva::openLine(const DataGrid& grid)
{
    const std::u32string text = toCodePoints(grid.editText());
    line_ = LineEdit(text, text.size(), 0);
    if (grid.editsWhole()) {
        line_.selectAll();
    }
}

void UtenteDiProva::moveInList(Control& list, const KeyEvent& event, char32_t character)
{
    int count = 0;
    int at = -1;
    std::function<std::string(int)> text;
    std::function<void(int)> go;
    if (list.kind() == ControlKind::listView) {
        auto& view = static_cast<ListView&>(list);
        count = static_cast<int>(view.rowCount());
        at = view.selected() ? static_cast<int>(*view.selected()) : -1;
        text = [&view](int row) { return view.row(static_cast<std::size_t>(row)).text; };
        go = [&view](int row) { view.userSelect(static_cast<std::size_t>(row)); };
        if (character == U' ' && view.checkBoxes && at >= 0) {
            view.userCheck(static_cast<std::size_t>(at), !view.row(static_cast<std::size_t>(at)).checked);
            return;
        }
    } else if (list.kind() == ControlKind::listBox) {
        auto& box = static_cast<ListBox&>(list);
        count = static_cast<int>(box.items().size());
        at = box.listIndex();
        text = [&box](int row) { return box.items()[static_cast<std::size_t>(row)].text; };
        go = [&box](int row) { box.setListIndex(row); };
    } else {
        auto& files = static_cast<FileList&>(list);
        count = static_cast<int>(files.files().size());
        at = files.listIndex();
        text = [&files](int row) { return files.files()[static_cast<std::size_t>(row)]; };
        go = [&files](int row) { files.setListIndex(row); };
    }
    int wanted = at;
    switch (event.key) {
    case Key::down:
        wanted = at + 1;
        break;
    case Key::up:
        wanted = std::max(0, at - 1);
        break;
    case Key::home:
        wanted = 0;
        break;
    case Key::end:
        wanted = count - 1;
        break;
    default:
        if (character > 32) {
            const std::string letter = fromCodePoints(std::u32string(1, character));
            for (int step = 1; step <= count; ++step) {
                if (startsWithFolded(text((at + step + count) % count), letter)) {
                    wanted = (at + step + count) % count;
                    break;
                }
            }
        }
    }
    if (wanted != at && wanted >= 0 && wanted < count) {
        go(wanted);
    }
}

void UtenteDiProva::moveInTree(TreeView& tree, const KeyEvent& event)
{
    std::vector<int> inSight;
    const auto& nodes = tree.nodes();
    const std::function<void(int)> visit = [&](int node) {
        inSight.push_back(node);
        if (nodes[static_cast<std::size_t>(node)].expanded) {
            for (const int child : nodes[static_cast<std::size_t>(node)].children) {
                visit(child);
            }
        }
    };
    for (std::size_t node = 0; node < nodes.size(); ++node) {
        if (nodes[node].parent < 0) {
            visit(static_cast<int>(node));
        }
    }
    if (inSight.empty()) {
        return;
    }
    const int selected = tree.selected();
    const auto place = std::find(inSight.begin(), inSight.end(), selected);
    switch (event.key) {
    case Key::down:
        if (place == inSight.end()) {
            tree.userSelect(inSight.front());
        } else if (place + 1 != inSight.end()) {
            tree.userSelect(*(place + 1));
        }
        break;
    case Key::up:
        if (place != inSight.begin() && place != inSight.end()) {
            tree.userSelect(*(place - 1));
        }
        break;
    case Key::right:
        if (selected >= 0) {
            tree.setExpanded(selected, true);
        }
        break;
    case Key::left:
        if (selected >= 0 && nodes[static_cast<std::size_t>(selected)].expanded) {
            tree.setExpanded(selected, false);
        } else if (selected >= 0 && nodes[static_cast<std::size_t>(selected)].parent >= 0) {
            tree.userSelect(nodes[static_cast<std::size_t>(selected)].parent);
        }
        break;
    default:
        break;
    }
}

}  // namespace bravona
