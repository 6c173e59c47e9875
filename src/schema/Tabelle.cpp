#include "schema/Tabelle.h"

namespace bravona {
namespace {

using enum FieldType;

std::vector<Colonna> testi(std::initializer_list<std::string_view> nomi)
{
    std::vector<Colonna> colonne;
    for (const std::string_view nome : nomi) {
        colonne.push_back({nome, text});
    }
    return colonne;
}

template <typename... Parti>
std::vector<Colonna> unione(const Parti&... parti)
{
    std::vector<Colonna> tutte;
    (tutte.insert(tutte.end(), parti.begin(), parti.end()), ...);
    return tutte;
}

// The empty text is refused as a missing one is.
std::string obbligatorio(std::string_view tabella, std::string_view colonna, std::string_view tranne = {})
{
    const std::string nome(colonna);
    return "CONSTRAINT \"3315|Il campo '" + std::string(tabella) + "." + nome + "' non può essere vuoto.\" CHECK (" +
           std::string(tranne) + "(\"" + nome + "\" IS NOT NULL AND \"" + nome + "\" <> ''))";
}

std::string unico(std::string_view colonne)
{
    return "UNIQUE (" + std::string(colonne) + ")";
}

// --- documents

std::vector<Colonna> inizioDocumento(std::string_view chiave)
{
    return unione(
        std::vector<Colonna>{{chiave, counter},
                             {"NumeroDocumento", longInt},
                             {"AnnoDocumento", longInt},
                             {"NumeroRegistro", longInt},
                             {"DataDocumento", date},
                             {"IDCliente", longInt},
                             {"IDDestinazione", longInt},
                             {"IDmodalitaPagamento", longInt}},
        testi({"ModalitaPagamento", "SpedizioneAMezzo", "Porto", "Vettore", "ColliAspetto", "CausaleTrasporto"}),
        std::vector<Colonna>{{"Peso", dbl},
                             {"ColliNumero", dbl},
                             {"Sconto", integer},
                             {"NumeroDettagli", longInt},
                             {"TotaleIvaEsclusa", currency},
                             {"ImportoTotaleIva", currency},
                             {"TotaleDocumento", currency}});
}

std::vector<Colonna> fineDocumento()
{
    return {{"CodiceIva1", text},         {"Descrizioneiva1", text},    {"AliquotaIva1", integer},
            {"ImponibileIva1", currency}, {"ImportoIva1", currency},    {"CodiceIva2", text},
            {"Descrizioneiva2", text},    {"AliquotaIva2", integer},    {"ImponibileIva2", currency},
            {"ImportoIva2", currency},    {"CodiceIva3", text},         {"Descrizioneiva3", text},
            {"AliquotaIva3", integer},    {"ImponibileIva3", currency}, {"ImportoIva3", currency},
            {"CodiceIva4", text},         {"Descrizioneiva4", text},    {"AliquotaIva4", integer},
            {"ImponibileIva4", currency}, {"ImportoIva4", currency},    {"CodiceIva5", text},
            {"Descrizioneiva5", text},    {"AliquotaIva5", integer},    {"ImponibileIva5", currency},
            {"ImportoIva5", currency},    {"NoteGeneriche", text},      {"NoteEsenzioneIVA", text}};
}

// The rows of a document go with it.
std::string righeConTestata(std::string_view testata, std::string_view righe, std::string_view chiave)
{
    const std::string t(testata);
    const std::string k(chiave);
    return "CREATE TRIGGER \"" + t + "_con_righe\" AFTER DELETE ON \"" + t + "\" BEGIN DELETE FROM \"" +
           std::string(righe) + "\" WHERE \"" + k + "\" = OLD.\"" + k + "\"; END";
}

Tabella documento(std::string_view nome, std::string_view righe, std::string_view chiave,
                  const std::vector<Colonna>& proprie)
{
    Tabella t;
    t.nome = nome;
    t.colonne = unione(inizioDocumento(chiave), fineDocumento(), proprie);
    t.indici = {"AnnoDocumento, NumeroRegistro, NumeroDocumento", "IDCliente, AnnoDocumento"};
    t.regole = {righeConTestata(nome, righe, chiave)};
    return t;
}

Tabella righeDocumento(std::string_view nome, std::string_view testata)
{
    Tabella t;
    t.nome = nome;
    t.colonne = {
        {"IDRiga", counter},          {testata, longInt},    {"IDArticolo", longInt},  {"CodiceArticolo", text},
        {"Descrizione", text},        {"UnitaMisura", text}, {"Quantita", dbl},        {"Listino", longInt},
        {"PrezzoUnitario", currency}, {"Sconto1", integer},  {"Sconto2", integer},     {"Sconto3", integer},
        {"TotaleRiga", currency},     {"CodiceIva", text},   {"IDCodiceIva", longInt}, {"AliquotaIva", integer}};
    t.indici = {std::string(testata)};
    return t;
}

std::vector<Tabella> documenti()
{
    const std::vector<Colonna> soloFatture = {{"TipoDocumento", integer}, {"RiferimentoBolla", text}};
    std::vector<Tabella> tutte;
    Tabella& fatture = tutte.emplace_back(documento("Fatture", "Fatture_Dettagli", "IDFattura", soloFatture));
    fatture.indici.emplace_back("IDDestinazione");
    // Free instalments hang from document -1 and stay.
    fatture.regole.emplace_back("CREATE TRIGGER \"Fatture_con_scadenze\" AFTER DELETE ON \"Fatture\" "
                                "WHEN OLD.\"IDFattura\" <> -1 BEGIN DELETE FROM \"Scadenzario\" "
                                "WHERE \"IDDocumento\" = OLD.\"IDFattura\"; END");
    tutte.push_back(
        documento("Bolle", "Bolle_Dettagli", "IDBolla",
                  {{"Tipo", text}, {"EmessaFattura", text}, {"NumeroFattura", longInt}, {"DataFattura", text}}));
    tutte.push_back(documento("Proforma", "Proforma_Dettagli", "IDFattura", soloFatture));
    tutte.push_back(righeDocumento("Fatture_Dettagli", "IDFattura"));
    tutte.push_back(righeDocumento("Bolle_Dettagli", "IDBolla"));
    tutte.push_back(righeDocumento("Proforma_Dettagli", "IDFattura"));

    Tabella riferimenti;
    riferimenti.nome = "Fatture_RiferimentoBolle";
    riferimenti.colonne = {{"IDFattura", longInt}, {"IDBolla", longInt}, {"NumeroBolla", longInt}, {"DataBolla", date}};
    riferimenti.indici = {"IDFattura", "IDBolla"};
    tutte.push_back(riferimenti);

    Tabella scadenzario;
    scadenzario.nome = "Scadenzario";
    scadenzario.colonne = {{"ID", counter},    {"IDDocumento", longInt}, {"IDRegistro", longInt},
                           {"Scadenza", date}, {"Saldato", text},        {"dare", text},
                           {"avere", text},    {"Data_Pagamento", date}, {"Descrizione", text}};
    scadenzario.indici = {"IDDocumento"};
    tutte.push_back(scadenzario);

    // Documents whose goods are still to be taken from the stock.
    Tabella scarichi;
    scarichi.nome = "ScarichiDovuti";
    scarichi.colonne = {{"IDScarico", counter}, {"TipoDocumento", integer}, {"IDDocumento", longInt}};
    tutte.push_back(scarichi);
    return tutte;
}

// --- warehouse

std::vector<Tabella> magazzino()
{
    Tabella movimenti;
    movimenti.nome = "MovimentiMagazzino";
    movimenti.colonne = {{"IDMovimenti", counter},   {"NumeroDocumento", longInt}, {"AnnoDocumento", longInt},
                         {"DataDocumento", date},    {"DataOperazione", date},     {"IDFornitore", longInt},
                         {"NumeroDettagli", longInt}};
    movimenti.indici = {"AnnoDocumento, NumeroDocumento", "IDFornitore, AnnoDocumento"};
    movimenti.regole = {righeConTestata("MovimentiMagazzino", "MovimentiMagazzino_Dettagli", "IDMovimenti")};

    Tabella righe;
    righe.nome = "MovimentiMagazzino_Dettagli";
    righe.colonne = {{"IDRiga", counter},          {"IDMovimenti", longInt}, {"IDArticolo", longInt},
                     {"CodiceArticolo", text},     {"Descrizione", text},    {"Quantita", dbl},
                     {"PrezzoUnitario", currency}, {"Sconto1", integer},     {"Sconto2", integer},
                     {"Sconto3", integer},         {"TotaleRiga", currency}, {"Aggiornato", text}};
    righe.indici = {"IDMovimenti"};
    return {movimenti, righe};
}

// --- parties, articles, payment

std::vector<Tabella> anagrafiche()
{
    Tabella clienti;
    clienti.nome = "Clienti";
    clienti.colonne = unione(std::vector<Colonna>{{"IDCliente", counter}},
                             testi({"Cliente", "ClienteSecondaRiga", "Indirizzo", "Citta", "Provincia", "Cap", "Stato",
                                    "Telefono", "TelefonoCellulare", "Fax", "PostaElettronica", "PartitaIva",
                                    "CodiceFiscale", "Banca", "ABI", "CAB", "Tipo"}),
                             std::vector<Colonna>{{"IDpagamento", longInt},
                                                  {"IDListino", longInt},
                                                  {"ScontoMaggiorazione1", longInt},
                                                  {"ScontoMaggiorazione2", longInt},
                                                  {"ScontoMaggiorazione3", longInt},
                                                  {"EsenteIva", yesNo}},
                             testi({"DescrizioneEsenzioneIVA", "EstremiEsenzioneIVA", "NoteGeneriche"}),
                             std::vector<Colonna>{{"VisualizzaNoteSuDocumenti", yesNo}});
    // The placeholder of free instalments is no party and has no name.
    clienti.vincoli = {unico("\"Cliente\""), obbligatorio("Clienti", "Cliente", "\"IDCliente\" = -1 OR ")};

    Tabella destinazioni;
    destinazioni.nome = "DestinazioneMerceClienti";
    destinazioni.colonne = unione(std::vector<Colonna>{{"IDDestinazione", counter}, {"IDCliente", longInt}},
                                  testi({"Destinazione", "Indirizzo", "Citta", "Provincia", "Cap"}));
    destinazioni.indici = {"IDCliente"};

    Tabella fornitori;
    fornitori.nome = "Fornitori";
    fornitori.colonne = unione(std::vector<Colonna>{{"IDfornitore", counter}},
                               testi({"Fornitore", "Telefono", "PartitaIva", "CodiceFiscale", "Indirizzo"}));

    Tabella comuni;
    comuni.nome = "Comuni";
    comuni.colonne = unione(std::vector<Colonna>{{"IDCodiceComune", counter}}, testi({"Comune", "Provincia", "Cap"}));
    comuni.vincoli = {unico("\"Comune\", \"Provincia\", \"Cap\""), obbligatorio("Comuni", "Comune")};
    return {clienti, destinazioni, fornitori, comuni};
}

std::vector<Tabella> articoli()
{
    Tabella articoli;
    articoli.nome = "Articoli";
    articoli.colonne =
        unione(std::vector<Colonna>{{"IDArticolo", counter}},
               testi({"CodiceMagazzino", "CodiceFornitore", "CodiceBarreFornitore", "DescrizionePrincipale",
                      "DescrizioneSecondaria1", "DescrizioneSecondaria2", "UnitaMisura"}),
               std::vector<Colonna>{{"IDCodiceIva", longInt},
                                    {"QuantitaMinima", dbl},
                                    {"DataPrimoCarico", date},
                                    {"DataUltimoCarico", date},
                                    {"DataUltimoScarico", date},
                                    {"CostoMedio", currency},
                                    {"CostoUltimo", currency},
                                    {"Carico", dbl},
                                    {"Scarico", dbl},
                                    {"Giacenza", dbl},
                                    {"CaricoValore", currency},
                                    {"ScaricoValore", currency},
                                    {"Immagine", text}});
    articoli.vincoli = {unico("\"CodiceMagazzino\"")};
    articoli.indici = {"IDCodiceIva"};

    Tabella listini;
    listini.nome = "DescrizioneListini";
    listini.colonne = {{"IDListino", longInt}, {"Descrizione", text}};
    listini.chiave = {"IDListino"};

    Tabella prezzi;
    prezzi.nome = "ListiniPrezzi";
    prezzi.colonne = {{"IDArticolo", longInt}, {"IDListino", integer}, {"Prezzo", currency}};
    prezzi.indici = {"IDArticolo, IDListino"};

    Tabella iva;
    iva.nome = "TabellaCodiciIva";
    iva.colonne = {{"IDCodiceIva", counter}, {"CodiceIva", text}, {"AliquotaIva", currency}, {"Descrizione", text}};
    iva.vincoli = {unico("\"CodiceIva\""), obbligatorio("TabellaCodiciIva", "Descrizione")};
    std::string usato;
    for (const std::string_view dove : {"Articoli", "Fatture_Dettagli", "Bolle_Dettagli", "Proforma_Dettagli"}) {
        usato += (usato.empty() ? "" : " OR ") +
                 ("EXISTS (SELECT 1 FROM \"" + std::string(dove) + "\" WHERE \"IDCodiceIva\" = OLD.\"IDCodiceIva\")");
    }
    iva.regole = {"CREATE TRIGGER \"TabellaCodiciIva_in_uso\" BEFORE DELETE ON \"TabellaCodiciIva\" WHEN " + usato +
                  " BEGIN SELECT RAISE(ABORT, '3200|Il record non può essere eliminato: altre tabelle contengono "
                  "record correlati.'); END"};
    return {articoli, listini, prezzi, iva};
}

std::vector<Tabella> varie()
{
    Tabella archivi;
    archivi.nome = "Archivi";
    archivi.colonne = {{"IDArchivio", counter}, {"AnnoArchivio", longInt}};

    Tabella versione;
    versione.nome = "VersioneDB";
    versione.colonne = {{"Versione", longInt}, {"DataAggiornamento", date}};

    Tabella registri;
    registri.nome = "TabellaRegistri";
    registri.colonne = {{"CodiceRegistro", longInt}, {"Descrizione", text}};
    registri.chiave = {"CodiceRegistro"};

    Tabella azienda;  // read by position: the order of its first nine columns is fixed
    azienda.nome = "DatiAzienda";
    azienda.colonne = testi({"RagioneSocialeRiga1", "RagioneSocialeRiga2", "Indirizzo", "Citta", "Provincia", "Cap",
                             "Telefono", "Fax", "PartitaIva", "TipoStampa", "PercorsoImmagineLogo"});

    Tabella banche;
    banche.nome = "BancheDitta";
    banche.colonne = {
        {"IDBanca", counter}, {"Banca", text}, {"ContoCorrente", text}, {"Fido", currency}, {"Saldo", currency}};

    Tabella pagamenti;
    pagamenti.nome = "ModalitaPagamento";
    pagamenti.colonne = {
        {"IDmodalitaPagamento", counter}, {"ModalitaPagamento", text},     {"GG-1", longInt, Vuoto::nullo},
        {"GG-2", longInt, Vuoto::nullo},  {"GG-3", longInt, Vuoto::nullo}, {"GG-4", longInt, Vuoto::nullo},
        {"GG-5", longInt, Vuoto::nullo},  {"GG-6", longInt, Vuoto::nullo}, {"DF-FM", text}};
    return {archivi, versione, registri, azienda, banche, pagamenti};
}

}  // namespace

const std::vector<Tabella>& tabelleArchivio()
{
    static const std::vector<Tabella> tutte = [] {
        std::vector<Tabella> t;
        for (std::vector<Tabella>& gruppo : std::vector{varie(), anagrafiche(), articoli(), documenti(), magazzino()}) {
            t.insert(t.end(), gruppo.begin(), gruppo.end());
        }
        return t;
    }();
    return tutte;
}

}  // namespace bravona
