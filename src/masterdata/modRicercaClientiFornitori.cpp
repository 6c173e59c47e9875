#include "masterdata/modRicercaClientiFornitori.h"

#include <array>

#include "platform/text/Text.h"

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

std::string filtroAltroCampo(int indiceCampo, const std::string& testo)
{
    constexpr std::array campi{"Telefono", "PartitaIva", "CodiceFiscale", "Indirizzo"};
    if (indiceCampo < 1 || indiceCampo > static_cast<int>(campi.size())) {
        throw Errore(errori::argomentoNonValido, "Campo di ricerca non valido");
    }
    return std::string(campi[static_cast<std::size_t>(indiceCampo - 1)]) + " LIKE '%" + testo + "%'";
}

}  // namespace

std::int32_t RicercaClientiFornitori(Sessione& sessione, int tipoAnagrafica, const std::string& testo, int indiceCampo)
{
    const std::string cercato = doubleQuotes(testo);
    const bool fornitori = tipoAnagrafica == 1;
    std::string istruzione =
        fornitori ? "SELECT IDfornitore, Fornitore, Telefono, PartitaIva,CodiceFiscale,Indirizzo FROM Fornitori WHERE "
                  : "SELECT IDcliente, Cliente, Telefono, PartitaIva,CodiceFiscale,Indirizzo, Tipo FROM Clienti WHERE ";
    if (indiceCampo != 0) {
        istruzione += filtroAltroCampo(indiceCampo, cercato);
    } else if (fornitori) {
        istruzione += "Fornitore LIKE '%" + cercato + "%'";
    } else {
        istruzione += "Cliente LIKE '" + cercato + "%' And Tipo LIKE '%" + sessione.TipoAnagraficaCorrente + "%'";
    }
    return ricerca::esegui(sessione, {.istruzione = istruzione,
                                      .chiave = fornitori ? "IDfornitore" : "IDcliente",
                                      .colonne = fornitori ? colonneFornitori : colonneClienti,
                                      .schermata = "frmSelezioneRecord",
                                      .risposta = sessione.SelezioneRecord});
}

}  // namespace bravona
