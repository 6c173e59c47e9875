#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "platform/qt/Binder.h"
#include "platform/windowing/Fields.h"

namespace bravona {

// Labels, buttons, check boxes, options and spin arrows.

class LabelWidget final : public QLabel {
public:
    explicit LabelWidget(QWidget* parent) : QLabel(parent) {}
    std::function<bool()> clicked;  // true when somebody listens
    std::function<bool()> doubleClicked;
    bool cut = false;            // a text that has no room ends in an ellipsis, and the window doesn't grow for it
    std::optional<Colour> mark;  // of a small square in its first blanks
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool pressed_ = false;
};

class LabelBinder final : public BinderOf<Label> {
public:
    LabelBinder(FormWindow& window, Label& label, QWidget* parent);

    void lettersChanged() override { followAll(); }

protected:
    [[nodiscard]] bool canBeRead() const override { return true; }
    void follow(Aspect aspect, std::size_t row) override;
    void followColours() override;
    void followAll() override;

private:
    LabelWidget* label_;
};

class ButtonBinder final : public BinderOf<Button> {
public:
    ButtonBinder(FormWindow& window, Button& button, QWidget* parent);
    void setDefault(bool isDefault);
    bool key(QKeyEvent& event) override;

    void lettersChanged() override { followAll(); }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    QPushButton* button_;
};

class CheckBinder final : public BinderOf<CheckBox> {
public:
    CheckBinder(FormWindow& window, CheckBox& box, QWidget* parent);
    bool key(QKeyEvent& event) override;

    void lettersChanged() override { followAll(); }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    QCheckBox* box_;
};

class OptionBinder final : public BinderOf<OptionButton> {
public:
    OptionBinder(FormWindow& window, OptionButton& option, QWidget* parent);
    bool key(QKeyEvent& event) override;

    void lettersChanged() override { followAll(); }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    QRadioButton* option_;
};

class SpinBinder final : public BinderOf<SpinButton> {
public:
    SpinBinder(FormWindow& window, SpinButton& spin, QWidget* parent);
    [[nodiscard]] QToolButton* arrow(bool up) const { return up ? up_ : down_; }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override {}

private:
    QToolButton* up_;
    QToolButton* down_;
};

}  // namespace bravona
