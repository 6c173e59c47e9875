#pragma once

#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>

#include "platform/qt/Binder.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// Frames, tabs, pictures, scroll bars, progress bars and compounds.

// A caption and a thin line, no box.
class FrameWidget final : public QWidget {
public:
    explicit FrameWidget(QWidget* parent);
    void setCaption(const QString& caption);
    void leaveRoomForCaption();  // once it has its layout
    bool boxed = false;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    [[nodiscard]] int captionHeight() const;
    QString caption_;
};

class FrameBinder final : public BinderOf<Frame> {
public:
    FrameBinder(FormWindow& window, Frame& frame, QWidget* parent);

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    FrameWidget* frame_;
};

// Chooses no page by itself: it asks first.
class AskingTabBar final : public QTabBar {
public:
    explicit AskingTabBar(QWidget* parent) : QTabBar(parent) {}
    std::function<void(int)> asked;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

class TabWidget final : public QTabWidget {
public:
    explicit TabWidget(QWidget* parent);
    [[nodiscard]] AskingTabBar* bar() const { return bar_; }

private:
    AskingTabBar* bar_;
};

class TabBinder final : public BinderOf<TabControl> {
public:
    TabBinder(FormWindow& window, TabControl& tabs, QWidget* parent);
    [[nodiscard]] QWidget* focusWidget() const override { return tabs_->bar(); }

    void lettersChanged() override { followAll(); }

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    TabWidget* tabs_;
};

class PictureWidget final : public QWidget {
public:
    explicit PictureWidget(QWidget* parent) : QWidget(parent) {}
    std::function<void()> resized;
    std::function<bool(bool)> clicked;       // true for a double click; answers whether somebody listens
    std::function<bool(int, bool)> wheeled;  // whole notches, and whether sideways; answers whether something moves
    QPixmap picture;
    QString failure;
    QPoint place;
    bool shadow = false;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    int turned_ = 0;  // of the wheel, short of a notch
};

class PictureBinder final : public BinderOf<PictureBox> {
public:
    PictureBinder(FormWindow& window, PictureBox& box, QWidget* parent);

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    PictureWidget* picture_;
};

// Shows that it has the focus.
class BarWidget final : public QScrollBar {
public:
    using QScrollBar::QScrollBar;

protected:
    void paintEvent(QPaintEvent* event) override;
};

class ScrollBarBinder final : public BinderOf<ScrollBar> {
public:
    ScrollBarBinder(FormWindow& window, ScrollBar& bar, QWidget* parent);

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    BarWidget* bar_;
    bool following_ = false;
};

class ProgressBinder final : public BinderOf<ProgressBar> {
public:
    ProgressBinder(FormWindow& window, ProgressBar& bar, QWidget* parent);

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    QProgressBar* bar_;
};

class CompositeBinder final : public BinderOf<Composite> {
public:
    CompositeBinder(FormWindow& window, Composite& composite, QWidget* parent);

protected:
    void follow(Aspect /*aspect*/, std::size_t /*row*/) override {}
    void followAll() override {}
};

}  // namespace bravona
