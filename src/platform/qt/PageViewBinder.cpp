#include "platform/qt/PageViewBinder.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/FormWindow.h"
#include "platform/qt/PagePainter.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Theme.h"
#include "platform/reports/Pages.h"

namespace bravona {

namespace {

constexpr double pixelsPerTwip = 96.0 / 1440.0;
const QColor desk(0x80, 0x83, 0x88);
const QColor edge(0x55, 0x58, 0x5C);

int margin()
{
    return theme::pixels(16);
}

}  // namespace

PageWidget::PageWidget(QWidget* parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::StyledPanel);
    viewport()->setCursor(Qt::OpenHandCursor);
}

QSize PageWidget::sizeHint() const
{
    return {theme::pixels(860), theme::pixels(640)};
}

QSizeF PageWidget::pageSize() const
{
    const PageView* record = view();
    if (record == nullptr || record->pages() == nullptr) {
        return {};
    }
    const Pages& pages = *record->pages();
    const double width = pages.width * pixelsPerTwip;
    const double height = pages.height * pixelsPerTwip;
    const double acrossRoom = std::max(50, viewport()->width() - 2 * margin());
    const double downRoom = std::max(50, viewport()->height() - 2 * margin());
    double scale = record->zoom() / 100.0;
    if (record->zoom() == PageView::fitWidth) {
        scale = acrossRoom / width;
    } else if (record->zoom() == PageView::fitPage) {
        scale = std::min(acrossRoom / width, downRoom / height);
    }
    return {width * scale, height * scale};
}

void PageWidget::follow()
{
    const QSizeF page = pageSize();
    const auto set = [](QScrollBar& bar, double whole, int room) {
        bar.setPageStep(room);
        bar.setSingleStep(40);
        bar.setRange(0, std::max(0, static_cast<int>(whole) + 2 * margin() - room));
    };
    set(*horizontalScrollBar(), page.width(), viewport()->width());
    set(*verticalScrollBar(), page.height(), viewport()->height());
    viewport()->update();
}

bool PageWidget::scrollOrTurn(int direction)
{
    QScrollBar& bar = *verticalScrollBar();
    const int before = bar.value();
    bar.setValue(before + direction * bar.pageStep() * 9 / 10);
    if (bar.value() == before && turned) {
        turned(direction);
        bar.setValue(direction > 0 ? bar.minimum() : bar.maximum());
    }
    return true;
}

void PageWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), desk);
    const PageView* record = view();
    if (record == nullptr || record->pages() == nullptr || record->pages()->pages.empty()) {
        return;
    }
    const QSizeF size = pageSize();
    const double x =
        std::max<double>(margin(), (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
    const double y =
        std::max<double>(margin(), (viewport()->height() - size.height()) / 2) - verticalScrollBar()->value();
    const QRectF sheet(QPointF(x, y), size);
    painter.fillRect(sheet.translated(3, 3), QColor(0, 0, 0, 60));
    painter.fillRect(sheet, Qt::white);
    painter.setPen(edge);
    painter.drawRect(sheet);
    painter.setClipRect(sheet);
    painter.save();
    pagePainter::fit(painter, *record->pages(), sheet);
    pagePainter::paint(painter, record->pages()->pages[static_cast<std::size_t>(record->page())], record->search());
    painter.restore();
}

void PageWidget::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    follow();
}

void PageWidget::wheelEvent(QWheelEvent* event)
{
    const int steps = event->angleDelta().y();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        if (zoomed && steps != 0) {
            zoomed(steps > 0 ? 1 : -1);
        }
        return;
    }
    QScrollBar& bar = *verticalScrollBar();
    const bool end = steps < 0 ? bar.value() == bar.maximum() : bar.value() == bar.minimum();
    if (end && turned && steps != 0) {
        const int before = view() != nullptr ? view()->page() : 0;
        turned(steps < 0 ? 1 : -1);
        if (view() != nullptr && view()->page() != before) {
            bar.setValue(steps < 0 ? bar.minimum() : bar.maximum());
        }
        return;
    }
    QAbstractScrollArea::wheelEvent(event);
}

void PageWidget::mousePressEvent(QMouseEvent* event)
{
    dragged_ = event->position().toPoint();
}

void PageWidget::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint now = event->position().toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - (now.x() - dragged_.x()));
    verticalScrollBar()->setValue(verticalScrollBar()->value() - (now.y() - dragged_.y()));
    dragged_ = now;
}

PageViewBinder::PageViewBinder(FormWindow& window, PageView& view, QWidget* parent)
    : BinderOf(window, view),
      page_(new PageWidget(parent))
{
    setWidget(page_);
    page_->view = [this]() -> const PageView* { return alive() ? &c() : nullptr; };
    page_->turned = [this](int pages) { enter([this, pages] { c().setPage(c().page() + pages); }); };
    page_->zoomed = [this](int steps) {
        enter([this, steps] { c().setZoom(std::clamp((c().zoom() > 0 ? c().zoom() : 100) + steps * 10, 20, 400)); });
    };
}

bool PageViewBinder::key(QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        return page_->scrollOrTurn(1);
    case Qt::Key_PageUp:
        return page_->scrollOrTurn(-1);
    default:
        return false;
    }
}

void PageViewBinder::follow(Aspect /*aspect*/, std::size_t /*row*/)
{
    if (shown_ != c().page()) {
        shown_ = c().page();
        page_->verticalScrollBar()->setValue(0);
    }
    page_->follow();
}

void PageViewBinder::followAll()
{
    follow(Aspect::items, 0);
}

}  // namespace bravona
