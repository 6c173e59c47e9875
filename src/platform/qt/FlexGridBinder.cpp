#include "platform/qt/FlexGridBinder.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <numeric>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Theme.h"

namespace bravona {

namespace {

constexpr int pictureRole = Qt::UserRole;
constexpr int signRole = Qt::UserRole + 1;

Qt::Alignment alignment(int code)
{
    return (code == 7 ? Qt::AlignRight : code == 4 ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

// Draws the paid and unpaid marks, and the sign of the row at their right; texts are the style's.
class MarkDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        const int picture = index.data(pictureRole).toInt();
        if (picture != static_cast<int>(FlexGrid::Picture::none)) {
            theme::drawMark(*painter, option.rect, picture == static_cast<int>(FlexGrid::Picture::paid),
                            option.palette);
        }
        const QString sign = index.data(signRole).toString();
        if (!sign.isEmpty()) {
            drawSign(*painter, option, sign, index.data(Qt::ForegroundRole));
        }
    }

private:
    static void drawSign(QPainter& painter, const QStyleOptionViewItem& option, const QString& sign,
                         const QVariant& colour)
    {
        painter.save();
        QFont bold = option.font;
        bold.setBold(true);
        painter.setFont(bold);
        if (option.state.testFlag(QStyle::State_Selected)) {
            painter.setPen(option.palette.color(QPalette::HighlightedText));
        } else if (colour.isValid()) {
            painter.setPen(colour.value<QColor>());
        }
        painter.drawText(option.rect.adjusted(0, 0, -theme::pixels(5), 0), Qt::AlignRight | Qt::AlignVCenter, sign);
        painter.restore();
    }
};

}  // namespace

// --- model

QVariant FlexGridModel::data(const QModelIndex& index, int role) const
{
    const FlexGrid* records = grid();
    const int row = index.row() + 1;
    if (records == nullptr || row >= records->rows() || index.column() >= records->cols()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return toQt(records->text(row, index.column()));
    case Qt::TextAlignmentRole:
        return static_cast<int>(alignment(records->colAlignment(index.column())));
    case Qt::ForegroundRole: {
        const auto colour = records->rowColour(row) ? records->rowColour(row) : records->foreColour();
        return colour ? QVariant(theme::readable(*colour, QApplication::palette().color(QPalette::Base))) : QVariant();
    }
    case Qt::AccessibleTextRole:
        switch (records->picture(row, index.column())) {
        case FlexGrid::Picture::paid:
            return QStringLiteral("Pagata");
        case FlexGrid::Picture::unpaid: {
            const QString meaning = toQt(records->rowSign(row).meaning);
            return meaning.isEmpty() ? QStringLiteral("Da pagare") : QStringLiteral("Da pagare, ") + meaning;
        }
        case FlexGrid::Picture::none:
            break;
        }
        return {};
    case Qt::ToolTipRole:
        return index.column() == 0 ? toQt(records->rowSign(row).meaning) : QString();
    case signRole:
        return index.column() == 0 ? toQt(records->rowSign(row).sign) : QString();
    case pictureRole:
        return static_cast<int>(records->picture(row, index.column()));
    default:
        return {};
    }
}

QVariant FlexGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const FlexGrid* records = grid();
    if (records == nullptr || orientation != Qt::Horizontal || records->rows() == 0 || section >= records->cols()) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return toQt(records->text(0, section));
    }
    if (role == Qt::TextAlignmentRole) {
        return static_cast<int>(alignment(records->colAlignment(section)));
    }
    return {};
}

// --- view

QSize FlexGridWidget::sizeHint() const
{
    return {std::clamp(horizontalHeader()->length() + theme::pixels(24), theme::pixels(320), theme::pixels(1100)),
            horizontalHeader()->sizeHint().height() + verticalHeader()->defaultSectionSize() * 8 + 4};
}

QSize FlexGridWidget::minimumSizeHint() const
{
    return {theme::pixels(200), horizontalHeader()->sizeHint().height() + verticalHeader()->defaultSectionSize() * 3};
}

void FlexGridWidget::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    pressing_ = true;
    QTableView::mousePressEvent(event);
    pressing_ = false;
    if (index.isValid() && event->button() == Qt::LeftButton && clickedCell) {
        clickedCell(index.row() + 1, index.column());
    }
}

void FlexGridWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && event->button() == Qt::LeftButton && doubleClickedCell) {
        doubleClickedCell(index.row() + 1, index.column());
    }
}

void FlexGridWidget::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (!following && !pressing_ && current.isValid() && movedTo) {
        movedTo(current.row() + 1, current.column());
    }
}

void FlexGridWidget::updateGeometries()
{
    QTableView::updateGeometries();
    if (moved) {
        moved();
    }
}

void FlexGridWidget::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    if (moved) {
        moved();
    }
}

// --- binder

FlexGridBinder::FlexGridBinder(FormWindow& window, FlexGrid& grid, QWidget* parent)
    : BinderOf(window, grid),
      view_(new FlexGridWidget(parent)),
      model_(new FlexGridModel)
{
    setWidget(view_);
    model_->setParent(view_);
    model_->grid = [this]() -> const FlexGrid* { return alive() ? &c() : nullptr; };
    view_->setModel(model_);
    view_->setItemDelegate(new MarkDelegate(view_));
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setTabKeyNavigation(false);
    view_->setAlternatingRowColors(true);
    view_->setTextElideMode(Qt::ElideRight);
    view_->verticalHeader()->setVisible(false);
    view_->verticalHeader()->setDefaultSectionSize(
        std::max(theme::fieldHeight(view_->font()), theme::twips(grid.rowHeight)));
    view_->horizontalHeader()->setHighlightSections(false);
    view_->horizontalHeader()->setSectionsMovable(false);
    view_->clickedCell = [this](int row, int col) { enter([this, row, col] { c().userClick(row, col); }); };
    view_->doubleClickedCell = [this](int row, int col) { enter([this, row, col] { c().userDblClick(row, col); }); };
    view_->movedTo = [this](int row, int col) { enter([this, row, col] { c().userMove(row, col); }); };
    view_->horizontalHeader()->setSectionsClickable(true);
    QObject::connect(view_->horizontalHeader(), &QHeaderView::sectionClicked, view_, [this](int col) {
        enter([this, col] {
            if (desktop().interaction().focus(c())) {
                c().userClick(0, col);
            }
        });
    });
    view_->moved = [this] {
        if (alive()) {
            shareSpareWidth();
            layEditors();
        }
    };
}

void FlexGridBinder::detach()
{
    view_->following = true;
    Binder::detach();
}

QRect FlexGridBinder::cell(int row, int col) const
{
    return view_->visualRect(model_->index(row - 1, col));
}

void FlexGridBinder::followColumns()
{
    view_->following = true;
    model_->followColumns(std::max(0, c().rows() - 1), c().cols());
    wanted_.assign(static_cast<std::size_t>(c().cols()), 0);
    for (int col = 0; col < c().cols(); ++col) {
        const int width = c().colWidth(col);
        view_->setColumnHidden(col, width == 0);
        if (width != 0) {
            const int heading =
                view_->fontMetrics().horizontalAdvance(c().rows() > 0 ? toQt(c().text(0, col)) : QString());
            const int told = width < 0 ? theme::pixels(96) : theme::twips(width);
            wanted_[static_cast<std::size_t>(col)] = std::max(told, heading + theme::pixels(14));
        }
    }
    shareSpareWidth();
    fitFigures(1, c().rows() - 1);
    view_->following = false;
    followCurrent();
    layEditors();
}

// A figure cut off is none: the columns that stand at the right are as wide as what is in these rows.
void FlexGridBinder::fitFigures(int first, int last)
{
    constexpr int looked = 500;
    if (wanted_.size() != static_cast<std::size_t>(c().cols())) {
        return;
    }
    const QFontMetrics metrics = view_->fontMetrics();
    bool wider = false;
    for (int col = 0; col < c().cols(); ++col) {
        int& wanted = wanted_[static_cast<std::size_t>(col)];
        if (c().colAlignment(col) != 7 || wanted == 0) {
            continue;
        }
        for (int row = std::max(1, first); row <= std::min({last, c().rows() - 1, first + looked}); ++row) {
            const int needed = metrics.horizontalAdvance(toQt(c().text(row, col))) + theme::pixels(14);
            wider = wider || needed > wanted;
            wanted = std::max(wanted, needed);
        }
    }
    if (wider) {
        shareSpareWidth();
    }
}

// What room is left widens all columns alike, within reason.
void FlexGridBinder::shareSpareWidth()
{
    constexpr double most = 1.6;
    if (laying_ || model_->columnCount() != c().cols() || wanted_.size() != static_cast<std::size_t>(c().cols())) {
        return;
    }
    const int total = std::accumulate(wanted_.begin(), wanted_.end(), 0);
    if (total <= 0) {
        return;
    }
    const double factor = std::clamp(static_cast<double>(view_->viewport()->width()) / total, 1.0, most);
    laying_ = true;
    for (int col = 0; col < c().cols(); ++col) {
        const int width = static_cast<int>(wanted_[static_cast<std::size_t>(col)] * factor);
        if (width > 0 && width != view_->columnWidth(col)) {
            view_->setColumnWidth(col, width);
        }
    }
    laying_ = false;
}

// A grid that cannot be changed has the ground of its window; it is walked and read as before.
void FlexGridBinder::followLock()
{
    QPalette palette = QApplication::palette(view_);
    if (c().locked()) {
        palette.setColor(QPalette::Base, palette.color(QPalette::Window));
        palette.setColor(QPalette::AlternateBase, palette.color(QPalette::Window));
    }
    view_->setPalette(palette);
}

void FlexGridBinder::followRows()
{
    view_->following = true;
    model_->followRows(std::max(0, c().rows() - 1));
    fitFigures(1, c().rows() - 1);
    view_->following = false;
    followCurrent();
    layEditors();
}

void FlexGridBinder::followCurrent()
{
    view_->following = true;
    if (c().row() >= 1 && c().row() < c().rows() && c().cols() > 0) {
        view_->setCurrentIndex(model_->index(c().row() - 1, c().col()));
    } else {
        view_->selectionModel()->clear();
    }
    view_->following = false;
}

void FlexGridBinder::followEditors()
{
    for (const FlexGrid::Overlay& overlay : c().overlays()) {
        if (overlay.editor != nullptr) {
            window().binderFor(*overlay.editor, view_->viewport());
        }
    }
    layEditors();
}

void FlexGridBinder::layEditors()
{
    for (const FlexGrid::Overlay& overlay : c().overlays()) {
        const Binder* binder = overlay.editor != nullptr ? window().binder(*overlay.editor) : nullptr;
        if (binder == nullptr || binder->widget() == nullptr || overlay.row < 1 || overlay.row >= c().rows()) {
            continue;
        }
        QWidget* editor = binder->widget();
        const QRect place = cell(overlay.row, overlay.col);
        editor->setMinimumSize(0, 0);
        editor->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        // An editor with a button may need more than its cell.
        const int width =
            editor->layout() != nullptr ? std::max(place.width(), editor->sizeHint().width()) : place.width();
        editor->setGeometry(place.left(), place.top(), width, place.height());
        editor->raise();
    }
}

void FlexGridBinder::follow(Aspect aspect, std::size_t row)
{
    switch (aspect) {
    case Aspect::columns:
        followColumns();
        break;
    case Aspect::items:
        followRows();
        break;
    case Aspect::row:
        if (row == 0) {
            if (model_->columnCount() > 0) {
                Q_EMIT model_->headerDataChanged(Qt::Horizontal, 0, model_->columnCount() - 1);
                followColumns();
            }
        } else {
            model_->rowsChanged(static_cast<int>(row) - 1, static_cast<int>(row) - 1);
            fitFigures(static_cast<int>(row), static_cast<int>(row));
        }
        break;
    case Aspect::selection:
        followCurrent();
        layEditors();
        break;
    case Aspect::value:
        followLock();
        break;
    case Aspect::scroll:
        view_->scrollToBottom();
        break;
    case Aspect::structure:
        if (row >= 1) {
            view_->scrollTo(model_->index(static_cast<int>(row) - 1, std::max(0, c().col())));
        }
        followEditors();
        break;
    default:
        break;
    }
}

void FlexGridBinder::followColours()
{
    model_->rowsChanged(0, model_->rowCount() - 1);
}

void FlexGridBinder::followAll()
{
    followColumns();
    followLock();
    followEditors();
}

}  // namespace bravona
