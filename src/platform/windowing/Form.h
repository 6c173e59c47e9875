#pragma once

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/windowing/Control.h"
#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Parts.h"

namespace bravona {

class Button;
class Desktop;

enum class WindowStyle {
    child,   // inside the main window
    dialog,  // fixed size, as small as its contents
    main,    // the main window
    splash   // bare picture, goes by itself: the program does not wait for the person there
};

// A screen: a class with its controls as public members, its handlers as methods and its layout made in its
// constructor. It is made when first asked for, loaded (`onLoad`) at the latest when it is shown, and gone after
// unloading.
class Form {
public:
    Form(Desktop& desktop, std::string name, std::string caption, WindowStyle style = WindowStyle::child);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] WindowStyle style() const { return style_; }
    [[nodiscard]] Desktop& desktop() const { return desktop_; }
    [[nodiscard]] bool loaded() const { return loaded_; }
    [[nodiscard]] bool shown() const { return shown_; }
    [[nodiscard]] bool modal() const { return modal_; }
    // The modal window that it was opened over, and with which it takes turns; nullptr: the main window's area.
    [[nodiscard]] Form* owner() const { return owner_; }

    // Counts for the guards that ask whether another window is open. Previews do not.
    bool countsAsWindow = true;

    bool centredOnScreen =
        false;  // where it opens as long as the person has not moved it; else in the middle of its owner

    void setDefaultButton(Button* button);  // Enter
    void setCancelButton(Button* button);   // Escape
    [[nodiscard]] Button* defaultButton() const { return defaultButton_; }
    [[nodiscard]] Button* cancelButton() const { return cancelButton_; }

    // --- controls
    struct Entry {
        std::string name;  // "txtComune", "Griglia.Command1"
        int index;
        Control* control;
    };
    [[nodiscard]] const std::vector<Entry>& controls() const { return controls_; }
    [[nodiscard]] const Layout& layout() const { return layout_; }
    // "txtComune[0]", "cmbRegistro", "Griglia", "Griglia.casella[2]"; nullptr when there is none.
    [[nodiscard]] Control* find(std::string_view fullName) const;
    // All of them, in Tab order as the layout stands; parts that stand in no layout (editors of a grid) behind their
    // compound.
    [[nodiscard]] const std::vector<Control*>& tabOrder() const { return tabOrder_; }
    [[nodiscard]] Control* focusedControl() const { return focused_; }

    std::vector<Timer*> timers;
    std::unique_ptr<Menu> menuBar;    // of the main window
    std::unique_ptr<Menu> popupMenu;  // where the screen has one; its entries are found by `menu`
    std::unique_ptr<StatusBar> statusBar;
    void statusBarChanged();
    void menuChanged();

    // --- hooks
    virtual void onLoad() {}
    virtual void onActivate() {}                                       // each time it comes to the front
    virtual bool onQueryUnload(CloseCause /*cause*/) { return true; }  // false refuses to close
    virtual void onUnload() {}
    // Escape would throw typed work away: it then asks before it presses the cancel button, under the screen's subject.
    // The button itself, pressed on purpose, does not ask.
    [[nodiscard]] virtual bool hasUnsavedWork() const { return false; }
    [[nodiscard]] virtual std::string subject() const { return "Bravona"; }
    virtual void onKeyDown(KeyEvent& /*event*/) {}  // before the control's
    virtual void onKeyPress(char32_t& /*character*/) {}
    virtual void onDblClick() {}  // on its empty area
    virtual void onResize() {}

    // Shorthands for the host's operations.
    void show();
    void showModal();
    void hide();
    bool unload();  // cause: code; false when refused

    void setObserver(ControlObserver* observer) { observer_ = observer; }
    [[nodiscard]] ControlObserver* observer() const { return observer_; }

protected:
    void add(const std::string& name, Control& control, int index = -1);
    template <class C, std::size_t N>
    void add(const std::string& name, std::array<C, N>& controls)
    {
        for (std::size_t i = 0; i < N; ++i)
            add(name, controls[i], static_cast<int>(i));
    }
    void add(const ControlGroup& group)
    {
        for (const ControlGroup::Part& part : group.parts())
            add(part.name, *part.control, part.index);
    }
    // What stands in the fields, those `except` aside: differs from what it was once somebody typed or chose.
    [[nodiscard]] std::string fieldContents(const std::vector<const Control*>& except = {}) const;
    // Once, at the end of the constructor, after all controls were added.
    void setLayout(Layout layout);

private:
    friend class Desktop;
    friend class Interaction;
    friend class Control;
    void place(const Layout& node, Control* container, int page);
    void placeParts(Control& control);

    Desktop& desktop_;
    std::string name_;
    std::string caption_;
    WindowStyle style_;
    bool loaded_ = false;
    bool shown_ = false;
    bool modal_ = false;
    bool closing_ = false;
    Form* owner_ = nullptr;  // the modal window over which it was opened
    std::vector<Entry> controls_;
    Layout layout_;
    std::vector<Control*> tabOrder_;
    Control* focused_ = nullptr;
    int commands_ = 0;        // under way, for which the field was left
    bool fieldLeft_ = false;  // the focused control's `onLostFocus` was raised, its `onGotFocus` not yet again
    Button* defaultButton_ = nullptr;
    Button* cancelButton_ = nullptr;
    ControlObserver* observer_ = nullptr;
};

}  // namespace bravona
