#pragma once

#include <QColor>
#include <QKeyEvent>
#include <QString>
#include <optional>
#include <string>

#include "platform/windowing/Events.h"

namespace bravona {

QString toQt(const std::string& text);
std::string fromQt(const QString& text);

QColor toQt(Colour colour);
Colour fromQt(const QColor& colour);

Qt::Alignment toQt(Align align);  // vertically in the middle
// As a cell shows it: a line break is a blank.
QString oneLine(const std::string& text);

// Positions in characters and in the toolkit's units.
qsizetype unitsOf(const QString& text, std::size_t characters);
std::size_t charactersOf(const QString& text, qsizetype units);

// The key as the core knows it; the decimal key of the numeric pad is a comma. `Key::none` for what no rule speaks of
// (modifiers alone, dead keys).
KeyEvent toKeyEvent(const QKeyEvent& event);
// The character that a key types, Enter 13, Backspace 8, Escape 27; 0 for the others.
char32_t typedCharacter(const QKeyEvent& event);

// A caption as the toolkit draws it in a menu or button; without the mark, for titles and names.
QString captionWithoutMark(const std::string& caption);

}  // namespace bravona
