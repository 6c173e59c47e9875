#include "masterdata/modRicercaClientiFornitori.h"

#include <array>

#include "platform/text/Text.h"
#include "session/modMain.h"

namespace bravona {

namespace {

constexpr std::array<ricerca::Colonna, 5> colonne(const char* nome)
{
    return {{{"Nome/Ragione sociale", nome, 3800},
             {"Telefono", "Telefono", 1700},
             {"Partita I.V.A.", "PartitaIva", 1700},
             {"Codice Fiscale", "CodiceFiscale", 2200},
             {"Indirizzo", "Indirizzo", 3400}}};
}
constexpr auto colonneClienti = colonne("Cliente");
constexpr auto colonneFornitori = colonne("Fornitore");

std::string filtroAltroCampo(CampoAnagrafica campo, const std::string& testo)
{
    constexpr std::array campi{"Telefono", "PartitaIva", "CodiceFiscale", "Indirizzo"};
    const auto quale = static_cast<std::size_t>(campo) - 1;
    if (quale >= campi.size()) {
        throw Errore(errori::argomentoNonValido, "Campo di ricerca non valido");
    }
    return campi.at(quale) + (" LIKE " + quotedText("%" + testo + "%"));
}

std::string filtroNome(const std::string& testo, const std::string& tipo)
{
    return "Cliente LIKE " + quotedText(testo + "%") + " And Tipo LIKE '%" + tipo + "%'";
}

// The other kind may have what this one has not.
void segnalaAltroTipo(Sessione& sessione, const std::string& testo)
{
    const bool cercatiClienti = sessione.TipoAnagraficaCorrente == "C";
    const std::size_t altri =
        sessione.cn.open("SELECT IDcliente FROM Clienti WHERE " + filtroNome(testo, cercatiClienti ? "F" : "C"))
            .recordCount();
    if (altri > 0) {
        Annuncia(sessione, std::string(cercatiClienti ? "Nessun cliente" : "Nessun fornitore") +
                               " con questo nome; tra i " + (cercatiClienti ? "fornitori" : "clienti") +
                               (altri == 1 ? " ce n'è 1" : " ce ne sono " + std::to_string(altri)));
    }
}

}  // namespace

std::int32_t RicercaClientiFornitori(Sessione& sessione, TabellaAnagrafica tabella, const std::string& testo,
                                     CampoAnagrafica campo)
{
    const bool fornitori = tabella == TabellaAnagrafica::fornitori;
    std::string istruzione =
        fornitori ? "SELECT IDfornitore, Fornitore, Telefono, PartitaIva,CodiceFiscale,Indirizzo FROM Fornitori WHERE "
                  : "SELECT IDcliente, Cliente, Telefono, PartitaIva,CodiceFiscale,Indirizzo, Tipo FROM Clienti WHERE ";
    if (campo != CampoAnagrafica::nome) {
        istruzione += filtroAltroCampo(campo, testo);
    } else if (fornitori) {
        istruzione += "Fornitore LIKE " + quotedText("%" + testo + "%");
    } else {
        istruzione += filtroNome(testo, sessione.TipoAnagraficaCorrente);
    }
    const std::int32_t trovato = ricerca::esegui(sessione, {.istruzione = istruzione,
                                                            .chiave = fornitori ? "IDfornitore" : "IDcliente",
                                                            .colonne = fornitori ? colonneFornitori : colonneClienti,
                                                            .schermata = "frmSelezioneRecord",
                                                            .risposta = sessione.SelezioneRecord});
    if (trovato == ricerca::nessunRecord && campo == CampoAnagrafica::nome && !fornitori) {
        segnalaAltroTipo(sessione, testo);
    }
    return trovato;
}

}  // namespace bravona
