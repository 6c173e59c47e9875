#include "platform/qt/Shells.h"

#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>

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

MainShell::MainShell() : area_(new DeskArea(this))
{
    setCentralWidget(area_);
    menuBar()->setNativeMenuBar(false);
    statusBar()->setSizeGripEnabled(false);
}

void MainShell::setPanels(const std::vector<std::string>& panels)
{
    while (panels_.size() < panels.size()) {
        auto* label = new QLabel;
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(theme::unit(), 0, theme::unit(), 0);
        statusBar()->addWidget(label, panels_.empty() ? 0 : 1);
        panels_.push_back(label);
    }
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i]->setText(i < panels.size() ? toQt(panels[i]) : QString());
    }
}

}  // namespace bravona
