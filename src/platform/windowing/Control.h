#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/windowing/Events.h"

namespace bravona {

class Control;
class Form;

enum class ControlKind {
    label,
    button,
    textBox,
    checkBox,
    optionButton,
    comboBox,
    listBox,
    listView,
    treeView,
    flexGrid,
    dataGrid,
    frame,
    tabControl,
    datePicker,
    spinButton,
    pictureBox,
    scrollBar,
    progressBar,
    driveList,
    dirList,
    fileList,
    pageView,
    composite
};

// Follows the controls of one form on the screen. The row, where it matters, is the one that changed.
class ControlObserver {
public:
    virtual ~ControlObserver() = default;
    virtual void changed(Control& control, Aspect aspect, std::size_t row) = 0;
    virtual void changed(Form& form) = 0;  // caption, default button, size
};

// What all controls have: a plain record with its events. A control belongs to one form, which names it, and stands in
// at most one container (a frame, a page of a tab control) of its layout. Not copyable: renderers keep its address.
class Control {
public:
    static constexpr std::size_t noRow = static_cast<std::size_t>(-1);

    explicit Control(ControlKind kind) : kind_(kind) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    [[nodiscard]] ControlKind kind() const { return kind_; }
    [[nodiscard]] const std::string& name() const { return name_; }  // without index
    [[nodiscard]] int index() const { return index_; }               // -1 outside an array
    [[nodiscard]] std::string fullName() const;                      // "txtComune[0]", "Griglia.Command1"
    [[nodiscard]] Form* form() const { return form_; }
    [[nodiscard]] Control* container() const { return container_; }
    [[nodiscard]] int page() const { return page_; }  // of the container, when that is a tab control; else -1

    // Its own state; what counts on the screen takes the containers (and the chosen tab page) into account.
    [[nodiscard]] bool enabled() const { return enabled_; }
    [[nodiscard]] bool visible() const { return visible_; }
    [[nodiscard]] bool effectivelyEnabled() const;
    [[nodiscard]] bool effectivelyVisible() const;
    void setEnabled(bool enabled);
    void setVisible(bool visible);

    [[nodiscard]] const std::optional<Colour>& backColour() const { return backColour_; }
    [[nodiscard]] const std::optional<Colour>& foreColour() const { return foreColour_; }
    void setBackColour(std::optional<Colour> colour);  // nullopt: the palette's
    void setForeColour(std::optional<Colour> colour);
    [[nodiscard]] const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string tip);
    // What a screen reader says; by default the caption of its label in the layout.
    [[nodiscard]] const std::string& accessibleName() const { return accessibleName_; }
    void setAccessibleName(std::string name) { accessibleName_ = std::move(name); }

    // Asks the host for the focus, bringing forward the page it stands on; false when the control cannot take it
    // (hidden, disabled, on a page that is none or cannot be chosen).
    bool setFocus();
    [[nodiscard]] bool hasFocus() const;
    // May take the focus by Tab and click.
    [[nodiscard]] virtual bool focusable() const { return false; }

    // The text by which a journey and a screen reader know the control: text, caption, chosen item, "1" or "0".
    [[nodiscard]] virtual std::string shownText() const { return {}; }

    std::string tag;
    bool tabStop = true;  // false: Tab passes it over, a click still reaches it

    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;
    std::function<void()> onClick;
    std::function<void()> onDblClick;
    std::function<void(KeyEvent&)> onKeyDown;
    // The character about to be typed (Enter is 13, Backspace 8, Escape 27); 0 drops it, another value replaces it.
    std::function<void(char32_t&)> onKeyPress;

    // A mark for the renderer: the label in front of it carries this mnemonic and name.
    void setLabelCaption(std::string caption) { labelCaption_ = std::move(caption); }
    [[nodiscard]] const std::string& labelCaption() const { return labelCaption_; }
    [[nodiscard]] Control* labelControl() const { return label_; }  // the label in front, where it is a control

    void notify(Aspect aspect, std::size_t row = noRow);

private:
    void bringPagesForward() const;
    friend class Form;
    friend class FlexGrid;  // its editors stand in it
    ControlKind kind_;
    std::string name_;
    std::string prefix_;  // of the compound it is part of
    int index_ = -1;
    Form* form_ = nullptr;
    Control* container_ = nullptr;
    Control* label_ = nullptr;
    int page_ = -1;  // of the container, when that is a tab control
    bool enabled_ = true;
    bool visible_ = true;
    std::optional<Colour> backColour_;
    std::optional<Colour> foreColour_;
    std::string toolTip_;
    std::string accessibleName_;
    std::string labelCaption_;
};

}  // namespace bravona
