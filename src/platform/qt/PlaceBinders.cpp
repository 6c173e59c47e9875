#include "platform/qt/PlaceBinders.h"

#include <QApplication>
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
      combo_(new QComboBox(parent))
{
    setWidget(combo_);
    combo_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo_->setMinimumContentsLength(24);
    QObject::connect(combo_, &QComboBox::activated, combo_, [this](int index) {
        enter([this, drive = fromQt(combo_->itemText(index))] { c().setDrive(drive); });
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
    for (const std::string& drive : c().drives()) {
        combo_->addItem(QApplication::style()->standardIcon(QStyle::SP_DriveHDIcon), toQt(drive));
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

DirBinder::DirBinder(FormWindow& window, DirList& folders, QWidget* parent)
    : BinderOf(window, folders),
      list_(new QListWidget(parent))
{
    setWidget(list_);
    list_->setMinimumSize(theme::pixels(200), theme::pixels(150));
    QObject::connect(list_, &QListWidget::itemDoubleClicked, list_,
                     [this](QListWidgetItem* item) { goTo(item->text()); });
}

void DirBinder::goTo(const QString& name)
{
    enter([this, name] {
        // A folder that may not be read is left as it is: the list keeps its place.
        std::string path = c().path();
        if (name == QLatin1String("..")) {
            const auto slash = path.find_last_of('/');
            path = slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
        } else {
            path += (path.ends_with('/') ? "" : "/") + fromQt(name);
        }
        c().setPath(path);
    });
}

bool DirBinder::key(QKeyEvent& event)
{
    if ((event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) && list_->currentItem() != nullptr) {
        goTo(list_->currentItem()->text());
        return true;
    }
    if (event.key() == Qt::Key_Backspace) {
        goTo(QStringLiteral(".."));
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
    for (const std::string& folder : c().folders()) {
        list_->addItem(new QListWidgetItem(QApplication::style()->standardIcon(QStyle::SP_DirIcon), toQt(folder)));
    }
    list_->setToolTip(toQt(c().path()));
    if (list_->count() > 0) {
        list_->setCurrentRow(0);
    }
}

// --- files

FileBinder::FileBinder(FormWindow& window, FileList& files, QWidget* parent)
    : BinderOf(window, files),
      list_(new Steady<QListWidget>(parent))
{
    setWidget(list_);
    list_->setMinimumSize(theme::pixels(200), theme::pixels(150));
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
