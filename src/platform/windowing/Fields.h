#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/values/Date.h"
#include "platform/windowing/Control.h"

namespace bravona {

enum class TextStyle {
    normal,
    title,  // a heading
    total,  // larger and bolder than what it totals
    grand,  // the most visible figure of the window
    hint    // grey
};

// A fixed text; its click and double click can be handled.
class Label final : public Control {
public:
    explicit Label(std::string caption = {}) : Control(ControlKind::label), caption_(std::move(caption)) {}
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] std::string shownText() const override { return caption_; }

    TextStyle style = TextStyle::normal;
    bool fixedPitch = false;
    bool wrap = false;
    bool sunken = false;  // reads like a read-only field
    // A small square of this colour stands in the first blanks of the caption, as in a legend.
    std::optional<Colour> mark;

private:
    std::string caption_;
};

class Button final : public Control {
public:
    explicit Button(std::string caption = {}) : Control(ControlKind::button), caption_(std::move(caption)) {}
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] std::string shownText() const override { return caption_; }
    [[nodiscard]] bool focusable() const override { return true; }

private:
    std::string caption_;
};

// A line, or several, of text. Setting the text raises `onChange` when it differs, as typing does. Positions count
// characters.
class TextBox final : public Control {
public:
    explicit TextBox(int widthInCharacters = 20) : Control(ControlKind::textBox), width(widthInCharacters) {}
    [[nodiscard]] const std::string& text() const { return text_; }
    void setText(std::string text);
    [[nodiscard]] std::string shownText() const override { return text_; }
    [[nodiscard]] bool focusable() const override { return true; }

    [[nodiscard]] bool locked() const { return locked_; }  // read-only, still selectable
    void setLocked(bool locked);
    [[nodiscard]] std::size_t selStart() const { return selStart_; }  // the caret when nothing is selected
    [[nodiscard]] std::size_t selLength() const { return selLength_; }
    void select(std::size_t start, std::size_t length);
    void selectAll();

    // What the person's hand did: replaces the text and caret and raises `onChange`. For hosts.
    void userText(std::string text, std::size_t caret);
    void userCaret(std::size_t start, std::size_t length);

    int width;  // in characters, of the space it asks for
    int lines = 1;
    bool multiLine = false;
    bool fixedPitch = false;
    Align align = Align::left;
    TextStyle style = TextStyle::normal;
    std::size_t maxLength = 0;  // 0: none
    bool selectOnFocus = true;
    bool grows = false;  // takes spare width
    // An entry field of numbers: a point typed as its only separator, one or two digits behind it, becomes a comma when
    // the field is left.
    bool numeric = false;
    std::string placeholder;  // seen, faint, while the field is empty
    std::function<void()> onChange;

private:
    friend class Interaction;
    void pointToComma();
    std::string text_;
    bool pointTyped_ = false;  // by the hand, since the field was entered or its text set
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
    bool locked_ = false;
};

class CheckBox final : public Control {
public:
    explicit CheckBox(std::string caption = {}) : Control(ControlKind::checkBox), caption_(std::move(caption)) {}
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] bool checked() const { return checked_; }
    void setChecked(bool checked);  // raises `onClick` when it differs
    [[nodiscard]] std::string shownText() const override { return checked_ ? "1" : "0"; }
    [[nodiscard]] bool focusable() const override { return true; }

private:
    std::string caption_;
    bool checked_ = false;
};

// One of a group: the options of the same array, or, outside arrays, those of the same container.
class OptionButton final : public Control {
public:
    explicit OptionButton(std::string caption = {}) : Control(ControlKind::optionButton), caption_(std::move(caption))
    {}
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] bool chosen() const { return chosen_; }
    void choose();  // clears the others of its group; raises `onClick` when it was not chosen
    [[nodiscard]] std::string shownText() const override { return chosen_ ? "1" : "0"; }
    [[nodiscard]] bool focusable() const override { return true; }
    [[nodiscard]] std::vector<OptionButton*> group();  // itself among them, in the order of the form

private:
    [[nodiscard]] std::string groupName() const;
    std::string caption_;
    bool chosen_ = false;
};

// A date that can be typed (dd/mm/yyyy, with or without separators) and picked.
class DatePicker final : public Control {
public:
    DatePicker() : Control(ControlKind::datePicker) {}
    [[nodiscard]] Date date() const { return date_; }
    void setDate(Date date);  // raises `onChange` when it differs
    [[nodiscard]] std::string shownText() const override { return date_.text(); }
    [[nodiscard]] bool focusable() const override { return true; }
    // Begins to type a date: the field shows this text with the caret behind it, until it is a date or is left.
    void startTyping(std::string text);
    [[nodiscard]] const std::optional<std::string>& typed() const { return typed_; }
    // What the hand typed so far; becomes the date as soon as it reads as one with its whole year.
    void userTyped(std::string text);
    // The field is left or Enter pressed: what reads as a date, the year in two digits perhaps, becomes it; else the
    // old date shows again, and `onRefused`, where there is one, says why: the answer is false then, and the focus
    // stays. Called by the core when the focus goes.
    bool endTyping();
    std::function<void()> onChange;
    std::function<void()> onRefused;

private:
    Date date_;
    std::optional<std::string> typed_;
};

// Two small arrows beside a buddy text box.
class SpinButton final : public Control {
public:
    SpinButton() : Control(ControlKind::spinButton) {}
    // Changes the buddy's number by the step within the range, as a click on an arrow does.
    void spin(bool up);
    TextBox* buddy = nullptr;
    int minimum = 0;
    int maximum = 100;
    int step = 1;
};

}  // namespace bravona
