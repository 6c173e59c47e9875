#pragma once

#include <functional>
#include <string>

#include "platform/windowing/Events.h"

namespace bravona {

class Button;
class Control;
class Desktop;
class Form;
class Menu;
class PictureBox;
class TabControl;

// What keys and clicks mean, the same on both hosts: the order of events, who gets the focus next, mnemonics, default
// and cancel buttons. Hosts hand in what the hand did and do only what their widgets must (editing text, drawing).
class Interaction {
public:
    explicit Interaction(Desktop& desktop) : desktop_(desktop) {}

    // --- focus: `onLostFocus` of the control left, then `onGotFocus` of the new one; text boxes and pickers turn
    // yellow and select their text, and white again. False when the control cannot take it.
    bool focus(Control& control);
    // The toolkit moved the focus by itself (a click of the mouse): the same events.
    // nullptr: the window lost it, which raises nothing. Where a handler or a grid refuses, `doFocus` brings it back.
    // Not to be called for moves that the renderer caused by disabling or hiding: the core settles those by itself.
    void focusMoved(Form& form, Control* control);
    // The first control that can take it, where nothing else was asked for.
    void focusFirst(Form& form);
    [[nodiscard]] Control* next(Form& form, Control* from, bool backwards) const;
    // `onLostFocus` of the focused control, before a command runs; `onGotFocus` again afterwards if it kept the focus.
    // A handler that takes the focus back, or a grid that refuses its cell, keeps the command from running: false then.
    bool leaveField(Form& form, const std::function<void()>& command);

    // --- keyboard, for the control that has the focus in the form. Order: the form's onKeyDown, the control's, then
    // the window's keys (Tab, Enter and Escape for their buttons, Alt+letter, menu shortcuts), then, for what types a
    // character, the form's onKeyPress and the control's.
    struct KeyResult {
        bool handled = false;  // nothing is left for the widget
        char32_t character =
            0;  // to be typed by the widget, perhaps another than was pressed (13, 8, 27 for Enter, Backspace, Escape)
    };
    KeyResult key(Form& form, KeyEvent event);
    // A pasted text as it passes the key filters, character by character; a line break is a blank in a single-line
    // field.
    std::u32string filterPaste(Control& control, const std::u32string& text);

    // --- commands by hand: the field is left first, then the control acts. Nothing happens on a disabled or hidden
    // one, or in a window behind a modal one. These, `key`, `focusMoved` and `mnemonic` run in the desktop's guard by
    // themselves.
    void click(Control& control);  // buttons, boxes, options, labels, pictures
    void doubleClick(Control& control);
    // The wheel over a picture, so many notches, away from the person or to the left above 0: its bar moves and the
    // focus stays. False where no bar is to be moved.
    bool wheel(PictureBox& picture, int notches, bool sideways);
    void menu(Form& form, Menu& entry);
    void tab(TabControl& tabs, int page);
    void front(Form& form);  // a click on another window
    void close(Form& form);  // by the system menu
    // Alt+letter: the target clicks (buttons, options, boxes, tabs) or takes the focus (fields behind their label).
    bool mnemonic(Form& form, char32_t letter);

    // Enter or leaving colours a field: light yellow and back to white.
    static void EvidenziaCampo(Control& box, bool focused);

private:
    class PastePreview;
    friend class Desktop;
    bool windowKey(Form& form, Control* focused, const KeyEvent& event);
    bool widgetKey(Control& control, const KeyEvent& event);
    void tellRefused(const Form& form, Control* field, const KeyEvent& event, const std::string& before);
    bool tabKey(Form& form, const KeyEvent& event);
    bool shortcut(Form& form, const KeyEvent& event);
    void act(Control& control);
    bool leave(Form& form);  // raises the events of leaving; false when refused
    bool moveFocus(Control& control);
    void enter(Form& form);  // raises the events of entering, where they are due
    void activated(Form& form);
    Control* firstOnPage(Form& form, TabControl& tabs) const;
    static bool usable(const Control& control);
    static bool canHoldFocus(const Control& control);
    static bool takesTab(Control& control);
    void settle(Form& form);
    Desktop& desktop_;
    unsigned moves_ = 0;  // of the focus, to see whether a handler moved it
};

}  // namespace bravona
