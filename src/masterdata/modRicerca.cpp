#include "masterdata/modRicerca.h"

#include <algorithm>

#include "masterdata/ListaDiScelta.h"
#include "platform/text/Text.h"
#include "session/modMain.h"

namespace bravona::ricerca {

namespace {

std::size_t posto(const Recordset& record, const char* campo)
{
    const std::vector<ColumnInfo>& colonne = record.columns();
    const auto trovata =
        std::ranges::find_if(colonne, [campo](const ColumnInfo& colonna) { return equalFolded(colonna.name, campo); });
    return static_cast<std::size_t>(trovata - colonne.begin());
}

}  // namespace

std::int32_t esegui(Sessione& sessione, const Richiesta& richiesta)
{
    Recordset record = sessione.cn.open(richiesta.istruzione);
    if (record.recordCount() == 0) {
        return nessunRecord;
    }
    if (record.recordCount() == 1) {
        return record[richiesta.chiave].asLong();
    }

    auto& lista = sessione.schermate().as<ListaDiScelta>(richiesta.schermata);
    {
        const clsCursorWait attesa(sessione.desktop());
        std::vector<ListColumn> intestazione;
        std::vector<std::size_t> campi;  // found once: the rows may be very many
        for (const Colonna& colonna : richiesta.colonne) {
            intestazione.push_back({.caption = colonna.titolo, .key = {}, .width = colonna.larghezza});
            campi.push_back(posto(record, colonna.campo));
        }
        const std::size_t chiave = posto(record, richiesta.chiave);
        std::vector<ListRow> righe;
        righe.reserve(record.recordCount());
        for (std::size_t quale = 0; quale < record.recordCount(); ++quale) {
            ListRow& riga = righe.emplace_back();
            riga.text = record.textAt(quale, campi.front());
            riga.key = record.textAt(quale, chiave) + "x";
            riga.sub.reserve(campi.size() - 1);
            for (std::size_t i = 1; i < campi.size(); ++i) {
                riga.sub.push_back({record.textAt(quale, campi[i]), {}});
            }
        }
        record.close();
        lista.Riempi(std::move(intestazione), std::move(righe));
    }
    lista.showModal();
    return richiesta.risposta;
}

}  // namespace bravona::ricerca
