#pragma once

#include <QObject>
#include <vector>

class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

namespace bravona {

class Control;
class FormWindow;
class QtDesktop;

// Sees what the hand does before any widget: keys go to the core first, a click leaves the old field before it acts,
// and the toolkit's own ideas about mnemonics, Tab and shortcuts never come to pass in a form.
class InputFilter final : public QObject {
public:
    explicit InputFilter(QtDesktop& desktop) : desktop_(desktop) {}
    bool eventFilter(QObject* target, QEvent* event) override;
    [[nodiscard]] bool lastByKey() const { return byKey_; }
    // Swallows what the hand did that nobody has seen yet.
    void dropPending();

private:
    bool key(QWidget& target, QKeyEvent& event);
    bool leftOver(FormWindow& window, QWidget& target, QKeyEvent& event, char32_t character);
    bool windowKey(FormWindow& window, const QKeyEvent& event);
    bool inputMethod(QWidget& target, QInputMethodEvent& event);
    bool press(QWidget& target, QMouseEvent& event);
    void release(QWidget& target, QMouseEvent& event);
    bool contextMenu(QWidget& target);
    void focusIn(QWidget& target, QFocusEvent& event);
    void pass(QWidget& target, QEvent& event);
    [[nodiscard]] bool passing(const QEvent& event) const;
    [[nodiscard]] FormWindow* keyWindow(QWidget& target) const;

    QtDesktop& desktop_;
    std::vector<const QEvent*> passing_;  // made or already seen by the filter, on their way to a widget
    Control* entered_ = nullptr;          // by the mouse button that is still down
    const Control* refused_ = nullptr;    // another control kept the focus from it during this press
    bool byKey_ = false;
    bool deaf_ = false;
};

}  // namespace bravona
