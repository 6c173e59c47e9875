#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

#include "platform/qt/Binder.h"
#include "platform/windowing/Fields.h"

class QCalendarWidget;
class QToolButton;

namespace bravona {

// Single-line entry whose pasted and dropped texts pass the key filters.
class EntryLine final : public QLineEdit {
public:
    explicit EntryLine(QWidget* parent);
    std::function<void(const QString&)> pasted;
    std::function<bool()> doubleClicked;    // true when somebody listens
    std::function<void(QPoint)> menuAsked;  // a pop-up menu of the screen's own

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;
};

class EntryText final : public QPlainTextEdit {
public:
    explicit EntryText(QWidget* parent) : QPlainTextEdit(parent) {}
    std::function<void(const QString&)> pasted;
    std::function<bool()> doubleClicked;
    int lines = 1;
    int characters = 20;
    [[nodiscard]] static int inset(const QWidget& beside);  // pixels before the first character of a line
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
};

class LineBinder final : public BinderOf<TextBox> {
public:
    LineBinder(FormWindow& window, TextBox& box, QWidget* parent);
    void insert(const QString& text) override;
    void focused() override { followCaret(); }
    [[nodiscard]] bool takesText() const override { return !c().locked(); }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followColours() override;
    void followAll() override;
    [[nodiscard]] bool canBeRead() const override { return true; }
    void followReading() override { followLock(); }

private:
    [[nodiscard]] bool readOnly() const { return c().locked() || reading(); }
    void followLock();
    void followText();
    void followCaret();
    void caretMoved();
    EntryLine* edit_;
    QPalette base_;
    bool following_ = false;
};

class MultiLineBinder final : public BinderOf<TextBox> {
public:
    MultiLineBinder(FormWindow& window, TextBox& box, QWidget* parent);
    void insert(const QString& text) override;
    void focused() override { followCaret(); }
    [[nodiscard]] bool takesText() const override { return !c().locked(); }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followColours() override;
    void followAll() override;
    [[nodiscard]] bool canBeRead() const override { return true; }
    void followReading() override { followLock(); }

private:
    [[nodiscard]] bool readOnly() const { return c().locked() || reading(); }
    void followLock();
    void followText();
    void followCaret();
    void caretMoved();
    EntryText* edit_;
    QPalette base_;
    bool following_ = false;
};

// A line for typing the date and a button that opens a calendar.
class DateBinder final : public BinderOf<DatePicker> {
public:
    DateBinder(FormWindow& window, DatePicker& picker, QWidget* parent);
    [[nodiscard]] QWidget* focusWidget() const override { return edit_; }
    void insert(const QString& text) override;
    [[nodiscard]] bool takesText() const override { return true; }
    void focused() override;
    bool key(QKeyEvent& event) override;  // Up and Down go by a day, F4 and Alt+Down open the calendar
    void openCalendar();
    [[nodiscard]] QToolButton* button() const { return button_; }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followColours() override;
    void followAll() override;

private:
    EntryLine* edit_;
    QToolButton* button_;
    QPalette base_;
    bool following_ = false;
};

}  // namespace bravona
