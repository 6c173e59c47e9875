#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QWidget>
#include <initializer_list>

#include "platform/windowing/Events.h"
#include "platform/windowing/Fields.h"

namespace bravona::theme {

// Puts the program's small corrections over the system's style; more than once does nothing.
void install();

// How large the system's font is, against one of 13 pixels; all sizes follow it.
double scale();
int unit();                          // between fields: 6 pixels at scale 1
int group();                         // between groups and around the contents: 12
int pixels(int size);                // a size told for scale 1
int twips(int size);                 // 1/1440 inch
int fieldHeight(const QFont& font);  // of an entry field of one line
// Room for so many characters of a usual text, without margins.
int textWidth(const QFont& font, int characters);

QFont font(const QFont& base, TextStyle style, bool fixedPitch);

bool dark(const QPalette& palette);
constexpr double leastContrast = 4.5;  // of text on its ground
double contrast(const QColor& a, const QColor& b);
// The colour as it stands on a light ground, lightened to a contrast of 4.5 : 1 on a dark one.
QColor readable(Colour colour, const QColor& ground);
// Mixed with the strongest colour as far as it takes to stand readable on all these grounds.
QColor readable(const QColor& wanted, const QColor& strongest, std::initializer_list<QColor> grounds);
// With text that is off readable on its grounds.
QPalette legible(const QPalette& palette);
QColor focusRing(const QPalette& palette);  // of a button that has the focus
QColor faint(const QPalette& palette);      // text of hints and empty lists
QColor tinted(const QPalette& palette);     // ground of what is selected where the focus is not

// Palette of an entry field: its own colours (the focus yellow with black text, whatever the palette) or the system's;
// a read-only one lies on the window's background.
QPalette fieldPalette(const QPalette& base, const Control& control, bool readOnly);

// Greyed, but with its text as legible as any: of what stands to be read and cannot be used.
void makeLegible(QPalette& palette);

// The paid and unpaid marks of a grid, centred in the cell.
void drawMark(QPainter& painter, const QRect& cell, bool paid, const QPalette& palette);

// A soft shadow that falls from this frame to the right and below; drawn before what stands in the frame;
// on a dark ground a light one.
void drawShadow(QPainter& painter, const QRect& frame, const QPalette& palette);

}  // namespace bravona::theme
