#include "masterdata/modValidazioneCampi_Caratteri.h"

#include <algorithm>
#include <string_view>

#include "platform/text/Text.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Lists.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr char32_t spazio = 32;
constexpr char32_t indietro = 8;
constexpr char32_t invio = 13;
constexpr std::u32string_view cifre = U"1234567890";

char32_t ammetti(char32_t tasto, std::u32string_view insieme)
{
    return tasto <= spazio || insieme.find(tasto) != std::u32string_view::npos ? tasto : 0;
}

void azzera(Control& controllo)
{
    switch (controllo.kind()) {
    case ControlKind::textBox:
        static_cast<TextBox&>(controllo).setText({});
        break;
    case ControlKind::listBox:
        static_cast<ListBox&>(controllo).setListIndex(-1);
        break;
    case ControlKind::comboBox:
        static_cast<ComboBox&>(controllo).setListIndex(-1);
        break;
    case ControlKind::checkBox:
        static_cast<CheckBox&>(controllo).setChecked(false);
        break;
    case ControlKind::pictureBox:
        static_cast<PictureBox&>(controllo).load({});
        break;
    default:
        break;
    }
}

}  // namespace

// The letters have no J in any set.
char32_t ValidaCodiceArticolo(char32_t tasto)
{
    return ammetti(tasto, U"-()*/1234567890ABCDEFGHILMNOPQRSTUVZWYXK");
}

char32_t ValidaCifre(char32_t tasto)
{
    return ammetti(tasto, cifre);
}

char32_t ValidaData(char32_t tasto)
{
    return ammetti(tasto, U"1234567890/-");
}

char32_t ValidaImporto(char32_t tasto)
{
    return ammetti(tasto, U"-1234567890.,");
}

char32_t ValidaSconto(char32_t tasto)
{
    return ammetti(tasto, cifre);
}

char32_t ValidaLettere(char32_t tasto)
{
    return ammetti(tasto, U"ABCDEFGHILMNOPQRSTUVZWYXK");
}

char32_t inMaiuscolo(char32_t tasto)
{
    const std::u32string grande = toCodePoints(upper(fromCodePoints(std::u32string_view(&tasto, 1))));
    // A letter whose capital is two letters stays as it is.
    return grande.size() == 1 ? grande.front() : tasto;
}

char32_t VerificaTasto(char32_t tasto, int modo)
{
    const bool sempre = tasto == indietro || tasto == invio || cifre.find(tasto) != std::u32string_view::npos;
    const bool diPiu = (modo == 1 && tasto == U'/') || (modo == 4 && tasto == U'.');
    return sempre || diPiu ? tasto : 0;
}

void AzzeraCampi(Form& finestra, std::initializer_list<const Control*> tranne)
{
    try {
        for (const Form::Entry& voce : finestra.controls()) {
            // What stands inside a compound control is that control's own affair.
            const Control* intorno = voce.control->container();
            const bool interno = intorno != nullptr && intorno->kind() == ControlKind::composite;
            if (!interno && std::ranges::find(tranne, voce.control) == tranne.end()) {
                azzera(*voce.control);
            }
        }
    } catch (const Errore& errore) {
        MostraErroreStandard(finestra.desktop(), errore, "Modulo: modMain", "Routine: AzzeraCampi");
    }
}

}  // namespace bravona
