#include "platform/windowing/Fields.h"

#include <algorithm>
#include <utility>

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Form.h"

namespace bravona {

void Label::setCaption(std::string caption)
{
    if (caption_ != caption) {
        caption_ = std::move(caption);
        notify(Aspect::text);
    }
}

void Button::setCaption(std::string caption)
{
    if (caption_ != caption) {
        caption_ = std::move(caption);
        notify(Aspect::text);
    }
}

void TextBox::setText(std::string text)
{
    if (text_ == text) {
        return;
    }
    // A field that is being typed into keeps its caret, and at the end of its text it stays there.
    const bool atEnd = selStart_ + selLength_ >= length(text_);
    pointTyped_ = false;
    text_ = std::move(text);
    selStart_ = !hasFocus() ? 0 : atEnd ? length(text_) : std::min(selStart_, length(text_));
    selLength_ = 0;
    notify(Aspect::text);
    if (onChange) {
        onChange();
    }
}

// Called by the core when the field is left.
void TextBox::pointToComma()
{
    if (!numeric || locked_ || !std::exchange(pointTyped_, false)) {
        return;
    }
    const std::size_t point = text_.find('.');
    const std::size_t behind = point == std::string::npos ? 0 : text_.size() - point - 1;
    const bool digits = std::all_of(text_.end() - static_cast<std::ptrdiff_t>(behind), text_.end(),
                                    [](char one) { return one >= '0' && one <= '9'; });
    if ((behind == 1 || behind == 2) && digits && text_.find(',') == std::string::npos) {
        std::string text = text_;
        text[point] = ',';
        userText(std::move(text), length(text_));
    }
}

void TextBox::setLocked(bool locked)
{
    if (locked_ != locked) {
        locked_ = locked;
        notify(Aspect::value);
    }
}

void TextBox::select(std::size_t start, std::size_t length)
{
    userCaret(start, length);
    notify(Aspect::caret);
}

void TextBox::selectAll()
{
    select(0, length(text_));
}

void TextBox::userText(std::string text, std::size_t caret)
{
    const bool differs = text_ != text;
    text_ = std::move(text);
    selStart_ = std::min(caret, length(text_));
    selLength_ = 0;
    if (differs) {
        notify(Aspect::text);
        if (onChange) {
            onChange();
        }
    }
}

void TextBox::userCaret(std::size_t start, std::size_t length)
{
    const std::size_t whole = bravona::length(text_);
    selStart_ = std::min(start, whole);
    selLength_ = std::min(length, whole - selStart_);
}

void CheckBox::setCaption(std::string caption)
{
    if (caption_ != caption) {
        caption_ = std::move(caption);
        notify(Aspect::text);
    }
}

void CheckBox::setChecked(bool checked)
{
    if (checked_ == checked) {
        return;
    }
    checked_ = checked;
    notify(Aspect::checks);
    if (onClick) {
        onClick();
    }
}

void OptionButton::setCaption(std::string caption)
{
    if (caption_ != caption) {
        caption_ = std::move(caption);
        notify(Aspect::text);
    }
}

std::vector<OptionButton*> OptionButton::group()
{
    if (form() == nullptr) {
        return {this};
    }
    std::vector<OptionButton*> found;
    for (const Form::Entry& entry : form()->controls()) {
        if (entry.control->kind() != ControlKind::optionButton) {
            continue;
        }
        auto* other = static_cast<OptionButton*>(entry.control);
        const bool together = index() >= 0 ? other->index() >= 0 && other->groupName() == groupName()
                                           : other->index() < 0 && other->container() == container();
        if (together) {
            found.push_back(other);
        }
    }
    return found;
}

std::string OptionButton::groupName() const
{
    const std::string full = fullName();
    return full.substr(0, full.find('['));
}

void OptionButton::choose()
{
    if (chosen_) {
        return;
    }
    for (OptionButton* other : group()) {
        if (other != this && other->chosen_) {
            other->chosen_ = false;
            other->notify(Aspect::checks);
        }
    }
    chosen_ = true;
    notify(Aspect::checks);
    if (onClick) {
        onClick();
    }
}

void DatePicker::setDate(Date date)
{
    const bool wasTyped = typed_.has_value();
    typed_.reset();
    if (date_ == date) {
        if (wasTyped) {
            notify(Aspect::value);
        }
        return;
    }
    date_ = date;
    notify(Aspect::value);
    if (onChange) {
        onChange();
    }
}

void DatePicker::startTyping(std::string text)
{
    typed_ = std::move(text);
    notify(Aspect::value);
}

void DatePicker::userTyped(std::string text)
{
    const auto lastGroup = text.size() - (text.find_last_of("/-.") + 1);
    const bool whole = lastGroup == (text.find_first_of("/-.") == std::string::npos ? 8U : 4U);
    const std::optional<Date> date = whole ? Date::parse(text) : std::nullopt;
    if (date) {
        setDate(*date);
    } else {
        startTyping(std::move(text));
    }
}

bool DatePicker::endTyping()
{
    if (!typed_) {
        return true;
    }
    const std::optional<Date> read = Date::parse(*typed_);
    setDate(read.value_or(date_));
    if (!read && onRefused) {
        onRefused();
        return false;
    }
    return true;
}

void SpinButton::spin(bool up)
{
    if (buddy == nullptr) {
        return;
    }
    const double now = leadingNumber(buddy->text());
    const double next =
        std::clamp(now + (up ? step : -step), static_cast<double>(minimum), static_cast<double>(maximum));
    buddy->setText(std::to_string(static_cast<long>(next)));
    // Whoever turns to the keys now types a number of his own.
    buddy->setFocus();
    buddy->selectAll();
}

}  // namespace bravona
