#include "platform/windowing/Parts.h"

#include <algorithm>

#include "platform/reports/Pages.h"
#include "platform/values/Errore.h"
#include "platform/windowing/Desktop.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Layout.h"

namespace bravona {

namespace {

[[noreturn]] void outOfRange()
{
    throw Errore(errori::indiceFuoriIntervallo, "Indice non compreso nell'intervallo");
}

}  // namespace

void Frame::setCaption(std::string caption)
{
    if (caption_ != caption) {
        caption_ = std::move(caption);
        notify(Aspect::text);
    }
}

TabControl::TabControl(std::vector<std::string> captions) : Control(ControlKind::tabControl)
{
    for (std::string& caption : captions) {
        pages_.push_back({std::move(caption), true, true});
    }
}

void TabControl::setTab(int tab)
{
    if (tab < 0 || tab >= static_cast<int>(pages_.size())) {
        outOfRange();
    }
    if (tab == tab_) {
        return;
    }
    const int previous = tab_;
    tab_ = tab;
    notify(Aspect::selection);
    if (onChange) {
        onChange(previous);
    }
}

void TabControl::setPageEnabled(int tab, bool enabled)
{
    if (tab < 0 || tab >= static_cast<int>(pages_.size())) {
        outOfRange();
    }
    pages_[static_cast<std::size_t>(tab)].enabled = enabled;
    notify(Aspect::structure);
}

void TabControl::setPageVisible(int tab, bool visible)
{
    if (tab < 0 || tab >= static_cast<int>(pages_.size())) {
        outOfRange();
    }
    pages_[static_cast<std::size_t>(tab)].visible = visible;
    notify(Aspect::structure);
}

void PictureBox::load(std::string path)
{
    path_ = std::move(path);
    const int oldWidth = width_;
    const int oldHeight = height_;
    width_ = 0;
    height_ = 0;
    if (!path_.empty() && form() != nullptr) {
        if (const auto size = form()->desktop().pictureSize(path_); size) {
            width_ = size->first;
            height_ = size->second;
        }
    }
    notify(Aspect::value);
    if (onResize && (oldWidth != width_ || oldHeight != height_)) {
        onResize();
    }
}

void PictureBox::setPosition(int x, int y)
{
    x_ = x;
    y_ = y;
    notify(Aspect::scroll);
}

void PictureBox::setShadow(bool shadow)
{
    shadow_ = shadow;
    notify(Aspect::value);
}

void ScrollBar::setRange(int minimum, int maximum)
{
    minimum_ = minimum;
    maximum_ = std::max(minimum, maximum);
    notify(Aspect::structure);
    setValue(value_);
}

void ScrollBar::setValue(int value)
{
    value = std::clamp(value, minimum_, maximum_);
    if (value == value_) {
        return;
    }
    value_ = value;
    notify(Aspect::value);
    if (onChange) {
        onChange();
    }
}

int ScrollBar::step() const
{
    return std::max(1, (maximum_ - minimum_) / 20);
}

int ScrollBar::pageStep() const
{
    return std::max(1, (maximum_ - minimum_) / 5);
}

bool ScrollBar::userKey(Key key)
{
    switch (key) {
    case Key::left:
    case Key::right:
        if (horizontal) {
            setValue(value_ + (key == Key::right ? step() : -step()));
        }
        return true;
    case Key::up:
    case Key::down:
        if (!horizontal) {
            setValue(value_ + (key == Key::down ? step() : -step()));
        }
        return true;
    case Key::pageUp:
        setValue(value_ - pageStep());
        return true;
    case Key::pageDown:
        setValue(value_ + pageStep());
        return true;
    case Key::home:
        setValue(minimum_);
        return true;
    case Key::end:
        setValue(maximum_);
        return true;
    default:
        return false;
    }
}

void ProgressBar::setValue(int percent)
{
    percent = std::clamp(percent, 0, 100);
    if (percent != value_) {
        value_ = percent;
        notify(Aspect::value);
    }
}

void PageView::setPages(std::shared_ptr<const Pages> pages)
{
    pages_ = std::move(pages);
    page_ = 0;
    notify(Aspect::items);
}

void PageView::setPage(int page)
{
    const int last = pages_ == nullptr ? 0 : std::max(0, static_cast<int>(pages_->pages.size()) - 1);
    page = std::clamp(page, 0, last);
    if (page == page_) {
        return;
    }
    page_ = page;
    notify(Aspect::value);
    if (onChange) {
        onChange();
    }
}

void PageView::setZoom(int zoom)
{
    if (zoom != zoom_) {
        zoom_ = zoom;
        notify(Aspect::value);
        if (onChange) {
            onChange();
        }
    }
}

void PageView::setSearch(std::string text)
{
    search_ = std::move(text);
    notify(Aspect::value);
}

Menu& Menu::add(std::string entryName, std::string entryCaption, std::function<void()> action)
{
    entries.push_back(std::make_unique<Menu>(std::move(entryName), std::move(entryCaption)));
    entries.back()->onClick = std::move(action);
    return *entries.back();
}

void Menu::addSeparator()
{
    entries.push_back(std::make_unique<Menu>());
    entries.back()->separator = true;
}

Menu* Menu::find(const std::string& entryName)
{
    if (!name.empty() && name == entryName) {
        return this;
    }
    for (const auto& entry : entries) {
        if (Menu* found = entry->find(entryName); found != nullptr) {
            return found;
        }
    }
    return nullptr;
}

}  // namespace bravona
