#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/windowing/Control.h"

namespace bravona {

struct Layout;
class Pages;
class ScrollBar;

class Frame final : public Control {
public:
    explicit Frame(std::string caption = {}) : Control(ControlKind::frame), caption_(std::move(caption)) {}
    [[nodiscard]] const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);
    [[nodiscard]] std::string shownText() const override { return caption_; }

    // A sunken box of this size, in pixels as pictures count; 0: as large as what stands in it, and no box.
    int boxWidth = 0;
    int boxHeight = 0;

private:
    std::string caption_;
};

class TabControl final : public Control {
public:
    struct Page {
        std::string caption;
        bool enabled = true;
        bool visible = true;
    };
    explicit TabControl(std::vector<std::string> captions);
    [[nodiscard]] const std::vector<Page>& pages() const { return pages_; }
    [[nodiscard]] int tab() const { return tab_; }
    void setTab(int tab);  // raises `onChange(previous)` when it differs; Errore 9 out of range
    void setPageEnabled(int tab, bool enabled);
    void setPageVisible(int tab, bool visible);
    [[nodiscard]] std::string shownText() const override { return pages_[static_cast<std::size_t>(tab_)].caption; }
    [[nodiscard]] bool focusable() const override { return true; }
    std::function<void(int)> onChange;  // the page left

private:
    std::vector<Page> pages_;
    int tab_ = 0;
};

// A picture from a file (BMP, GIF, JPEG, PNG) or a built-in one by name. The host tells its size when it has read it.
class PictureBox final : public Control {
public:
    PictureBox() : Control(ControlKind::pictureBox) {}
    [[nodiscard]] const std::string& path() const { return path_; }
    void load(std::string path);  // empty: none
    [[nodiscard]] bool loaded() const { return width_ > 0; }
    [[nodiscard]] int pictureWidth() const { return width_; }  // pixels; 0 when it could not be read
    [[nodiscard]] int pictureHeight() const { return height_; }
    void setPosition(int x, int y);  // of the picture's corner in its box, pixels
    [[nodiscard]] int x() const { return x_; }
    [[nodiscard]] int y() const { return y_; }
    void setShadow(bool shadow);  // falls behind the picture, to its right and below
    [[nodiscard]] bool shadow() const { return shadow_; }
    // Empty for a picture that can be seen.
    [[nodiscard]] std::string shownText() const override
    {
        return path_.empty() || loaded() ? std::string() : failureText;
    }
    int boxWidth = 290;  // pixels of the space it asks for
    int boxHeight = 140;
    std::string failureText;  // shown in its place when the file cannot be read
    std::function<void()> onResize;
    // What the wheel over it moves; none: the wheel is the window's.
    ScrollBar* horizontalBar = nullptr;
    ScrollBar* verticalBar = nullptr;

private:
    std::string path_;
    int width_ = 0;
    int height_ = 0;
    int x_ = 0;
    int y_ = 0;
    bool shadow_ = false;
};

class ScrollBar final : public Control {
public:
    explicit ScrollBar(bool isHorizontal = true) : Control(ControlKind::scrollBar), horizontal(isHorizontal) {}
    void setRange(int minimum, int maximum);
    void setValue(int value);  // clamped; raises `onChange` when it differs
    [[nodiscard]] int minimum() const { return minimum_; }
    [[nodiscard]] int maximum() const { return maximum_; }
    [[nodiscard]] int value() const { return value_; }
    // How far an arrow or the wheel, and how far a page key moves it.
    [[nodiscard]] int step() const;
    [[nodiscard]] int pageStep() const;
    bool userKey(Key key);  // arrows, Page, Home and End; false for any other key
    [[nodiscard]] std::string shownText() const override { return std::to_string(value_); }
    [[nodiscard]] bool focusable() const override { return true; }
    bool horizontal;
    std::function<void()> onChange;

private:
    int minimum_ = 0;
    int maximum_ = 0;
    int value_ = 0;
};

class ProgressBar final : public Control {
public:
    ProgressBar() : Control(ControlKind::progressBar) {}
    void setValue(int percent);
    [[nodiscard]] int value() const { return value_; }
    [[nodiscard]] std::string shownText() const override { return std::to_string(value_); }

private:
    int value_ = 0;
};

// Places to start from (home, root, mounted media), folders of a place, files of a folder by pattern.
class DriveList final : public Control {
public:
    DriveList() : Control(ControlKind::driveList) {}
    [[nodiscard]] const std::vector<std::string>& drives() const { return drives_; }
    void refresh();  // also whenever the hand drops the list down: a medium may have come or gone
    [[nodiscard]] const std::string& drive() const { return drive_; }
    void setDrive(
        const std::string& drive);  // raises `onChange`; Errore 71 for a place that is neither listed nor there
    void userChoose(const std::string& drive);  // by hand: `onChange` also for the place chosen already
    [[nodiscard]] std::string shownText() const override { return drive_; }
    [[nodiscard]] bool focusable() const override { return true; }
    std::function<void()> onChange;

private:
    std::vector<std::string> drives_;
    std::string drive_;
};

class DirList final : public Control {
public:
    DirList() : Control(ControlKind::dirList) {}
    [[nodiscard]] const std::string& path() const { return path_; }
    void setPath(const std::string& path);  // raises `onChange`; Errore 71 or 70 when it cannot be read, the path kept
    void userChoose(const std::string& path);  // by hand: `onChange` also for the folder shown already
    [[nodiscard]] const std::vector<std::string>& folders() const { return folders_; }  // names; ".." first
    [[nodiscard]] std::string shownText() const override { return path_; }
    [[nodiscard]] bool focusable() const override { return true; }
    std::function<void()> onChange;

private:
    std::string path_;
    std::vector<std::string> folders_;
};

class FileList final : public Control {
public:
    FileList() : Control(ControlKind::fileList) {}
    [[nodiscard]] const std::string& path() const { return path_; }
    void setPath(const std::string& path);
    [[nodiscard]] const std::vector<std::string>& files() const { return files_; }
    [[nodiscard]] int listIndex() const { return index_; }
    void setListIndex(int index);                // raises `onClick`
    [[nodiscard]] std::string fileName() const;  // empty without a selection
    [[nodiscard]] std::string shownText() const override { return fileName(); }
    [[nodiscard]] bool focusable() const override { return true; }
    std::string pattern = "*";

private:
    std::string path_;
    std::vector<std::string> files_;
    int index_ = -1;
};

// The pages of a preview.
class PageView final : public Control {
public:
    static constexpr int fitWidth = 0;
    static constexpr int fitPage = -1;
    PageView() : Control(ControlKind::pageView) {}
    void setPages(std::shared_ptr<const Pages> pages);
    [[nodiscard]] const std::shared_ptr<const Pages>& pages() const { return pages_; }
    [[nodiscard]] int page() const { return page_; }  // from 0
    void setPage(int page);                           // clamped; raises `onChange` when it differs
    [[nodiscard]] int zoom() const { return zoom_; }  // percent, or fitWidth, fitPage
    void setZoom(int zoom);                           // raises `onChange` when it differs
    void setSearch(std::string text);                 // marks its places on the page; empty: none
    [[nodiscard]] const std::string& search() const { return search_; }
    [[nodiscard]] bool focusable() const override { return true; }
    std::function<void()> onChange;

private:
    std::shared_ptr<const Pages> pages_;
    int page_ = 0;
    int zoom_ = fitWidth;
    std::string search_;
};

// Several controls that work as one, and one of them its main part. Its parts are named after it: "Griglia.Command1".
class Composite : public Control {
public:
    struct Part {
        std::string name;
        int index;
        Control* control;
    };
    Composite() : Control(ControlKind::composite) {}
    [[nodiscard]] virtual Control& mainPart() = 0;
    [[nodiscard]] virtual const Layout& layout() const = 0;
    [[nodiscard]] const std::vector<Part>& parts() const { return parts_; }
    [[nodiscard]] std::string shownText() const override { return {}; }

protected:
    void addPart(std::string name, Control& control, int index = -1)
    {
        parts_.push_back({std::move(name), index, &control});
    }

private:
    std::vector<Part> parts_;
};

// Not shown: raises `onTimer` every `interval` milliseconds while enabled and its form loaded.
class Timer {
public:
    void start(int milliseconds)
    {
        interval = milliseconds;
        enabled = milliseconds > 0;
    }
    void stop() { enabled = false; }
    int interval = 0;
    bool enabled = false;
    std::function<void()> onTimer;
};

// A menu bar, a pop-up menu, or an entry with its own entries.
class Menu {
public:
    explicit Menu(std::string menuName = {}, std::string menuCaption = {})
        : name(std::move(menuName)),
          caption(std::move(menuCaption))
    {}
    Menu& add(std::string entryName, std::string entryCaption, std::function<void()> action = {});
    void addSeparator();
    [[nodiscard]] Menu* find(const std::string& entryName);
    std::string name;
    std::string caption;
    std::string shortcut;  // "Ctrl+N"
    bool visible = true;
    bool enabled = true;
    bool separator = false;
    std::function<void()> onClick;
    std::vector<std::unique_ptr<Menu>> entries;
};

struct StatusBar {
    std::vector<std::string> panels;
    std::optional<int> progress;  // percent of a long work; none: no bar
};

}  // namespace bravona
