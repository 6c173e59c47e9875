#include "masterdata/RigaDiTabella.h"

#include <optional>

#include "session/modMain.h"

namespace bravona {

Esito RigaDiTabella::fallito(const Errore& errore, const char* routine) const
{
    return {.riuscito = false,
            .messaggio = ErroreStandard(errore, "Nel modulo: " + modulo_, std::string("Nella routine: ") + routine)};
}

Esito RigaDiTabella::protetto(const char* routine, const std::function<void()>& lavoro) const
{
    try {
        lavoro();
        return {};
    } catch (const Errore& errore) {
        return fallito(errore, routine);
    }
}

Esito RigaDiTabella::inserisci(const char* routine, const char* tabella, const char* chiave, std::int32_t& id,
                               const Rifiuti& rifiuti, const Seguito& seguito) const
{
    bool inserita = false;
    bool inSeguito = false;
    try {
        std::optional<Transaction> transazione;
        if (seguito) {
            transazione.emplace(*DataBase);
        }
        Recordset record = DataBase->openTable(tabella);
        record.addNew();
        scrivi(record);
        record.update();
        inserita = true;
        const std::int32_t nuova = record[chiave].asLong();
        if (seguito) {
            inSeguito = true;
            seguito(nuova);
            inSeguito = false;
            transazione->commit();
        }
        id = nuova;
        return {};
    } catch (const Errore& errore) {
        // The transaction is over: nobody else waits for as long as a box stands.
        if (inSeguito) {
            throw;
        }
        if (!inserita && errore.numero() == errori::chiaveDuplicata) {
            return {.riuscito = false, .messaggio = MessageBox{.title = rifiuti.titolo, .text = rifiuti.doppione}};
        }
        if (!inserita && errore.numero() == errori::testoObbligatorioVuoto && !rifiuti.senzaNome.empty()) {
            return {.riuscito = false, .messaggio = MessageBox{.title = rifiuti.titolo, .text = rifiuti.senzaNome}};
        }
        return fallito(errore, routine);
    }
}

Esito RigaDiTabella::modifica(const char* routine, const std::string& selezione) const
{
    return protetto(routine, [&] {
        Recordset record = DataBase->open(selezione, OpenMode::updatable);
        scrivi(record);
        record.update();
    });
}

Esito RigaDiTabella::elimina(const char* routine, const std::string& istruzione) const
{
    return protetto(routine, [&] { DataBase->execute(istruzione); });
}

}  // namespace bravona
