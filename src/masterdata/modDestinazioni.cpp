#include "masterdata/modDestinazioni.h"

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {

bool DestinazioneMerceUtilizzata(Sessione& sessione, std::int32_t id)
{
    return sessione.cn.open("SELECT IDDestinazione FROM Fatture WHERE IDDestinazione= " + std::to_string(id))
               .recordCount() >= 1;
}

std::string RilevaDestinazioneMerce(Sessione& sessione, std::int32_t id)
{
    if (id == 0) {
        return "IDEM";
    }
    Recordset record = sessione.cn.open("SELECT Destinazione FROM DestinazioneMerceClienti WHERE IDDestinazione= " +
                                        std::to_string(id));
    return record.eof() ? std::string() : record["Destinazione"].text();
}

void ImpostaColonneDestinazioni(ListView& lista)
{
    lista.setColumns({{.caption = "Destinazione", .key = "Dest", .width = 3000},
                      {.caption = "Citta", .key = "Cit", .width = 2200},
                      {.caption = "Indirizzo", .key = "Ind", .width = 3200},
                      {.caption = "PR", .key = {}, .width = 600},
                      {.caption = "CAP", .key = {}, .width = 900}});
}

void CaricaElencoDestinazioni(Sessione& sessione, ListView& lista, std::int32_t idCliente)
{
    Recordset record =
        sessione.cn.open("SELECT * FROM DestinazioneMerceClienti WHERE IDcliente = " + std::to_string(idCliente));
    lista.clear();
    for (; !record.eof(); record.moveNext()) {
        ListRow riga;
        riga.text = record["Destinazione"].text();
        riga.key = "x" + record["IDDestinazione"].text();
        for (const char* campo : {"Citta", "Indirizzo", "Provincia", "Cap"}) {
            riga.sub.push_back({record[campo].text(), {}});
        }
        lista.add(std::move(riga));
    }
}

std::int32_t DestinazioneDaChiave(const std::string& chiave)
{
    return toInt32(mid(chiave, 1));
}

}  // namespace bravona
