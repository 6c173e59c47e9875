#include "documents/RigheArchivio.h"

#include "documents/TipoDocumento.h"
#include "platform/values/Numeri.h"
#include "printing/RecordsetStampa.h"

namespace bravona {

namespace {

// Number and date; the other columns follow.
ListRow riga(Recordset& record, const char* prefisso, const char* chiave)
{
    ListRow riga;
    riga.key = prefisso + record[chiave].text();
    riga.text = record["NumeroDocumento"].text();
    riga.sub.reserve(4);
    riga.sub.push_back({format(record["DataDocumento"].value(), "dd/mm/yyyy"), {}});
    return riga;
}

}  // namespace

std::vector<ListColumn> colonneArchivio(std::int16_t tipoDocumento, bool perCliente)
{
    const bool bolle = tipoDocumento == tipo::ddt;
    std::vector<ListColumn> colonne{{.caption = "Numero", .key = "fNumero", .width = bolle && !perCliente ? 800 : 1000},
                                    {.caption = "Data", .key = "fData", .width = 1200}};
    if (!perCliente)
        colonne.push_back({.caption = "Cliente", .key = "fCliente", .width = 2500});
    if (bolle) {
        // "Casuale" is how that list has always spelled it.
        colonne.push_back(
            {.caption = perCliente ? "Casuale" : "Causale", .key = "fCausale", .width = perCliente ? 1600 : 2000});
        colonne.push_back({.caption = "Rif. Fattura",
                           .key = "fEmessaFattura",
                           .width = perCliente ? 2200 : 1800,
                           .align = Align::right});
    } else {
        colonne.push_back({.caption = "Imponibile", .key = "fImponibile", .width = 1500, .align = Align::right});
        colonne.push_back({.caption = "IVA", .key = "fImposta", .width = 1500, .align = Align::right});
    }
    return colonne;
}

std::string istruzioneArchivio(std::int16_t tipoDocumento, const std::string& anno, const std::string& registro)
{
    const std::string tabella = tabelleDocumento(tipoDocumento).testata;
    const auto campi = [&](std::initializer_list<const char*> nomi) {
        std::string testo;
        for (const char* nome : nomi)
            testo += tabella + "." + nome + ", ";
        return testo;
    };
    const std::string colonne =
        tipoDocumento == tipo::ddt
            ? " " + campi({"EmessaFattura", "CausaleTrasporto", "NumeroFattura", "DataFattura", "IDBolla",
                           "NumeroDocumento", "AnnoDocumento", "DataDocumento", "TotaleDocumento"})
            : campi({"RiferimentoBolla", "IDfattura", "NumeroDocumento", "AnnoDocumento", "DataDocumento",
                     "TotaleIvaEsclusa", "ImportoTotaleIVA"});
    std::string diTipo;
    if (tipoDocumento == tipo::fattura) {
        diTipo = " AND TipoDocumento IN (" + std::to_string(tipo::fattura) + ", " +
                 std::to_string(tipo::colonnaFatturaDifferita) + ")";
    } else if (tipoDocumento == tipo::notaCredito || tipoDocumento == tipo::notaDebito) {
        diTipo = " AND TipoDocumento =" + std::to_string(tipoDocumento);
    }
    return "SELECT " + colonne + "Clienti.Cliente, Clienti.ClienteSecondaRiga FROM " + tabella +
           " INNER JOIN Clienti ON " + tabella + ".IDcliente = Clienti.IDcliente WHERE AnnoDocumento= " + anno +
           " AND NumeroRegistro=" + registro + diTipo + " ORDER BY NumeroDocumento";
}

ListRow rigaBolla(Recordset& bolla)
{
    ListRow nuova = riga(bolla, "fx", "IDBolla");
    nuova.sub.push_back({bolla["Cliente"].text(), {}});
    nuova.sub.push_back({bolla["CausaleTrasporto"].text(), {}});
    const std::int32_t fattura = bolla["NumeroFattura"].longOr(0);
    nuova.sub.push_back({fattura == 0 ? " " : std::to_string(fattura) + " - " + bolla["DataFattura"].text(), {}});
    return nuova;
}

ListRow rigaDocumento(Recordset& documento)
{
    ListRow nuova = riga(documento, "x", "IDFattura");
    nuova.sub.push_back({documento["Cliente"].text(), {}});
    for (const char* importo : {"TotaleIvaEsclusa", "ImportoTotaleIva"})
        nuova.sub.push_back({FormattaImporto(documento[importo].value()), {}});
    return nuova;
}

ListRow rigaBollaDelCliente(Recordset& bolla, bool delMese)
{
    const bool fatturata = bolla["EmessaFattura"].text() == "S";
    ListRow nuova = riga(bolla, delMese ? "fx" : fatturata ? "sx" : "nx", "IDBolla");
    nuova.sub.push_back({bolla["CausaleTrasporto"].text(), {}});
    const std::int32_t fattura = bolla["NumeroFattura"].longOr(0);
    nuova.sub.push_back({fattura == 0 ? "-" : std::to_string(fattura), {}});
    return nuova;
}

ListRow rigaDocumentoDelCliente(Recordset& documento)
{
    ListRow nuova = riga(documento, "x", "IDFattura");
    const Value& totale = documento["TotaleDocumento"].value();
    nuova.sub.push_back({format(totale, "###,###,##0.00"), {}});
    nuova.sub.push_back(
        {totale.isNull() ? std::string() : format(totale.toDouble() * lirePerEuro, "#,###,###,###"), {}});
    return nuova;
}

RigaArchivio rigaScelta(const ListView& elenco)
{
    const ListRow& scelta = elenco.row(elenco.selectedOrFail());
    return {static_cast<std::int32_t>(leadingNumber(scelta.text)), scelta.key.starts_with('s')};
}

}  // namespace bravona
