#include "masterdata/DestinazioniCliente.h"

#include <algorithm>

#include "masterdata/modDestinazioni.h"
#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/text/Text.h"
#include "platform/windowing/Form.h"

namespace bravona {

namespace {
constexpr std::size_t nome = 0;
constexpr std::size_t indirizzo = 1;
constexpr std::size_t citta = 2;
constexpr std::size_t provincia = 3;
constexpr std::size_t cap = 4;
}  // namespace

DestinazioniCliente::DestinazioniCliente(RegoleDestinazioni regole) : regole_(std::move(regole))
{
    ImpostaColonneDestinazioni(lvwDestinazioni);
    lvwDestinazioni.setAccessibleName("Destinazioni della merce");
    lvwDestinazioni.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::del) {
            evento.drop();
            Elimina();
        }
    };
    txtDestinazioni[nome].grows = true;
    txtDestinazioni[indirizzo].grows = true;
    txtDestinazioni[provincia].onKeyPress = filtraTasti(inMaiuscolo);
    txtDestinazioni[cap].onKeyPress = filtraTasti(ValidaCifre);
    cmdDestinazioni[0].onClick = [this] { Aggiunge(); };
    cmdDestinazioni[1].onClick = [this] { Elimina(); };
}

void DestinazioniCliente::registra(const std::function<void(const std::string&, Control&, int)>& aggiungi)
{
    aggiungi("lvwDestinazioni", lvwDestinazioni, -1);
    for (std::size_t i = 0; i < txtDestinazioni.size(); ++i) {
        aggiungi("txtDestinazioni", txtDestinazioni[i], static_cast<int>(i));
    }
    for (std::size_t i = 0; i < cmdDestinazioni.size(); ++i) {
        aggiungi("cmdDestinazioni", cmdDestinazioni[i], static_cast<int>(i));
    }
}

Layout DestinazioniCliente::layout()
{
    using namespace layout;
    return column(
        {form({line("De&stinazione", of(txtDestinazioni[nome])), line("Indiri&zzo", of(txtDestinazioni[indirizzo])),
               line("Ci&tta", row({of(txtDestinazioni[citta]), form({line("Pr&ov.", of(txtDestinazioni[provincia]))}),
                                   form({line("CA&P", of(txtDestinazioni[cap]))}), stretch()}))}),
         rowEnd({of(cmdDestinazioni[0]), of(cmdDestinazioni[1])}), grow(of(lvwDestinazioni))});
}

TextBox* DestinazioniCliente::battuta()
{
    const auto piena =
        std::ranges::find_if(txtDestinazioni, [](const TextBox& campo) { return !trim(campo.text()).empty(); });
    return piena == txtDestinazioni.end() ? nullptr : &*piena;
}

void DestinazioniCliente::Aggiunge()
{
    if (!regole_.puoAggiungere()) {
        return;
    }
    for (const std::size_t richiesto : {nome, indirizzo, citta}) {
        TextBox& campo = txtDestinazioni[richiesto];
        if (trim(campo.text()).empty()) {
            campo.form()->desktop().inform("Mancano alcuni dati", "Anagrafica Clienti");
            campo.setFocus();
            return;
        }
    }
    ListRow riga;
    riga.text = txtDestinazioni[nome].text();
    for (const std::size_t campo : {citta, indirizzo, provincia, cap}) {
        riga.sub.push_back({txtDestinazioni[campo].text(), {}});
    }
    riga.key = regole_.aggiunta(riga);
    lvwDestinazioni.ensureVisible(lvwDestinazioni.add(std::move(riga)));
    for (TextBox& campo : txtDestinazioni) {
        campo.setText({});
    }
    txtDestinazioni[nome].setFocus();
}

void DestinazioniCliente::Elimina()
{
    const auto scelta = lvwDestinazioni.selected();
    if (scelta && regole_.eliminare(lvwDestinazioni.row(*scelta).key)) {
        lvwDestinazioni.remove(*scelta);
    }
}

}  // namespace bravona
