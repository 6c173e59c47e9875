#include "documents/RigheDettaglio.h"

#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr int larghezzaPredefinita = 1440;  // twips

std::string listinoDi(const RigaDocumento& riga)
{
    return riga.Listino.value_or(0) == 0 ? std::string() : std::to_string(*riga.Listino);
}

SubItem testo(std::string valore)
{
    return {std::move(valore), {}};
}

ColonnaGriglia codice()
{
    return {{"Cod.", "cCodice", larghezzaPredefinita, Align::left},
            [](const RigaDocumento& riga) {
                return SubItem{riga.CodiceArticolo, std::to_string(riga.IDArticolo)};
            },
            true};
}

ColonnaGriglia descrizione()
{
    return {{"Desc.", "cDescrizione", 3000, Align::left},
            [](const RigaDocumento& riga) {
                return SubItem{riga.Descrizione, riga.commento() ? std::string() : riga.UnitaMisura};
            },
            true};
}

ColonnaGriglia quantita()
{
    return {{"Q.", "cQuatita", 500, Align::right}, [](const RigaDocumento& riga) {
                return testo(riga.quantitaScritta.empty() ? numberText(riga.Quantita) : riga.quantitaScritta);
            }};
}

ColonnaGriglia prezzo()
{
    return {{"Prezzo", "cPrezzo", larghezzaPredefinita, Align::right, true}, [](const RigaDocumento& riga) {
                return testo(riga.prezzoScritto.empty() ? FormattaImporto(riga.PrezzoUnitario) : riga.prezzoScritto);
            }};
}

// `zero`: what stands for no discount.
ColonnaGriglia sconto(const char* titolo, const char* chiave, std::size_t indice, const char* zero)
{
    return {{titolo, chiave, 500, Align::right}, [indice, zero](const RigaDocumento& riga) {
                return testo(riga.Sconti[indice] == 0 ? zero : numberText(riga.Sconti[indice]));
            }};
}

ColonnaGriglia totale()
{
    return {{"Totale", "cTotaleRiga", larghezzaPredefinita, Align::right, true}, [](const RigaDocumento& riga) {
                return testo(riga.totaleScritto.empty() ? FormattaImporto(riga.TotaleRiga) : riga.totaleScritto);
            }};
}

ColonnaGriglia codiceIva()
{
    return {{"C.Iva", "cIva", 400, Align::left}, [](const RigaDocumento& riga) {
                return SubItem{riga.CodiceIva, std::to_string(riga.IDCodiceIva)};
            }};
}

}  // namespace

ColonneGriglia colonneVendita()
{
    return {codice(),
            descrizione(),
            quantita(),
            {{"L.", "cListino", 500, Align::right}, [](const RigaDocumento& riga) { return testo(listinoDi(riga)); }},
            prezzo(),
            sconto("S1", "cSconto1", 0, "0"),
            sconto("S2", "cSconto2", 1, "0"),
            sconto("S3", "cSconto3", 2, "0"),
            totale(),
            codiceIva()};
}

ColonneGriglia colonneCarico()
{
    return {
        codice(),
        descrizione(),
        quantita(),
        prezzo(),
        sconto("S1", "cSconto1", 0, "-"),
        sconto("S2", "cSconto2", 1, "-"),
        sconto("S3", "cSconto3", 2, "-"),
        totale(),
        {{"Agg.", "cAggiornato", 500, Align::left}, [](const RigaDocumento& riga) { return testo(riga.Aggiornato); }},
        codiceIva()};
}

std::string chiaveRiga(ChiaviRighe chiavi, const std::string& numero, const RigaDocumento& riga)
{
    if (chiavi == ChiaviRighe::carico)
        return "r" + numero;
    return numero + (riga.commento() ? "c" : "r");
}

std::vector<ListColumn> intestazioni(const ColonneGriglia& colonne)
{
    std::vector<ListColumn> titoli;
    titoli.reserve(colonne.size());
    for (const ColonnaGriglia& colonna : colonne)
        titoli.push_back(colonna.colonna);
    return titoli;
}

ListRow disegna(const ColonneGriglia& colonne, const RigaDocumento& riga, std::string chiave)
{
    ListRow disegnata;
    disegnata.key = std::move(chiave);
    const SubItem principale = colonne.front().contenuto(riga);
    disegnata.text = principale.text;
    disegnata.tag = principale.tag;
    for (std::size_t i = 1; i < colonne.size(); ++i) {
        const bool vuota = riga.commento() && !colonne[i].ancheNeiCommenti;
        disegnata.sub.push_back(vuota ? SubItem{"-", {}} : colonne[i].contenuto(riga));
    }
    if (riga.commento())
        disegnata.colour = colours::blue;
    return disegnata;
}

}  // namespace bravona
