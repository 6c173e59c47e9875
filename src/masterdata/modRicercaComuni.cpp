#include "masterdata/modRicercaComuni.h"

#include <array>

#include "platform/text/Text.h"

namespace bravona {

namespace {

constexpr std::array colonne{ricerca::Colonna{"Comune", "Comune", 4200}, ricerca::Colonna{"Prov.", "Provincia", 900},
                             ricerca::Colonna{"Cap", "Cap", 1100}};

std::string filtro(int indiceCampo, const std::string& testo)
{
    switch (indiceCampo) {
    case 0:
        return "Comune LIKE '" + testo + "%'";
    case 1:
        return "Provincia LIKE '" + testo + "%' ORDER BY PROVINCIA";
    case 2:
        return "Cap LIKE '" + testo + "%'";
    default:
        throw Errore(errori::argomentoNonValido, "Campo di ricerca non valido");
    }
}

}  // namespace

std::int32_t RicercaComuni(Sessione& sessione, int indiceCampo, const std::string& testo)
{
    return ricerca::esegui(sessione, {.istruzione = "SELECT IDCodiceComune, Comune, Provincia, Cap from Comuni WHERE " +
                                                    filtro(indiceCampo, doubleQuotes(testo)),
                                      .chiave = "IDCodiceComune",
                                      .colonne = colonne,
                                      .schermata = "frmSelezioneRecord",
                                      .risposta = sessione.SelezioneRecord});
}

}  // namespace bravona
