#include "platform/qt/TextBinders.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QStyle>
#include <QTextDocument>
#include <algorithm>
#include <cmath>

#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/LayoutBuilder.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Theme.h"

namespace bravona {

// --- the widgets

EntryLine::EntryLine(QWidget* parent) : QLineEdit(parent)
{
    setDragEnabled(false);
}

void EntryLine::mouseReleaseEvent(QMouseEvent* event)
{
    // The middle button pastes what is selected elsewhere.
    if (event->button() == Qt::MiddleButton && QApplication::clipboard()->supportsSelection()) {
        if (pasted && !isReadOnly()) {
            pasted(QApplication::clipboard()->text(QClipboard::Selection));
        }
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void EntryLine::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!(doubleClicked && event->button() == Qt::LeftButton && doubleClicked())) {
        QLineEdit::mouseDoubleClickEvent(event);
    }
}

void EntryLine::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : menu->actions()) {
        if (action->objectName() == QLatin1String("edit-paste")) {
            action->disconnect();
            connect(action, &QAction::triggered, this, [this] {
                if (pasted) {
                    pasted(QApplication::clipboard()->text());
                }
            });
        }
    }
    menu->popup(event->globalPos());
}

void EntryLine::dropEvent(QDropEvent* event)
{
    if (pasted && !isReadOnly() && event->mimeData()->hasText()) {
        setCursorPosition(cursorPositionAt(event->position().toPoint()));
        pasted(event->mimeData()->text());
        event->acceptProposedAction();
    }
}

int EntryText::inset(const QWidget& beside)
{
    return beside.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &beside) +
           static_cast<int>(QTextDocument().documentMargin());
}

QSize EntryText::sizeHint() const
{
    const int frame = 2 * frameWidth() + static_cast<int>(2 * document()->documentMargin());
    return {theme::textWidth(font(), characters) + frame + verticalScrollBar()->sizeHint().width(),
            lines * fontMetrics().lineSpacing() + frame};
}

QSize EntryText::minimumSizeHint() const
{
    const QSize full = sizeHint();
    return {std::min(full.width(), theme::pixels(120)), std::min(full.height(), theme::pixels(48))};
}

void EntryText::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!(doubleClicked && doubleClicked())) {
        QPlainTextEdit::mouseDoubleClickEvent(event);
    }
}

void EntryText::insertFromMimeData(const QMimeData* source)
{
    if (pasted && source->hasText()) {
        pasted(source->text());
    }
}

// --- one line

LineBinder::LineBinder(FormWindow& window, TextBox& box, QWidget* parent)
    : BinderOf(window, box),
      edit_(new EntryLine(parent)),
      base_(edit_->palette())
{
    setWidget(edit_);
    edit_->setFont(theme::font(edit_->font(), box.style, box.fixedPitch));
    edit_->setAlignment(toQt(box.align));
    edit_->setPlaceholderText(toQt(box.placeholder));
    edit_->setMaxLength(box.maxLength > 0 ? static_cast<int>(box.maxLength) : 32767);
    const int width = theme::textWidth(edit_->font(), box.width) + theme::pixels(14);
    if (box.grows) {
        edit_->setMinimumWidth(std::min(width, theme::pixels(420)));
        edit_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    } else {
        edit_->setFixedWidth(width);
    }
    QObject::connect(edit_, &QLineEdit::textEdited, edit_, [this](const QString& text) {
        if (following_) {
            return;
        }
        enter([this, text] { c().userText(fromQt(text), charactersOf(text, edit_->cursorPosition())); });
    });
    QObject::connect(edit_, &QLineEdit::selectionChanged, edit_, [this] { caretMoved(); });
    QObject::connect(edit_, &QLineEdit::cursorPositionChanged, edit_, [this] { caretMoved(); });
    edit_->pasted = [this](const QString& text) { desktop().paste(*this, text); };
    edit_->doubleClicked = [this] {
        if (!alive() || !c().onDblClick) {
            return false;
        }
        enter([this] { desktop().interaction().doubleClick(c()); });
        return true;
    };
}

void LineBinder::caretMoved()
{
    if (following_ || !alive()) {
        return;
    }
    if (reading()) {
        window().readText = edit_;
        return;
    }
    const QString text = edit_->text();
    // While a key is being typed the text is still to be told; the caret goes with it.
    if (fromQt(text) != c().text()) {
        return;
    }
    const bool some = edit_->hasSelectedText();
    const int start = some ? edit_->selectionStart() : edit_->cursorPosition();
    const int end = some ? start + static_cast<int>(edit_->selectedText().size()) : start;
    const std::size_t first = charactersOf(text, start);
    c().userCaret(first, charactersOf(text, end) - first);
}

void LineBinder::insert(const QString& text)
{
    if (!c().locked()) {
        edit_->insert(text);
    }
}

void LineBinder::followText()
{
    const QString text = toQt(c().text());
    if (edit_->text() != text) {
        following_ = true;
        edit_->setText(text);
        following_ = false;
        followCaret();
        if (!edit_->hasFocus() && c().align == Align::left) {
            following_ = true;
            edit_->setCursorPosition(0);  // a long text is seen from its beginning
            following_ = false;
        }
    }
}

void LineBinder::followCaret()
{
    following_ = true;
    const QString text = edit_->text();
    const auto start = static_cast<int>(unitsOf(text, c().selStart()));
    const auto end = static_cast<int>(unitsOf(text, c().selStart() + c().selLength()));
    if (end > start) {
        edit_->setSelection(start, end - start);
    } else {
        edit_->deselect();
        edit_->setCursorPosition(start);
    }
    following_ = false;
}

void LineBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    switch (aspect) {
    case Aspect::text:
        followText();
        break;
    case Aspect::caret:
        followText();
        followCaret();
        break;
    case Aspect::value:
        followLock();
        break;
    default:
        break;
    }
}

void LineBinder::followLock()
{
    edit_->setReadOnly(readOnly());
    edit_->setFrame(!readOnly());
    edit_->setFocusPolicy(reading() ? Qt::NoFocus : Qt::StrongFocus);
    followColours();
}

void LineBinder::followColours()
{
    edit_->setPalette(theme::fieldPalette(base_, c(), readOnly()));
}

void LineBinder::followAll()
{
    followLock();
    followText();
}

// --- several lines

MultiLineBinder::MultiLineBinder(FormWindow& window, TextBox& box, QWidget* parent)
    : BinderOf(window, box),
      edit_(new EntryText(parent)),
      base_(edit_->palette())
{
    setWidget(edit_);
    edit_->lines = std::max(1, box.lines);
    edit_->characters = box.width;
    edit_->setTabChangesFocus(true);
    edit_->setFont(theme::font(edit_->font(), box.style, box.fixedPitch));
    edit_->setSizePolicy(QSizePolicy::Expanding,
                         LayoutBuilder::growsDown(layout::of(box)) ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    QObject::connect(edit_, &QPlainTextEdit::textChanged, edit_, [this] {
        if (following_ || !alive()) {
            return;
        }
        QString text = edit_->toPlainText();
        if (c().maxLength > 0 && charactersOf(text, text.size()) > c().maxLength) {
            followText();  // what does not fit is not typed
            return;
        }
        const std::size_t caret = charactersOf(text, edit_->textCursor().position());
        enter([this, text, caret] { c().userText(fromQt(text), caret); });
    });
    QObject::connect(edit_, &QPlainTextEdit::cursorPositionChanged, edit_, [this] { caretMoved(); });
    QObject::connect(edit_, &QPlainTextEdit::selectionChanged, edit_, [this] { caretMoved(); });
    edit_->pasted = [this](const QString& text) { desktop().paste(*this, text); };
    edit_->doubleClicked = [this] {
        if (!alive() || !c().onDblClick) {
            return false;
        }
        enter([this] { desktop().interaction().doubleClick(c()); });
        return true;
    };
}

void MultiLineBinder::caretMoved()
{
    if (following_ || !alive()) {
        return;
    }
    if (reading()) {
        window().readText = edit_;
        return;
    }
    const QString text = edit_->toPlainText();
    if (fromQt(text) != c().text()) {
        return;
    }
    const QTextCursor cursor = edit_->textCursor();
    const std::size_t first = charactersOf(text, cursor.selectionStart());
    c().userCaret(first, charactersOf(text, cursor.selectionEnd()) - first);
}

void MultiLineBinder::insert(const QString& text)
{
    if (!c().locked()) {
        edit_->insertPlainText(text);
    }
}

void MultiLineBinder::followText()
{
    const QString text = toQt(c().text()).replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (edit_->toPlainText() != text) {
        following_ = true;
        edit_->setPlainText(text);
        following_ = false;
        followCaret();
    }
}

void MultiLineBinder::followCaret()
{
    following_ = true;
    const QString text = edit_->toPlainText();
    QTextCursor cursor = edit_->textCursor();
    cursor.setPosition(static_cast<int>(unitsOf(text, c().selStart())));
    cursor.setPosition(static_cast<int>(unitsOf(text, c().selStart() + c().selLength())), QTextCursor::KeepAnchor);
    edit_->setTextCursor(cursor);
    following_ = false;
}

void MultiLineBinder::follow(Aspect aspect, std::size_t /*row*/)
{
    switch (aspect) {
    case Aspect::text:
        followText();
        break;
    case Aspect::caret:
        followText();
        followCaret();
        break;
    case Aspect::value:
        followLock();
        break;
    default:
        break;
    }
}

void MultiLineBinder::followLock()
{
    edit_->setReadOnly(readOnly());
    edit_->setTextInteractionFlags(readOnly() ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                              : Qt::TextEditorInteraction);
    edit_->setFocusPolicy(reading() ? Qt::NoFocus : Qt::StrongFocus);
    followColours();
}

void MultiLineBinder::followColours()
{
    edit_->setPalette(theme::fieldPalette(base_, c(), readOnly()));
}

void MultiLineBinder::followAll()
{
    followLock();
    followText();
}

}  // namespace bravona
