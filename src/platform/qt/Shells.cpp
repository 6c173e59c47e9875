#include "platform/qt/Shells.h"

#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QProgressBar>
#include <QStatusBar>
#include <QStyle>
#include <algorithm>

#include "platform/qt/Conversions.h"
#include "platform/qt/Theme.h"

namespace bravona {

DeskArea::DeskArea(QWidget* parent) : QMdiArea(parent)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFrameShape(QFrame::NoFrame);
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    const QColor window = palette().color(QPalette::Window);
    setBackground(theme::dark(palette()) ? window.lighter(118) : window.darker(112));
}

bool DeskArea::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::MouseButtonDblClick && doubleClicked) {
        doubleClicked();
        return true;
    }
    return QMdiArea::viewportEvent(event);
}

namespace {

// A long text ends in an ellipsis in its middle, shows whole as a tip, and never widens the window.
class PanelLabel final : public QLabel {
public:
    explicit PanelLabel(bool shrinks) : shrinks_(shrinks)
    {
        setTextFormat(Qt::PlainText);
        setContentsMargins(theme::unit(), 0, theme::unit(), 0);
    }
    [[nodiscard]] QSize minimumSizeHint() const override
    {
        const QSize whole = QLabel::minimumSizeHint();
        return shrinks_ ? QSize(std::min(whole.width(), theme::pixels(60)), whole.height()) : whole;
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
        if (shown == text()) {
            QLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown,
                              foregroundRole());
    }

private:
    bool shrinks_;
};

}  // namespace

MainShell::MainShell() : area_(new DeskArea(this)), progress_(new QProgressBar)
{
    progress_->setFixedWidth(theme::pixels(160));
    progress_->hide();
    statusBar()->addPermanentWidget(progress_);
    setCentralWidget(area_);
    menuBar()->setNativeMenuBar(false);
    statusBar()->setSizeGripEnabled(false);
}

void MainShell::setPanels(const std::vector<std::string>& panels)
{
    while (panels_.size() < panels.size()) {
        auto* label = new PanelLabel(!panels_.empty());
        const bool last = panels_.size() + 1 == panels.size();
        statusBar()->addWidget(label, last ? 1 : 0);
        panels_.push_back(label);
    }
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i]->setText(i < panels.size() ? toQt(panels[i]) : QString());
        panels_[i]->setToolTip(panels_[i]->text());
    }
}

void MainShell::setProgress(std::optional<int> percent)
{
    progress_->setVisible(percent.has_value());
    progress_->setValue(percent.value_or(0));
}

}  // namespace bravona
