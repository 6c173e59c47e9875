#pragma once

#include <QComboBox>
#include <QListWidget>
#include <functional>

#include "platform/qt/Binder.h"
#include "platform/qt/Steady.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// Places to start from, the folders of a place, the files of a folder.

// A combo that tells before it drops down.
class DropCombo final : public QComboBox {
public:
    using QComboBox::QComboBox;
    std::function<void()> beforeDrop;
    void showPopup() override
    {
        beforeDrop();
        QComboBox::showPopup();
    }
};

class DriveBinder final : public BinderOf<DriveList> {
public:
    DriveBinder(FormWindow& window, DriveList& drives, QWidget* parent);

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    DropCombo* combo_;
};

class DirBinder final : public BinderOf<DirList> {
public:
    DirBinder(FormWindow& window, DirList& folders, QWidget* parent);
    bool key(QKeyEvent& event) override;  // Enter goes into a folder or chooses the one shown, Backspace out of it

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    void goTo(const QListWidgetItem& item);
    QListWidget* list_;
};

class FileBinder final : public BinderOf<FileList> {
public:
    FileBinder(FormWindow& window, FileList& files, QWidget* parent);
    void detach() override;

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    void followChoice();
    Steady<QListWidget>* list_;
};

}  // namespace bravona
