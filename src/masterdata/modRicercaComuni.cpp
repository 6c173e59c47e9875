#include "masterdata/modRicercaComuni.h"

#include <array>

#include "platform/text/Text.h"

namespace bravona {

namespace {

constexpr std::array colonne{ricerca::Colonna{"Comune", "Comune", 4200}, ricerca::Colonna{"Prov.", "Provincia", 900},
                             ricerca::Colonna{"Cap", "Cap", 1100}};

std::string filtro(CampoComune campo, const std::string& testo)
{
    switch (campo) {
    case CampoComune::comune:
        return "Comune LIKE " + quotedText(testo + "%");
    case CampoComune::provincia:
        return "Provincia LIKE " + quotedText(testo + "%") + " ORDER BY PROVINCIA";
    case CampoComune::cap:
        return "Cap LIKE " + quotedText(testo + "%");
    }
    throw Errore(errori::argomentoNonValido, "Campo di ricerca non valido");
}

}  // namespace

std::int32_t RicercaComuni(Sessione& sessione, CampoComune campo, const std::string& testo)
{
    return ricerca::esegui(sessione, {.istruzione = "SELECT IDCodiceComune, Comune, Provincia, Cap from Comuni WHERE " +
                                                    filtro(campo, testo),
                                      .chiave = "IDCodiceComune",
                                      .colonne = colonne,
                                      .schermata = "frmSelezioneRecord",
                                      .risposta = sessione.SelezioneRecord});
}

}  // namespace bravona
