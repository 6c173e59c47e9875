#include "platform/qt/Conversions.h"

#include <array>
#include <utility>

#include "platform/text/Text.h"

namespace bravona {

QString toQt(const std::string& text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string fromQt(const QString& text)
{
    return text.toUtf8().toStdString();
}

QColor toQt(Colour colour)
{
    return QColor(static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
                  static_cast<int>((colour >> 16U) & 0xFFU));
}

Colour fromQt(const QColor& colour)
{
    return rgb(static_cast<std::uint32_t>(colour.red()), static_cast<std::uint32_t>(colour.green()),
               static_cast<std::uint32_t>(colour.blue()));
}

Qt::Alignment toQt(Align align)
{
    switch (align) {
    case Align::right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case Align::centre:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    case Align::left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

QString oneLine(const std::string& text)
{
    QString shown = toQt(text);
    if (shown.contains(QLatin1Char('\n')) || shown.contains(QLatin1Char('\r'))) {
        shown.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(QLatin1Char('\n'), QLatin1Char(' '));
    }
    return shown;
}

qsizetype unitsOf(const QString& text, std::size_t characters)
{
    qsizetype units = 0;
    while (characters > 0 && units < text.size()) {
        units += text[units].isHighSurrogate() && units + 1 < text.size() ? 2 : 1;
        --characters;
    }
    return units;
}

std::size_t charactersOf(const QString& text, qsizetype units)
{
    std::size_t characters = 0;
    for (qsizetype i = 0; i < units && i < text.size(); ++characters) {
        i += text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
    }
    return characters;
}

namespace {

Key keyOf(int key)
{
    static constexpr std::array<std::pair<int, Key>, 29> table{{
        {Qt::Key_Return, Key::enter},
        {Qt::Key_Enter, Key::enter},
        {Qt::Key_Tab, Key::tab},
        {Qt::Key_Backtab, Key::tab},
        {Qt::Key_Escape, Key::escape},
        {Qt::Key_Up, Key::up},
        {Qt::Key_Down, Key::down},
        {Qt::Key_Left, Key::left},
        {Qt::Key_Right, Key::right},
        {Qt::Key_Home, Key::home},
        {Qt::Key_End, Key::end},
        {Qt::Key_PageUp, Key::pageUp},
        {Qt::Key_PageDown, Key::pageDown},
        {Qt::Key_Delete, Key::del},
        {Qt::Key_Backspace, Key::backspace},
        {Qt::Key_F1, Key::f1},
        {Qt::Key_F2, Key::f2},
        {Qt::Key_F3, Key::f3},
        {Qt::Key_F4, Key::f4},
        {Qt::Key_F5, Key::f5},
        {Qt::Key_F6, Key::f6},
        {Qt::Key_F7, Key::f7},
        {Qt::Key_F8, Key::f8},
        {Qt::Key_F9, Key::f9},
        {Qt::Key_F10, Key::f10},
        {Qt::Key_F11, Key::f11},
        {Qt::Key_F12, Key::f12},
        {Qt::Key_unknown, Key::none},
        {0, Key::none},
    }};
    for (const auto& [from, to] : table) {
        if (from == key) {
            return to;
        }
    }
    return Key::none;
}

bool isDecimalOfPad(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::KeypadModifier) &&
           (event.key() == Qt::Key_Period || event.key() == Qt::Key_Comma);
}

char32_t firstCharacter(const QString& text)
{
    const auto ucs4 = text.toUcs4();
    return ucs4.isEmpty() ? 0 : static_cast<char32_t>(ucs4.front());
}

}  // namespace

KeyEvent toKeyEvent(const QKeyEvent& event)
{
    KeyEvent result;
    result.shift = event.modifiers().testFlag(Qt::ShiftModifier);
    result.ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    result.alt = event.modifiers().testFlag(Qt::AltModifier);
    result.key = keyOf(event.key());
    if (result.key != Key::none) {
        return result;
    }
    if (isDecimalOfPad(event)) {
        result.key = Key::character;
        result.character = U',';
        return result;
    }
    const char32_t typed = firstCharacter(event.text());
    if (typed >= 32 && typed != 127) {
        result.key = Key::character;
        result.character = typed;
    } else if ((result.ctrl || result.alt) && event.key() >= Qt::Key_Space && event.key() <= Qt::Key_ydiaeresis) {
        // The toolkit gives a control character, or nothing, for a letter with Ctrl or Alt.
        result.key = Key::character;
        result.character = static_cast<char32_t>(event.key());
        if (!result.shift && result.character >= U'A' && result.character <= U'Z') {
            result.character += U'a' - U'A';
        }
    }
    return result;
}

char32_t typedCharacter(const QKeyEvent& event)
{
    const KeyEvent key = toKeyEvent(event);
    switch (key.key) {
    case Key::enter:
        return 13;
    case Key::backspace:
        return 8;
    case Key::escape:
        return 27;
    case Key::character:
        // AltGr arrives as Ctrl+Alt on some systems and then types a character of its own.
        return key.ctrl != key.alt ? 0 : key.character;
    default:
        return 0;
    }
}

QString captionWithoutMark(const std::string& caption)
{
    return toQt(withoutMnemonic(caption));
}

}  // namespace bravona
