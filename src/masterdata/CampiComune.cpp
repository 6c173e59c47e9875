#include "masterdata/CampiComune.h"

#include <algorithm>

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/windowing/Form.h"

namespace bravona {

namespace {
constexpr std::size_t nome = 0;
constexpr std::size_t provincia = 1;
constexpr std::size_t cap = 2;
}  // namespace

CampiComune::CampiComune()
{
    txtComune[nome].grows = true;
    txtComune[provincia].onKeyPress = filtraTasti(inMaiuscolo);
    txtComune[cap].onKeyPress = filtraTasti(ValidaCifre);
}

bool CampiComune::controlla(const std::string& titolo)
{
    const auto vuoto = std::ranges::find_if(txtComune, [](const TextBox& campo) { return campo.text().empty(); });
    if (vuoto == txtComune.end()) {
        return true;
    }
    vuoto->form()->desktop().inform("Attenzione. Mancano alcuni dati essenziali!", titolo);
    vuoto->setFocus();
    return false;
}

void CampiComune::svuota()
{
    for (TextBox& campo : txtComune) {
        campo.setText({});
    }
}

void CampiComune::mostra(const clsComuni& comune)
{
    txtComune[nome].setText(comune.Comune);
    txtComune[provincia].setText(comune.Provincia);
    txtComune[cap].setText(comune.Cap);
}

void CampiComune::leggi(clsComuni& comune) const
{
    comune.Comune = txtComune[nome].text();
    comune.Provincia = txtComune[provincia].text();
    comune.Cap = txtComune[cap].text();
}

bool CampiComune::vuoti() const
{
    return std::ranges::all_of(txtComune, [](const TextBox& campo) { return campo.text().empty(); });
}

Layout CampiComune::layout()
{
    using namespace layout;
    return form({line("&Descrizione Comune", of(txtComune[nome])),
                 line("&Pr.", row({of(txtComune[provincia]), form({line("&CAP", of(txtComune[cap]))}), stretch()}))});
}

}  // namespace bravona
