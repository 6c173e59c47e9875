#pragma once

#include <QMenuBar>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/windowing/Form.h"
#include "platform/windowing/Letters.h"

class QLabel;
class QScrollArea;
class QWidget;

namespace bravona {

class Binder;
class MainShell;
class QtDesktop;

// One form on the screen: its contents (the widgets of its layout) in a shell that depends on how it is shown — a child
// window of the main window, a window of its own, the main window, a bare splash.
class FormWindow final : public QObject, public ControlObserver {
public:
    FormWindow(QtDesktop& desktop, Form& form);
    ~FormWindow() override;

    [[nodiscard]] QtDesktop& desktop() const { return desktop_; }
    [[nodiscard]] Form* form() const { return form_; }  // nullptr after `detach`
    [[nodiscard]] QWidget* content() const { return content_; }
    [[nodiscard]] QWidget* shell() const { return shell_; }
    [[nodiscard]] QWidget* topLevel() const;  // the window of the desktop that it is in
    [[nodiscard]] MainShell* main() const;    // its shell, when it is the main window
    [[nodiscard]] QMenuBar* menuBar() const;

    // A child of the main window's area, or a window of its own over `owner`.
    void show(QWidget* owner, MainShell* main);
    void hide();
    // The form goes: nothing of it is touched any more; the widgets hide at once and die when no handler runs.
    void detach();
    void centre(bool onScreen);
    // Takes the toolkit's focus to a control of the form, without telling the core.
    void takeFocus(const Control& control);

    [[nodiscard]] Binder* binder(const Control& control) const;
    // The widget of a control that the layout does not hold (an editor over a grid's cell), made when first asked for.
    Binder& binderFor(Control& control, QWidget* parent);
    Binder& place(Control& control, QWidget* parent);
    void followEnabledIn(const Control& frame);  // all that stands in it
    QPointer<QWidget> readText;                  // a field that is there to be read, with the last selection in one
    // A label in front of its contents; one that is no control is seen while anything of its contents is.
    void addLine(QLabel* label, const Layout& line, std::vector<Control*> contents);
    [[nodiscard]] const Letters& letters() const { return letters_; }
    [[nodiscard]] Control* controlOf(const QWidget* widget) const;  // nullptr for the empty area

    void changed(Control& control, Aspect aspect, std::size_t row) override;
    void changed(Form& form) override;
    bool eventFilter(QObject* target, QEvent* event) override;  // of the contents: their size, a double click

private:
    enum class Kind { none, child, window, main, splash };
    void build();
    void makeShell(Kind kind, QWidget* owner, MainShell* main);
    void makeMain();
    void makeChild(MainShell& main);
    void makeWindow(QWidget* owner, bool bare);
    void dropShell();
    void hideShell();
    void followForm();
    void followMenu();
    void followLines();
    void followLetters();
    void markLines();
    void savePlace();
    void placeShell();
    void growLater();  // to contents that have become larger
    void grow();
    [[nodiscard]] QString placeKey() const;
    [[nodiscard]] QSize wantedSize() const;
    [[nodiscard]] QRect room() const;  // for the shell, in its parent's coordinates or the screen's
    void closeAsked();
    void doubleClicked();  // on the empty area

    QtDesktop& desktop_;
    Form* form_;
    QPointer<QWidget> content_;
    QPointer<QScrollArea> scroll_;
    QPointer<QWidget> shell_;
    Kind kind_ = Kind::none;
    QPointer<QWidget> owner_;
    QPointer<QMenuBar> ownMenu_;  // of a window that is not the main one
    QRect placedAt_;              // where the program put it
    bool growing_ = false;        // waits to
    struct Line {
        QPointer<QLabel> label;
        std::string caption;
        std::vector<Control*> contents;
        bool hides = false;
    };
    std::vector<Line> lines_;
    Letters letters_;
    std::unordered_map<const Control*, std::unique_ptr<Binder>> binders_;
    std::unordered_map<const QWidget*, Control*> controls_;
};

}  // namespace bravona
