#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>

#include "platform/windowing/Control.h"

class QKeyEvent;

namespace bravona {

class FormWindow;
class QtDesktop;

// Keeps one control and its widget in step: `changed` follows the record, and what the hand does to the widget is told
// to the core through `enter`. After `detach` (the form is unloaded, the widget still dying) it touches neither.
class Binder {
public:
    Binder(FormWindow& window, Control& control);
    virtual ~Binder() = default;
    Binder(const Binder&) = delete;
    Binder& operator=(const Binder&) = delete;

    // What stands in the layout; made by the time the constructor returns.
    [[nodiscard]] QWidget* widget() const { return widget_; }
    // What takes the keyboard.
    [[nodiscard]] virtual QWidget* focusWidget() const { return widget_; }
    [[nodiscard]] Control* control() const { return control_; }
    [[nodiscard]] bool alive() const { return control_ != nullptr; }

    void changed(Aspect aspect, std::size_t row);
    // Whether it can be used, by its own word and that of the frames around it. What a disabled frame holds is there to
    // be read: its texts stay legible and can be selected and copied, the rest is greyed.
    void followEnabled();
    // Everything from the record, once it stands in its place.
    void refresh();
    // Other letters are marked in captions.
    virtual void lettersChanged() {}
    virtual void detach() { control_ = nullptr; }

    // A key that the core left over, before the widget sees it; true when it was used up.
    virtual bool key(QKeyEvent& /*event*/) { return false; }
    // The keyboard has come to it by the core's word: caret and selection stand where a person expects them.
    virtual void focused() {}
    // Inserts a text that came through the key filters at the caret; for pasting.
    virtual void insert(const QString& /*text*/) {}
    [[nodiscard]] virtual bool takesText() const { return false; }

protected:
    void setWidget(QWidget* widget);
    // Runs an entry from the toolkit under the host's guard.
    void enter(const std::function<void()>& entry);
    [[nodiscard]] FormWindow& window() const { return window_; }
    [[nodiscard]] QtDesktop& desktop() const;

    virtual void follow(Aspect aspect, std::size_t row) = 0;
    virtual void followColours() {}
    // Stands in a disabled frame, to be read.
    [[nodiscard]] bool reading() const { return reading_; }
    [[nodiscard]] virtual bool canBeRead() const { return false; }
    virtual void followReading() { followColours(); }
    virtual void followAll() = 0;

private:
    FormWindow& window_;
    Control* control_;
    QPointer<QWidget> widget_;
    bool reading_ = false;
};

template <class C>
class BinderOf : public Binder {
public:
    BinderOf(FormWindow& window, C& control) : Binder(window, control), typed_(&control) {}

protected:
    [[nodiscard]] C& c() const { return *typed_; }

private:
    C* typed_;
};

// Makes the widget of a control; never null.
std::unique_ptr<Binder> makeBinder(FormWindow& window, Control& control, QWidget* parent);

}  // namespace bravona
