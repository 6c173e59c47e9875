#include "masterdata/modRicercaArticolo.h"

#include <array>

#include "platform/text/Text.h"

namespace bravona {

namespace {

constexpr std::array colonne{ricerca::Colonna{"Cod.Articolo", "CodiceMagazzino", 1600},
                             ricerca::Colonna{"Cod.Fornitore", "CodiceFornitore", 1600},
                             ricerca::Colonna{"Cod.Barre", "CodiceBarreFornitore", 1700},
                             ricerca::Colonna{"Descrizione", "DescrizionePrincipale", 3800},
                             ricerca::Colonna{"Descrizione Secondaria", "DescrizioneSecondaria1", 2400},
                             ricerca::Colonna{"Note", "DescrizioneSecondaria2", 2000}};

std::string filtro(CampoArticolo campo, const std::string& testo)
{
    switch (campo) {
    case CampoArticolo::codice:
        return "WHERE CodiceMagazzino LIKE " + quotedText("%" + testo + "%");
    case CampoArticolo::codiceBarre:
        return "WHERE CodiceBarreFornitore LIKE " + quotedText(testo);
    case CampoArticolo::codiceFornitore:
        return "WHERE CodiceFornitore LIKE " + quotedText(testo);
    case CampoArticolo::descrizione:
        return "WHERE DescrizionePrincipale LIKE " + quotedText("%" + testo + "%");
    }
    throw Errore(errori::argomentoNonValido, "Campo di ricerca non valido");
}

}  // namespace

std::int32_t RicercaArticolo(Sessione& sessione, CampoArticolo campo, const std::string& testo)
{
    // These two match whole: without a text they match none, also not the articles that have no such code.
    if (testo.empty() && (campo == CampoArticolo::codiceBarre || campo == CampoArticolo::codiceFornitore)) {
        return ricerca::nessunRecord;
    }
    return ricerca::esegui(sessione, {.istruzione = "SELECT * FROM Articoli " + filtro(campo, testo),
                                      .chiave = "IDArticolo",
                                      .colonne = colonne,
                                      .schermata = "frmSelezioneArticolo",
                                      .risposta = sessione.SelezioneArticolo});
}

}  // namespace bravona
