#include "platform/text/Text.h"
#include "support/journey/JourneyControls.h"
#include "support/journey/JourneyEyes.h"

namespace bravona {

namespace {

std::string stateOf(const Control& control)
{
    std::string state = control.effectivelyEnabled() ? "enabled" : "disabled";
    state += control.effectivelyVisible() ? " visible" : " hidden";
    state += control.hasFocus() ? " focused" : "";
    state += isReadOnly(control) ? " readonly" : "";
    return state;
}

bool isState(const std::string& word)
{
    return word == "enabled" || word == "disabled" || word == "visible" || word == "hidden" || word == "focused" ||
           word == "readonly";
}

bool holdsState(const Control& control, const std::string& state)
{
    if (state == "enabled" || state == "disabled") {
        return control.effectivelyEnabled() == (state == "enabled");
    }
    if (state == "visible" || state == "hidden") {
        return control.effectivelyVisible() == (state == "visible");
    }
    return state == "focused" ? control.hasFocus() : isReadOnly(control);
}

bool isTicked(const Control& control, std::size_t row)
{
    if (control.kind() == ControlKind::flexGrid) {
        return static_cast<const FlexGrid&>(control).picture(static_cast<int>(row) + 1, 0) == FlexGrid::Picture::paid;
    }
    if (control.kind() == ControlKind::listView) {
        return static_cast<const ListView&>(control).row(row).checked;
    }
    throw Impossible(control.fullName() + " has no marks");
}

bool isSelected(const Control& control, std::size_t row)
{
    const int position = static_cast<int>(row);
    switch (control.kind()) {
    case ControlKind::listView:
        return static_cast<const ListView&>(control).selected() == row;
    case ControlKind::listBox:
        return static_cast<const ListBox&>(control).listIndex() == position;
    case ControlKind::comboBox:
        return static_cast<const ComboBox&>(control).listIndex() == position;
    case ControlKind::fileList:
        return static_cast<const FileList&>(control).listIndex() == position;
    case ControlKind::flexGrid:
        return static_cast<const FlexGrid&>(control).row() == position + 1;
    case ControlKind::dataGrid:
        return static_cast<const DataGrid&>(control).row() == row;
    default:
        throw Impossible(control.fullName() + " has no selected row");
    }
}

long long colourOf(const Control& control, std::size_t row)
{
    if (control.kind() == ControlKind::flexGrid) {
        return static_cast<const FlexGrid&>(control).rowColour(static_cast<int>(row) + 1).value_or(colours::black);
    }
    return as<ListView>(const_cast<Control&>(control), ControlKind::listView, "list with colours")
        .row(row)
        .colour.value_or(colours::black);
}

}  // namespace

void JourneyEyes::lookAtControl()
{
    Control& control = findControl(session_.desktop(), words_.at(0));
    const std::string name = control.fullName();
    const Word* what = word(1);
    if (what == nullptr) {
        tell_(name + " " + quotedText(host_.shownText(control)) + " " + stateOf(control));
        return;
    }
    // A row may be named by its text, where more follows than a text alone.
    if (what->quoted && words_.size() == 2) {
        compare(name, host_.shownText(control), what);
        return;
    }
    if (what->quoted || parseWhole(what->text)) {
        lookAtRow(control);
    } else if (isState(what->text)) {
        if (tell_) {
            tell_(name + " " + stateOf(control));
        }
        demand(holdsState(control, what->text), name + " " + what->text, stateOf(control));
    } else if (what->is("rows")) {
        compareNumber(name + " rows", static_cast<long long>(rowCount(control)), word(2));
    } else if (what->is("columns")) {
        compare(name + " columns", columnCaptions(control), word(2));
    } else if (what->is("tip")) {
        compare(name + " tip", control.toolTip(), word(2));
    } else if (what->is("node")) {
        lookAtNode(control);
    } else {
        throw Impossible("nothing is known of " + what->text);
    }
}

void JourneyEyes::lookAtRow(Control& control)
{
    const std::size_t row = findRow(control, words_[1], true);
    const std::string name = control.fullName() + " row " + words_[1].text;
    const Word* what = word(2);
    if (what == nullptr) {
        std::string cells;
        for (std::size_t column = 0;; ++column) {
            try {
                cells += (column == 0 ? "" : "|") + cellText(control, row, column);
            } catch (const Impossible&) {
                break;
            }
        }
        tell_(name + " " + cells);
        return;
    }
    if (what->is("ticked") || what->is("unticked")) {
        const bool ticked = isTicked(control, row);
        demand(ticked == what->is("ticked"), name + " " + what->text, ticked ? "ticked" : "unticked");
    } else if (what->is("selected")) {
        demand(isSelected(control, row), name + " selected", "it is not");
    } else if (what->is("bold")) {
        demand(as<ListView>(control, ControlKind::listView, "list").row(row).bold, name + " bold", "plain");
    } else if (what->is("key")) {
        compareExactly(name + " key", as<ListView>(control, ControlKind::listView, "list").row(row).key, word(3));
    } else if (what->is("colour")) {
        compareNumber(name + " colour", colourOf(control, row), word(3));
    } else if (what->is("tag") || has(3, "tag")) {
        const ListRow& found = as<ListView>(control, ControlKind::listView, "list").row(row);
        const auto column = what->is("tag") ? 0 : static_cast<std::size_t>(number(2));
        if (column > found.sub.size()) {
            throw Impossible(name + " has no column " + what->text);
        }
        compareExactly(name + " tag", column == 0 ? found.tag : found.sub[column - 1].tag, word(4));
    } else {
        const long long column = number(2);
        if (column < 0) {
            throw Impossible(name + " has no column " + what->text);
        }
        compare(name + " column " + what->text, cellText(control, row, static_cast<std::size_t>(column)), word(3));
    }
}

void JourneyEyes::lookAtNode(Control& control)
{
    const auto& tree = as<TreeView>(control, ControlKind::treeView, "tree");
    const std::string& key = words_.at(2).text;
    const std::string name = tree.fullName() + " node \"" + key + "\"";
    const int at = tree.find(key);
    if (has(3, "absent")) {
        demand(at < 0, name + " absent", "it is there");
        return;
    }
    if (at < 0) {
        throw Impossible("there is no " + name);
    }
    const TreeNode& node = tree.nodes()[static_cast<std::size_t>(at)];
    if (has(3, "bold") || has(3, "plain")) {
        demand(node.bold == has(3, "bold"), name + " " + words_[3].text, node.bold ? "bold" : "plain");
        return;
    }
    compare(name, node.text, word(3));
}

}  // namespace bravona
