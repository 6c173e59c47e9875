#include <gtest/gtest.h>

#include "platform/qt/Theme.h"
#include "platform/windowing/Fields.h"

namespace bravona {
namespace {

QPalette tavolozza(bool scura)
{
    const QColor fondo = scura ? QColor(45, 45, 45) : QColor(239, 239, 239);
    const QColor campo = scura ? QColor(30, 30, 30) : QColor(Qt::white);
    const QColor testo = scura ? QColor(Qt::white) : QColor(Qt::black);
    QPalette palette(testo, fondo, fondo.lighter(), fondo.darker(), fondo, testo, testo, campo, fondo);
    const QColor spento = scura ? QColor(90, 90, 90) : QColor(190, 190, 190);
    for (const auto ruolo : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, ruolo, spento);
    }
    return palette;
}

TEST(Leggibilita, WhatIsOffOrReadOnlyKeepsItsContrast)
{
    for (const bool scura : {false, true}) {
        const QPalette palette = theme::legible(tavolozza(scura));
        const auto contrasto = [](const QPalette& una, QPalette::ColorGroup gruppo, QPalette::ColorRole testo,
                                  QPalette::ColorRole fondo) {
            return theme::contrast(una.color(gruppo, testo), una.color(gruppo, fondo));
        };
        EXPECT_GE(contrasto(palette, QPalette::Disabled, QPalette::WindowText, QPalette::Window), theme::leastContrast);
        EXPECT_GE(contrasto(palette, QPalette::Disabled, QPalette::Text, QPalette::Base), theme::leastContrast);
        EXPECT_GE(contrasto(palette, QPalette::Disabled, QPalette::Text, QPalette::Window), theme::leastContrast);
        EXPECT_GE(contrasto(palette, QPalette::Disabled, QPalette::ButtonText, QPalette::Button), theme::leastContrast);
        const TextBox casella;
        const QPalette bloccata = theme::fieldPalette(palette, casella, true);
        for (const auto gruppo : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            EXPECT_GE(theme::contrast(bloccata.color(gruppo, QPalette::Text), palette.color(gruppo, QPalette::Window)),
                      theme::leastContrast);
        }
        EXPECT_GE(theme::contrast(theme::focusRing(palette), palette.color(QPalette::Button)), theme::leastContrast);
    }
}

}  // namespace
}  // namespace bravona
