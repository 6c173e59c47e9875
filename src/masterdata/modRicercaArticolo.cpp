#include "masterdata/modRicercaArticolo.h"

#include <array>

namespace bravona {

namespace {

constexpr std::array colonne{ricerca::Colonna{"Cod.Articolo", "CodiceMagazzino", 1600},
                             ricerca::Colonna{"Cod.Fornitore", "CodiceFornitore", 1600},
                             ricerca::Colonna{"Cod.Barre", "CodiceBarreFornitore", 1700},
                             ricerca::Colonna{"Descrizione", "DescrizionePrincipale", 3800},
                             ricerca::Colonna{"Descrizione Secondaria", "DescrizioneSecondaria1", 2400},
                             ricerca::Colonna{"Note", "DescrizioneSecondaria2", 2000}};

constexpr int perCodiceBarre = 1;
constexpr int perCodiceFornitore = 2;

std::string filtro(int indiceCampo, const std::string& testo)
{
    switch (indiceCampo) {
    case 0:
        return "WHERE CodiceMagazzino LIKE '%" + testo + "%'";
    case perCodiceBarre:
        return "WHERE CodiceBarreFornitore LIKE '" + testo + "'";
    case perCodiceFornitore:
        return "WHERE CodiceFornitore LIKE '" + testo + "'";
    case 3:
        return "WHERE DescrizionePrincipale LIKE '%" + testo + "%'";
    default:
        throw Errore(errori::argomentoNonValido, "Campo di ricerca non valido");
    }
}

}  // namespace

std::int32_t RicercaArticolo(Sessione& sessione, int indiceCampo, const std::string& testo)
{
    // These two match whole: without a text they match none, also not the articles that have no such code.
    if (testo.empty() && (indiceCampo == perCodiceBarre || indiceCampo == perCodiceFornitore)) {
        return ricerca::nessunRecord;
    }
    return ricerca::esegui(sessione, {.istruzione = "SELECT * FROM Articoli " + filtro(indiceCampo, testo),
                                      .chiave = "IDArticolo",
                                      .colonne = colonne,
                                      .schermata = "frmSelezioneArticolo",
                                      .risposta = sessione.SelezioneArticolo});
}

}  // namespace bravona
