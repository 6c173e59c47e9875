#include "documents/ArchivioDocumenti.h"

#include <concepts>

#include "schema/Schema.h"

namespace bravona {

namespace {

std::optional<std::string> testoDi(Field campo)
{
    return campo.isNull() ? std::nullopt : std::optional(campo.text());
}

std::optional<std::int32_t> interoDi(Field campo)
{
    return campo.isNull() ? std::nullopt : std::optional(campo.asLong());
}

template <class T>
void scriviSeIndicato(Recordset& record, const char* colonna, const std::optional<T>& valore)
{
    if (!valore)
        return;
    if constexpr (std::integral<T>)
        record[colonna] = static_cast<std::int64_t>(*valore);
    else
        record[colonna] = *valore;
}

void scriviGruppi(Recordset& record, const GruppiIVA& gruppi)
{
    for (std::size_t i = 0; i < gruppi.size(); ++i) {
        const std::string n = std::to_string(i + 1);
        record["CodiceIva" + n] = gruppi[i].Codice;
        record["Descrizioneiva" + n] = gruppi[i].Descrizione;
        record["AliquotaIva" + n] = static_cast<int>(gruppi[i].Aliquota);
        record["ImponibileIva" + n] = gruppi[i].Imponibile;
        record["ImportoIva" + n] = gruppi[i].ImportoIva;
    }
}

GruppiIVA leggiGruppi(Recordset& record)
{
    GruppiIVA gruppi;
    for (std::size_t i = 0; i < gruppi.size(); ++i) {
        const std::string n = std::to_string(i + 1);
        GruppoIVA& gruppo = gruppi[i];
        gruppo.Codice = record["CodiceIva" + n].text();
        gruppo.Descrizione = record["Descrizioneiva" + n].text();
        gruppo.Aliquota = static_cast<std::int16_t>(record["AliquotaIva" + n].longOr(0));
        gruppo.Imponibile = record["ImponibileIva" + n].currencyOr({});
        gruppo.ImportoIva = record["ImportoIva" + n].currencyOr({});
        gruppo.Totale = gruppo.Imponibile + gruppo.ImportoIva;
    }
    return gruppi;
}

void scriviTrasporto(Recordset& record, const DatiTrasporto& trasporto)
{
    record["SpedizioneAMezzo"] = trasporto.SpedizioneAMezzo;
    record["Porto"] = trasporto.Porto;
    record["Vettore"] = trasporto.Vettore;
    record["Peso"] = trasporto.Peso ? Value(*trasporto.Peso) : Value();
    record["ColliAspetto"] = trasporto.ColliAspetto;
    record["ColliNumero"] = trasporto.ColliNumero;
}

DatiTrasporto leggiTrasporto(Recordset& record)
{
    DatiTrasporto trasporto;
    trasporto.SpedizioneAMezzo = record["SpedizioneAMezzo"].text();
    trasporto.Porto = record["Porto"].text();
    trasporto.Vettore = record["Vettore"].text();
    trasporto.ColliAspetto = record["ColliAspetto"].text();
    if (!record["Peso"].isNull())
        trasporto.Peso = record["Peso"].asDouble();
    trasporto.ColliNumero = record["ColliNumero"].doubleOr(0);
    return trasporto;
}

void scrivi(Recordset& record, const TestataDocumento& testata)
{
    scriviSeIndicato(record, "NumeroDocumento", testata.NumeroDocumento);
    scriviSeIndicato(record, "NumeroRegistro", testata.NumeroRegistro);
    record["AnnoDocumento"] = testata.AnnoDocumento;
    record["DataDocumento"] = testata.DataDocumento;
    record["IDCliente"] = testata.IDCliente;
    record["IDDestinazione"] = testata.IDDestinazione;
    record["ModalitaPagamento"] = testata.ModalitaPagamento;
    record["IDmodalitaPagamento"] = testata.IDmodalitaPagamento;
    if (testata.Trasporto)
        scriviTrasporto(record, *testata.Trasporto);
    scriviSeIndicato(record, "CausaleTrasporto", testata.CausaleTrasporto);
    record["Sconto"] = testata.Sconto;
    record["TotaleDocumento"] = testata.TotaleDocumento;
    scriviGruppi(record, testata.Gruppi);
    record["ImportoTotaleIva"] = testata.ImportoTotaleIva;
    record["TotaleIvaEsclusa"] = testata.TotaleIvaEsclusa;
    scriviSeIndicato(record, "NoteGeneriche", testata.NoteGeneriche);
    record["NoteEsenzioneIVA"] = testata.NoteEsenzioneIVA;
    record["NumeroDettagli"] = testata.NumeroDettagli;
    scriviSeIndicato(record, "TipoDocumento", testata.TipoDocumento);
    scriviSeIndicato(record, "RiferimentoBolla", testata.RiferimentoBolla);
    scriviSeIndicato(record, "Tipo", testata.Tipo);
    scriviSeIndicato(record, "EmessaFattura", testata.EmessaFattura);
    scriviSeIndicato(record, "NumeroFattura", testata.NumeroFattura);
    scriviSeIndicato(record, "DataFattura", testata.DataFattura);
}

}  // namespace

TestataDocumento leggiTestata(Recordset& record, const TabelleDocumento& tabelle)
{
    TestataDocumento testata;
    testata.IDDocumento = record[tabelle.chiave].asLong();
    testata.NumeroDocumento = interoDi(record["NumeroDocumento"]);
    testata.NumeroRegistro = interoDi(record["NumeroRegistro"]);
    testata.AnnoDocumento = record["AnnoDocumento"].longOr(0);
    if (!record["DataDocumento"].isNull())
        testata.DataDocumento = record["DataDocumento"].asDate();
    testata.IDCliente = record["IDCliente"].longOr(0);
    testata.IDDestinazione = record["IDDestinazione"].longOr(0);
    testata.ModalitaPagamento = record["ModalitaPagamento"].text();
    testata.IDmodalitaPagamento = record["IDmodalitaPagamento"].longOr(0);
    testata.Trasporto = leggiTrasporto(record);
    testata.CausaleTrasporto = testoDi(record["CausaleTrasporto"]);
    testata.Sconto = record["Sconto"].longOr(0);
    testata.NumeroDettagli = record["NumeroDettagli"].longOr(0);
    testata.TotaleIvaEsclusa = record["TotaleIvaEsclusa"].currencyOr({});
    testata.ImportoTotaleIva = record["ImportoTotaleIva"].currencyOr({});
    testata.TotaleDocumento = record["TotaleDocumento"].currencyOr({});
    testata.Gruppi = leggiGruppi(record);
    testata.NoteGeneriche = testoDi(record["NoteGeneriche"]);
    testata.NoteEsenzioneIVA = record["NoteEsenzioneIVA"].text();
    if (record.hasColumn("Tipo")) {
        testata.Tipo = testoDi(record["Tipo"]);
        testata.EmessaFattura = testoDi(record["EmessaFattura"]);
        testata.NumeroFattura = interoDi(record["NumeroFattura"]);
        testata.DataFattura = testoDi(record["DataFattura"]);
    } else {
        if (!record["TipoDocumento"].isNull())
            testata.TipoDocumento = record["TipoDocumento"].value().toInt();
        testata.RiferimentoBolla = testoDi(record["RiferimentoBolla"]);
    }
    return testata;
}

std::optional<TestataDocumento> leggiTestata(Connection& cn, const TabelleDocumento& tabelle, std::int32_t numero,
                                             std::int32_t anno, std::int32_t registro)
{
    Recordset record =
        cn.open("SELECT * FROM " + tabelle.testata + " WHERE NumeroDocumento=" + std::to_string(numero) +
                " AND AnnoDocumento=" + std::to_string(anno) + " AND NumeroRegistro=" + std::to_string(registro));
    return record.eof() ? std::nullopt : std::optional(leggiTestata(record, tabelle));
}

std::optional<TestataDocumento> leggiTestata(Connection& cn, const TabelleDocumento& tabelle, std::int32_t idDocumento)
{
    Recordset record =
        cn.open("SELECT * FROM " + tabelle.testata + " WHERE " + tabelle.chiave + "=" + std::to_string(idDocumento));
    return record.eof() ? std::nullopt : std::optional(leggiTestata(record, tabelle));
}

std::vector<RigaDocumento> leggiRighe(Connection& cn, const TabelleDocumento& tabelle, std::int32_t idDocumento)
{
    Recordset record = cn.open("SELECT * FROM " + tabelle.dettagli + " WHERE " + tabelle.chiave + "=" +
                               std::to_string(idDocumento) + " ORDER BY IDRiga");
    std::vector<RigaDocumento> righe;
    righe.reserve(record.recordCount());
    for (; !record.eof(); record.moveNext()) {
        RigaDocumento& riga = righe.emplace_back();
        riga.IDRiga = record["IDRiga"].asLong();
        riga.IDArticolo = record["IDArticolo"].longOr(0);
        riga.CodiceArticolo = record["CodiceArticolo"].text();
        riga.Descrizione = record["Descrizione"].text();
        riga.UnitaMisura = record["UnitaMisura"].text();
        riga.Quantita = record["Quantita"].doubleOr(0);
        riga.Listino = interoDi(record["Listino"]);
        riga.PrezzoUnitario = record["PrezzoUnitario"].currencyOr({});
        riga.Sconti = {record["Sconto1"].doubleOr(0), record["Sconto2"].doubleOr(0), record["Sconto3"].doubleOr(0)};
        riga.TotaleRiga = record["TotaleRiga"].currencyOr({});
        riga.CodiceIva = record["CodiceIva"].text();
        riga.IDCodiceIva = record["IDCodiceIva"].longOr(0);
        riga.AliquotaIva = static_cast<std::int16_t>(record["AliquotaIva"].longOr(0));
    }
    return righe;
}

std::optional<Documento> leggiDocumento(Connection& cn, std::int16_t tipoDocumento, std::int32_t numero,
                                        std::int32_t anno, std::int32_t registro)
{
    const TabelleDocumento tabelle = tabelleDocumento(tipoDocumento);
    std::optional<TestataDocumento> testata = leggiTestata(cn, tabelle, numero, anno, registro);
    if (!testata)
        return std::nullopt;
    Documento documento{*std::move(testata), {}, {}};
    documento.righe = leggiRighe(cn, tabelle, documento.testata.IDDocumento);
    const bool sueRate = tipoDocumento != tipo::proforma || !chiaveDiFattura(cn, documento.testata.IDDocumento);
    if (tipoDocumento != tipo::ddt && sueRate)
        documento.rate = leggiRate(cn, documento.testata.IDDocumento);
    return documento;
}

std::int32_t scriviTestata(Connection& cn, const TabelleDocumento& tabelle, const TestataDocumento& testata)
{
    Recordset record = cn.openTable(tabelle.testata);
    record.addNew();
    scrivi(record, testata);
    record.update();
    return record[tabelle.chiave].asLong();
}

void riscriviTestata(Connection& cn, const TabelleDocumento& tabelle, const TestataDocumento& testata)
{
    Recordset record = cn.open("SELECT * FROM " + tabelle.testata + " WHERE " + tabelle.chiave + "=" +
                                   std::to_string(testata.IDDocumento),
                               OpenMode::updatable);
    scrivi(record, testata);
    record.update();
}

void scriviRighe(Connection& cn, const TabelleDocumento& tabelle, std::int32_t idDocumento,
                 std::span<const RigaDocumento> righe)
{
    Recordset record = cn.openTable(tabelle.dettagli);
    for (const RigaDocumento& riga : righe) {
        record.addNew();
        record[tabelle.chiave] = idDocumento;
        record["IDArticolo"] = riga.IDArticolo;
        record["CodiceArticolo"] = riga.CodiceArticolo;
        record["Descrizione"] = riga.Descrizione;
        record["UnitaMisura"] = riga.UnitaMisura;
        record["Listino"] = riga.Listino ? Value(*riga.Listino) : Value();
        record["Quantita"] = riga.Quantita;
        record["PrezzoUnitario"] = riga.PrezzoUnitario;
        record["Sconto1"] = riga.Sconti[0];
        record["Sconto2"] = riga.Sconti[1];
        record["Sconto3"] = riga.Sconti[2];
        record["TotaleRiga"] = riga.TotaleRiga;
        record["CodiceIva"] = riga.CodiceIva;
        record["IDCodiceIva"] = riga.IDCodiceIva;
        record["AliquotaIva"] = static_cast<int>(riga.AliquotaIva);
        record.update();
    }
}

void riscriviRighe(Connection& cn, const TabelleDocumento& tabelle, std::int32_t idDocumento,
                   std::span<const RigaDocumento> righe)
{
    cn.execute("DELETE * FROM " + tabelle.dettagli + " WHERE " + tabelle.chiave + "=" + std::to_string(idDocumento));
    scriviRighe(cn, tabelle, idDocumento, righe);
}

bool chiaveDiFattura(Connection& cn, std::int32_t idProforma)
{
    return idProforma < primaChiavePreventivi &&
           cn.open("SELECT IDFattura FROM Fatture WHERE IDFattura=" + std::to_string(idProforma)).recordCount() > 0;
}

std::int32_t separaDalleFatture(Connection& cn, std::int32_t idProforma)
{
    if (idProforma >= primaChiavePreventivi)
        return idProforma;
    if (!chiaveDiFattura(cn, idProforma)) {
        cn.countAbove("Fatture", idProforma);
        return idProforma;
    }
    const TabelleDocumento tabelle = tabelleDocumento(tipo::proforma);
    const std::string vecchia = " FROM Proforma WHERE IDFattura=" + std::to_string(idProforma);
    Recordset record = cn.open("SELECT *" + vecchia);
    const std::int32_t nuova = scriviTestata(cn, tabelle, leggiTestata(record, tabelle));
    scriviRighe(cn, tabelle, nuova, leggiRighe(cn, tabelle, idProforma));
    cn.execute("DELETE *" + vecchia);
    return nuova;
}

void collega(Connection& cn, const TestataDocumento& fattura, std::span<const Documento> ddt)
{
    Recordset riferimenti = cn.openTable("Fatture_RiferimentoBolle");
    for (const Documento& documento : ddt) {
        riferimenti.addNew();
        riferimenti["IDFattura"] = fattura.IDDocumento;
        riferimenti["DataBolla"] = documento.testata.DataDocumento;
        riferimenti["IDBolla"] = documento.testata.IDDocumento;
        riferimenti["NumeroBolla"] = documento.testata.NumeroDocumento.value_or(0);
        riferimenti.update();
    }
    for (const Documento& documento : ddt) {
        Recordset bolla =
            cn.open("SELECT NumeroRegistro, EmessaFattura, NumeroFattura, DataFattura, IDBolla FROM Bolle "
                    "WHERE IDBolla=" +
                        std::to_string(documento.testata.IDDocumento) +
                        " AND NumeroRegistro=" + std::to_string(documento.testata.NumeroRegistro.value_or(0)),
                    OpenMode::updatable);
        bolla["EmessaFattura"] = "S";
        bolla["DataFattura"] = fattura.DataDocumento.text();
        bolla["NumeroFattura"] = fattura.NumeroDocumento.value_or(0);
        bolla.update();
    }
}

}  // namespace bravona
