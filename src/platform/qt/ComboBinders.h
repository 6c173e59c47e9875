#pragma once

#include <QAbstractListModel>
#include <QComboBox>
#include <QListView>

#include "platform/qt/Binder.h"
#include "platform/qt/Steady.h"
#include "platform/windowing/Lists.h"

namespace bravona {

// The items of a combo or list box, read from the record each time.
class ItemModel final : public QAbstractListModel {
public:
    explicit ItemModel(std::function<const std::vector<ListItem>*()> items) : items_(std::move(items)) {}
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    void follow();  // the items have changed

private:
    std::function<const std::vector<ListItem>*()> items_;
    int known_ = 0;
};

// A combo that shows a text that is none of its items, too.
class ComboWidget final : public QComboBox {
public:
    explicit ComboWidget(QWidget* parent) : QComboBox(parent) {}
    QString shown;
    bool locked = false;
    bool reading = false;  // its text alone, as of a read-only field
    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

class ComboBinder final : public BinderOf<ComboBox> {
public:
    ComboBinder(FormWindow& window, ComboBox& combo, QWidget* parent);
    [[nodiscard]] QWidget* focusWidget() const override;
    void insert(const QString& text) override;
    [[nodiscard]] bool takesText() const override { return c().editable() && !c().locked(); }
    void focused() override;
    bool key(QKeyEvent& event) override;
    void detach() override;

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followColours() override;
    void followReading() override;
    void followAll() override;

private:
    void followChoice();
    ComboWidget* combo_;
    ItemModel* model_;
    QPalette base_;
    bool following_ = false;
};

class ListBoxWidget final : public Steady<QListView> {
public:
    using Steady::Steady;
    int lines = 6;  // that it asks room for
    [[nodiscard]] QSize sizeHint() const override;
};

class ListBoxBinder final : public BinderOf<ListBox> {
public:
    ListBoxBinder(FormWindow& window, ListBox& list, QWidget* parent);
    void detach() override;

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;

private:
    ListBoxWidget* list_;
    ItemModel* model_;
};

}  // namespace bravona
