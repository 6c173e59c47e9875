#pragma once

#include <QAbstractScrollArea>

#include "platform/qt/Binder.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// One page as paper on grey.
class PageWidget final : public QAbstractScrollArea {
public:
    explicit PageWidget(QWidget* parent);
    std::function<const PageView*()> view;
    std::function<void(int)> turned;  // by so many pages
    std::function<void(int)> zoomed;  // by so many steps of 10 %
    void follow();
    bool scrollOrTurn(int direction);  // one windowful up (-1) or down (1), then the next page
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] QSizeF pageSize() const;  // in pixels, at the zoom
    QPoint dragged_;
};

class PageViewBinder final : public BinderOf<PageView> {
public:
    PageViewBinder(FormWindow& window, PageView& view, QWidget* parent);
    bool key(QKeyEvent& event) override;

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    PageWidget* page_;
    int shown_ = -1;
};

}  // namespace bravona
