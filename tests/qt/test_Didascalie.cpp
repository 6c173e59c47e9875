#include <QAbstractButton>
#include <QLabel>
#include <gtest/gtest.h>

#include "platform/qt/Binder.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/text/Text.h"
#include "platform/windowing/Fields.h"
#include "support/ProgrammaDiProva.h"

namespace bravona {
namespace {

std::string voluta(const Control& controllo)
{
    switch (controllo.kind()) {
    case ControlKind::button:
        return static_cast<const Button&>(controllo).caption();
    case ControlKind::checkBox:
        return static_cast<const CheckBox&>(controllo).caption();
    case ControlKind::optionButton:
        return static_cast<const OptionButton&>(controllo).caption();
    case ControlKind::label:
        return static_cast<const Label&>(controllo).caption();
    default:
        return {};
    }
}

std::string letta(const QString& testo)
{
    return withoutMnemonic(fromQt(testo));
}

TEST(Didascalie, OgniSchermataDisegnaLeSueAccantoAiSuoiCampi)
{
    ProgrammaDiProva programma;  // the screens are its own, the widgets stand on the toolkit's desktop
    QtDesktop desktop;
    int disegnate = 0;
    int accanto = 0;
    for (const std::string& nome : programma.utente.screens().names()) {
        SCOPED_TRACE(nome);
        FormWindow finestra(desktop, programma.utente.screens().get(nome));
        for (const QWidget* widget : finestra.content()->findChildren<QWidget*>()) {
            const Control* controllo = finestra.controlOf(widget);
            const auto* etichetta = qobject_cast<const QLabel*>(widget);
            if (controllo != nullptr && finestra.binder(*controllo)->widget() == widget) {
                if (const auto* bottone = qobject_cast<const QAbstractButton*>(widget)) {
                    EXPECT_EQ(letta(bottone->text()), withoutMnemonic(voluta(*controllo)));
                    ++disegnate;
                } else if (etichetta != nullptr && controllo->kind() == ControlKind::label) {
                    EXPECT_EQ(letta(etichetta->text()), withoutMnemonic(voluta(*controllo)));
                    ++disegnate;
                }
            } else if (etichetta != nullptr && etichetta->buddy() != nullptr) {
                const Control* campo = finestra.controlOf(etichetta->buddy());
                ASSERT_NE(campo, nullptr) << fromQt(etichetta->text());
                EXPECT_EQ(letta(etichetta->text()), withoutMnemonic(campo->labelCaption())) << campo->fullName();
                ++accanto;
            }
        }
    }
    EXPECT_GT(disegnate, 150);
    EXPECT_GT(accanto, 100);
}

}  // namespace
}  // namespace bravona
