#pragma once

#include "platform/qt/Binder.h"
#include "platform/qt/ListWidget.h"
#include "platform/windowing/Lists.h"

namespace bravona {

class ListViewBinder final : public BinderOf<ListView> {
public:
    ListViewBinder(FormWindow& window, ListView& list, QWidget* parent);
    void detach() override;
    bool key(QKeyEvent& event) override;  // Space ticks the selected row

protected:
    void follow(Aspect aspect, std::size_t row) override;
    void followAll() override;
    void followColours() override;

private:
    void followColumns();
    void followSelection();
    void followSort();
    void fitColumns();
    void fitLater();
    void shareSpareWidth();
    void saveWidths();
    [[nodiscard]] QString widthsKey() const;
    [[nodiscard]] int headingWidth(std::size_t column) const;  // pixels that its caption takes
    ListWidget* view_;
    ListViewModel* model_;
    std::vector<int> wanted_;  // widths as fitted, before the spare room is shared
    bool fitted_ = false;      // by contents, or by the person's hand
    bool byHand_ = false;
    bool sizing_ = false;
    bool fitting_ = false;
};

}  // namespace bravona
