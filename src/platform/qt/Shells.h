#pragma once

#include <QCloseEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

class QLabel;
class QProgressBar;

namespace bravona {

// A window around a form's contents. It never closes by itself: it asks.
template <class Base>
class Shell : public Base {
public:
    using Base::Base;
    std::function<void()> closeAsked;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        event->ignore();
        if (closeAsked) {
            closeAsked();
        }
    }
};

using ChildShell = Shell<QMdiSubWindow>;
using DialogShell = Shell<QWidget>;

// The ground on which the child windows lie.
class DeskArea final : public QMdiArea {
public:
    explicit DeskArea(QWidget* parent);
    std::function<void()> doubleClicked;  // on the empty ground

protected:
    bool viewportEvent(QEvent* event) override;
};

class MainShell final : public Shell<QMainWindow> {
public:
    MainShell();
    [[nodiscard]] DeskArea* area() const { return area_; }
    void setPanels(const std::vector<std::string>& panels);
    void setProgress(std::optional<int> percent);

private:
    DeskArea* area_;
    std::vector<QLabel*> panels_;
    QProgressBar* progress_;
};

}  // namespace bravona
