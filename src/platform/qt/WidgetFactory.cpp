#include "platform/qt/ComboBinders.h"
#include "platform/qt/DataGridBinder.h"
#include "platform/qt/FieldBinders.h"
#include "platform/qt/FlexGridBinder.h"
#include "platform/qt/ListViewBinder.h"
#include "platform/qt/PageViewBinder.h"
#include "platform/qt/PartBinders.h"
#include "platform/qt/PlaceBinders.h"
#include "platform/qt/TextBinders.h"
#include "platform/qt/TreeBinder.h"

namespace bravona {

namespace {

template <class BinderKind, class ControlKind>
std::unique_ptr<Binder> make(FormWindow& window, Control& control, QWidget* parent)
{
    return std::make_unique<BinderKind>(window, static_cast<ControlKind&>(control), parent);
}

}  // namespace

std::unique_ptr<Binder> makeBinder(FormWindow& window, Control& control, QWidget* parent)
{
    switch (control.kind()) {
    case ControlKind::label:
        return make<LabelBinder, Label>(window, control, parent);
    case ControlKind::button:
        return make<ButtonBinder, Button>(window, control, parent);
    case ControlKind::textBox:
        return static_cast<TextBox&>(control).multiLine ? make<MultiLineBinder, TextBox>(window, control, parent)
                                                        : make<LineBinder, TextBox>(window, control, parent);
    case ControlKind::checkBox:
        return make<CheckBinder, CheckBox>(window, control, parent);
    case ControlKind::optionButton:
        return make<OptionBinder, OptionButton>(window, control, parent);
    case ControlKind::comboBox:
        return make<ComboBinder, ComboBox>(window, control, parent);
    case ControlKind::listBox:
        return make<ListBoxBinder, ListBox>(window, control, parent);
    case ControlKind::listView:
        return make<ListViewBinder, ListView>(window, control, parent);
    case ControlKind::treeView:
        return make<TreeBinder, TreeView>(window, control, parent);
    case ControlKind::flexGrid:
        return make<FlexGridBinder, FlexGrid>(window, control, parent);
    case ControlKind::dataGrid:
        return make<DataGridBinder, DataGrid>(window, control, parent);
    case ControlKind::frame:
        return make<FrameBinder, Frame>(window, control, parent);
    case ControlKind::tabControl:
        return make<TabBinder, TabControl>(window, control, parent);
    case ControlKind::datePicker:
        return make<DateBinder, DatePicker>(window, control, parent);
    case ControlKind::spinButton:
        return make<SpinBinder, SpinButton>(window, control, parent);
    case ControlKind::pictureBox:
        return make<PictureBinder, PictureBox>(window, control, parent);
    case ControlKind::scrollBar:
        return make<ScrollBarBinder, ScrollBar>(window, control, parent);
    case ControlKind::progressBar:
        return make<ProgressBinder, ProgressBar>(window, control, parent);
    case ControlKind::driveList:
        return make<DriveBinder, DriveList>(window, control, parent);
    case ControlKind::dirList:
        return make<DirBinder, DirList>(window, control, parent);
    case ControlKind::fileList:
        return make<FileBinder, FileList>(window, control, parent);
    case ControlKind::pageView:
        return make<PageViewBinder, PageView>(window, control, parent);
    case ControlKind::composite:
        break;
    }
    return make<CompositeBinder, Composite>(window, control, parent);
}

}  // namespace bravona
