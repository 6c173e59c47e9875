#include "documents/RigheDettaglio.h"

namespace bravona::righe {

namespace {
constexpr int larghezzaPredefinita = 1440;  // twips
}

std::vector<ListColumn> ImpostaColonneRighe()
{
    return {{"Cod.", "cCodice", larghezzaPredefinita, Align::left},
            {"Desc.", "cDescrizione", 3000, Align::left},
            {"Q.", "cQuatita", 500, Align::right},
            {"L.", "cListino", 500, Align::right},
            {"Prezzo", "cPrezzo", larghezzaPredefinita, Align::right},
            {"S1", "cSconto1", 500, Align::right},
            {"S2", "cSconto2", 500, Align::right},
            {"S3", "cSconto3", 500, Align::right},
            {"Totale", "cTotaleRiga", larghezzaPredefinita, Align::right},
            {"C.Iva", "cIva", 400, Align::left}};
}

ListRow rigaCommento(std::string chiave, std::string codiceRiga, std::string testoRiga)
{
    ListRow riga;
    riga.key = std::move(chiave);
    riga.text = std::move(codiceRiga);
    riga.tag = tagCommento;
    riga.sub.assign(colonne - 1, SubItem{"-", {}});
    riga.sub[descrizione - 1].text = std::move(testoRiga);
    riga.colour = colours::blue;
    return riga;
}

}  // namespace bravona::righe
