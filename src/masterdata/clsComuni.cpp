#include "masterdata/clsComuni.h"

#include "session/modMain.h"

namespace bravona {

namespace {

constexpr const char* titoloTabella = "Tabella Comuni";
constexpr const char* modulo = "Nel modulo: clsComuni";

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

bool clsComuni::RegistraComune()
{
    try {
        Recordset record = DataBase->openTable("Comuni");
        record.addNew();
        scrivi(record);
        record.update();
        IDCodiceComune = record["IDCodiceComune"].asLong();
        return true;
    } catch (const Errore& errore) {
        if (errore.numero() == errori::chiaveDuplicata) {
            sessione_.desktop().inform("Impossibile registrare il comune in quanto è gia presente un comune con la "
                                       "stessa denominazione",
                                       titoloTabella);
        } else if (errore.numero() == errori::testoObbligatorioVuoto) {
            sessione_.desktop().inform("Inserire almeno la denominazione del comune!", titoloTabella);
        } else {
            MostraErroreStandard(sessione_.desktop(), errore, modulo, "Nella routine: RegistraComune");
        }
        return false;
    }
}

bool clsComuni::RichiamaComune(std::int32_t id)
{
    try {
        Recordset record = DataBase->open(riga(id));
        IDCodiceComune = record["IDCodiceComune"].asLong();
        Comune = record["Comune"].text();
        Provincia = record["Provincia"].text();
        Cap = record["Cap"].text();
        return true;
    } catch (const Errore& errore) {
        MostraErroreStandard(sessione_.desktop(), errore, modulo, "Nella routine: RichiamaComune");
        return false;
    }
}

bool clsComuni::ModificaComune(std::int32_t id)
{
    try {
        Recordset record = DataBase->open(riga(id), OpenMode::updatable);
        scrivi(record);
        record.update();
        return true;
    } catch (const Errore& errore) {
        MostraErroreStandard(sessione_.desktop(), errore, modulo, "Nella routine: ModificaComune");
        return false;
    }
}

bool clsComuni::EliminaComune(std::int32_t id)
{
    try {
        DataBase->execute("DELETE * FROM Comuni WHERE IDCodiceComune = " + std::to_string(id));
        return true;
    } catch (const Errore& errore) {
        MostraErroreStandard(sessione_.desktop(), errore, modulo, "Nella routine: EliminaComune");
        return false;
    }
}

}  // namespace bravona
