#include "masterdata/clsComuni.h"

namespace bravona {

namespace {

constexpr const char* titoloTabella = "Tabella Comuni";
std::string riga(std::int32_t id)
{
    return "SELECT * FROM Comuni WHERE IDCodiceComune = " + std::to_string(id);
}

}  // namespace

void clsComuni::scrivi(Recordset& record) const
{
    record["Comune"] = Comune;
    record["Provincia"] = Provincia;
    record["Cap"] = Cap;
}

Esito clsComuni::RegistraComune()
{
    return inserisci("RegistraComune", "Comuni", "IDCodiceComune", IDCodiceComune,
                     {titoloTabella,
                      "Impossibile registrare il comune in quanto è gia presente un comune con la "
                      "stessa denominazione",
                      "Inserire almeno la denominazione del comune!"});
}

Esito clsComuni::RichiamaComune(std::int32_t id)
{
    return protetto("RichiamaComune", [&] {
        Recordset record = DataBase->open(riga(id));
        IDCodiceComune = record["IDCodiceComune"].asLong();
        Comune = record["Comune"].text();
        Provincia = record["Provincia"].text();
        Cap = record["Cap"].text();
    });
}

Esito clsComuni::ModificaComune(std::int32_t id)
{
    return modifica("ModificaComune", riga(id));
}

Esito clsComuni::EliminaComune(std::int32_t id)
{
    return elimina("EliminaComune", "DELETE * FROM Comuni WHERE IDCodiceComune = " + std::to_string(id));
}

}  // namespace bravona
