#include "masterdata/modRicerca.h"

#include "masterdata/ListaDiScelta.h"
#include "session/modMain.h"

namespace bravona::ricerca {

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
        for (const Colonna& colonna : richiesta.colonne) {
            intestazione.push_back({.caption = colonna.titolo, .key = {}, .width = colonna.larghezza});
        }
        std::vector<ListRow> righe;
        righe.reserve(record.recordCount());
        for (; !record.eof(); record.moveNext()) {
            ListRow riga;
            riga.text = record[richiesta.colonne.front().campo].text();
            riga.key = record[richiesta.chiave].text() + "x";
            for (const Colonna& colonna : richiesta.colonne.subspan(1)) {
                riga.sub.push_back({record[colonna.campo].text(), {}});
            }
            righe.push_back(std::move(riga));
        }
        record.close();
        lista.Riempi(std::move(intestazione), std::move(righe));
    }
    lista.showModal();
    return richiesta.risposta;
}

}  // namespace bravona::ricerca
