#include "masterdata/modDestinazioni.h"

#include <array>

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

// The columns of a list of destinations behind the first.
constexpr std::array campiSecondari{"Citta", "Indirizzo", "Provincia", "Cap"};

std::int32_t scrivi(Recordset& tabella, const ListRow& riga, std::int32_t idCliente)
{
    tabella.addNew();
    tabella["IDCliente"] = int{idCliente};
    tabella["Destinazione"] = riga.text;
    for (std::size_t i = 0; i < campiSecondari.size(); ++i) {
        tabella[campiSecondari[i]] = riga.cell(i + 1);
    }
    tabella.update();
    return tabella["IDDestinazione"].asLong();
}

}  // namespace

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
        for (const char* campo : campiSecondari) {
            riga.sub.push_back({record[campo].text(), {}});
        }
        lista.add(std::move(riga));
    }
}

std::int32_t RegistraDestinazione(Sessione& sessione, const ListRow& riga, std::int32_t idCliente)
{
    Recordset tabella = sessione.cn.openTable("DestinazioneMerceClienti");
    return scrivi(tabella, riga, idCliente);
}

void RegistraElencoDestinazioni(Sessione& sessione, const ListView& lista, std::int32_t idCliente)
{
    Recordset tabella = sessione.cn.openTable("DestinazioneMerceClienti");
    for (std::size_t riga = 0; riga < lista.rowCount(); ++riga) {
        scrivi(tabella, lista.row(riga), idCliente);
    }
}

std::int32_t DestinazioneDaChiave(const std::string& chiave)
{
    return toInt32(mid(chiave, 1));
}

}  // namespace bravona
