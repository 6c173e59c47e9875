#include "platform/qt/PlaceBinders.h"

#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QStyle>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Theme.h"

namespace bravona {

// --- places

DriveBinder::DriveBinder(FormWindow& window, DriveList& drives, QWidget* parent)
    : BinderOf(window, drives),
      combo_(new DropCombo(parent))
{
    setWidget(combo_);
    combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo_->setMinimumContentsLength(24);
    combo_->beforeDrop = [this] { enter([this] { c().refresh(); }); };
    QObject::connect(combo_, &QComboBox::activated, combo_, [this](int index) {
        enter([this, drive = fromQt(combo_->itemText(index))] { c().userChoose(drive); });
        if (alive()) {
            followAll();  // back, when it could not be read
        }
    });
}

void DriveBinder::follow(Aspect /*aspect*/, std::size_t /*row*/)
{
    followAll();
}

void DriveBinder::followAll()
{
    combo_->clear();
    const QString home = QDir::homePath();
    for (const std::string& drive : c().drives()) {
        const QStyle::StandardPixmap icon = toQt(drive) == home ? QStyle::SP_DirHomeIcon : QStyle::SP_DriveHDIcon;
        combo_->addItem(QApplication::style()->standardIcon(icon), toQt(drive));
    }
    const int current = combo_->findText(toQt(c().drive()));
    if (current < 0 && !c().drive().empty()) {
        combo_->addItem(QApplication::style()->standardIcon(QStyle::SP_DriveHDIcon), toQt(c().drive()));
        combo_->setCurrentIndex(combo_->count() - 1);
    } else {
        combo_->setCurrentIndex(current);
    }
}

// --- folders

namespace {

std::string above(const std::string& path)
{
    const auto slash = path.find_last_of('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

}  // namespace

DirBinder::DirBinder(FormWindow& window, DirList& folders, QWidget* parent)
    : BinderOf(window, folders),
      list_(new QListWidget(parent))
{
    setWidget(list_);
    list_->setMinimumSize(theme::pixels(200), theme::pixels(150));
    list_->setIconSize(QSize(theme::pixels(16), theme::pixels(16)));
    list_->setTextElideMode(Qt::ElideLeft);  // of a long path the end tells more
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QObject::connect(list_, &QListWidget::itemDoubleClicked, list_, [this](QListWidgetItem* item) { goTo(*item); });
}

// A folder that may not be read is left as it is: the list keeps its place.
void DirBinder::goTo(const QListWidgetItem& item)
{
    enter([this, name = fromQt(item.text()), here = list_->row(&item) == 0] {
        const std::string& path = c().path();
        c().userChoose(here ? path : name == ".." ? above(path) : path + (path.ends_with('/') ? "" : "/") + name);
    });
}

bool DirBinder::key(QKeyEvent& event)
{
    if ((event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && list_->currentItem() != nullptr) {
        goTo(*list_->currentItem());
        return true;
    }
    if (event.key() == Qt::Key_Backspace) {
        enter([this] { c().userChoose(above(c().path())); });
        return true;
    }
    return false;
}

void DirBinder::follow(Aspect /*aspect*/, std::size_t /*row*/)
{
    followAll();
}

void DirBinder::followAll()
{
    list_->clear();
    list_->setToolTip(toQt(c().path()));
    if (c().path().empty()) {
        return;
    }
    // Where one is, over what one can go to.
    auto* here =
        new QListWidgetItem(QApplication::style()->standardIcon(QStyle::SP_DirOpenIcon), toQt(c().path()), list_);
    QFont bold = list_->font();
    bold.setBold(true);
    here->setFont(bold);
    for (const std::string& folder : c().folders()) {
        list_->addItem(new QListWidgetItem(QApplication::style()->standardIcon(QStyle::SP_DirIcon), toQt(folder)));
    }
    list_->setCurrentRow(0);
}

// --- files

FileBinder::FileBinder(FormWindow& window, FileList& files, QWidget* parent)
    : BinderOf(window, files),
      list_(new Steady<QListWidget>(parent))
{
    setWidget(list_);
    list_->setMinimumSize(theme::pixels(200), theme::pixels(150));
    list_->setIconSize(QSize(theme::pixels(16), theme::pixels(16)));
    QObject::connect(list_, &QListWidget::currentRowChanged, list_, [this](int row) {
        if (!list_->following && row >= 0) {
            enter([this, row] { c().setListIndex(row); });
        }
    });
    QObject::connect(list_, &QListWidget::itemDoubleClicked, list_,
                     [this] { enter([this] { desktop().interaction().doubleClick(c()); }); });
}

void FileBinder::detach()
{
    list_->following = true;
    Binder::detach();
}

void FileBinder::followChoice()
{
    list_->following = true;
    list_->setCurrentRow(c().listIndex());
    if (c().listIndex() < 0) {
        list_->clearSelection();
    }
    list_->following = false;
}

void FileBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    if (aspect == Aspect::items) {
        followAll();
    } else if (aspect == Aspect::selection) {
        followChoice();
    }
}

void FileBinder::followAll()
{
    list_->following = true;
    list_->clear();
    for (const std::string& file : c().files()) {
        list_->addItem(new QListWidgetItem(QApplication::style()->standardIcon(QStyle::SP_FileIcon), toQt(file)));
    }
    list_->following = false;
    followChoice();
}

}  // namespace bravona
