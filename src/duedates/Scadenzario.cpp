#include "duedates/Scadenzario.h"

#include "duedates/GrigliaScadenze.h"
#include "platform/text/Text.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr std::int32_t chiaveSegnaposto = -1;

// Tells where the columns stand once for all rows.
class Posti {
public:
    Posti(const Recordset& dati, std::initializer_list<std::string_view> nomi)
    {
        for (const std::string_view nome : nomi) {
            std::size_t posto = 0;
            while (posto < dati.columns().size() && !equalFolded(dati.columns()[posto].name, nome)) {
                ++posto;
            }
            posti_.push_back(posto);
        }
    }
    [[nodiscard]] std::size_t operator[](std::size_t colonna) const { return posti_[colonna]; }

private:
    std::vector<std::size_t> posti_;
};

// Of an instalment, and of its document.
namespace rata {
enum Colonna : std::size_t { ID, Scadenza, Saldato, avere, dare, DataPagamento, Descrizione };
}
namespace testata {
enum Colonna : std::size_t { NumeroDocumento, DataDocumento, Cliente, ModalitaPagamento, NumeroRegistro };
}

Currency importoDi(const std::string& testo)
{
    return testo.empty() ? Currency() : parseAmount(testo).value_or(Currency());
}

std::string giorno(const Value& valore)
{
    return valore.isNull() ? std::string() : valore.toDate().text();
}

// What the grid shows of an instalment; the texts of its document come behind.
void scriviTesti(VoceScadenzario& voce, Recordset& rate, const Posti& posti)
{
    std::string dareTesto = rate[posti[rata::dare]].text();
    std::string avereTesto = rate[posti[rata::avere]].text();
    voce.Dare = importoDi(dareTesto);
    voce.Avere = importoDi(avereTesto);
    const std::string saldo = CalcolaSaldoo(dareTesto, avereTesto);
    voce.testi[colonne::scadenza] = voce.Scadenza.text();
    voce.testi[colonne::avere] = std::move(avereTesto);
    voce.testi[colonne::dare] = std::move(dareTesto);
    voce.testi[colonne::saldo] = saldo;
    voce.testi[colonne::dataPagamento] = giorno(rate[posti[rata::DataPagamento]].value());
    voce.testi[colonne::descrizione] = rate[posti[rata::Descrizione]].text();
    voce.testi[colonne::id] = std::to_string(voce.ID);
}

bool manca(Connection& cn, const std::string& tabellaEChiave)
{
    return cn.open("SELECT * FROM " + tabellaEChiave + "=" + std::to_string(chiaveSegnaposto)).eof();
}

struct Segnaposto {
    const char* colonna;
    std::string valore;
};

void aggiungiSegnaposto(Connection& cn, const char* tabella, std::initializer_list<Segnaposto> valori)
{
    Recordset nuovo = cn.openTable(tabella);
    nuovo.addNew();
    for (const Segnaposto& valore : valori) {
        nuovo[valore.colonna] = valore.valore;
    }
    nuovo.update();
}

}  // namespace

Urgenza SceltaScadenze::urgenza(const VoceScadenzario& voce) const
{
    if (voce.Saldata) {
        return Urgenza::pagata;
    }
    if (voce.Scadenza <= oggi) {
        return Urgenza::scaduta;
    }
    return voce.Scadenza.dayNumber() - oggi.dayNumber() > giorni ? Urgenza::futura : Urgenza::inScadenza;
}

bool SceltaScadenze::comprende(const VoceScadenzario& voce) const
{
    switch (urgenza(voce)) {
    case Urgenza::pagata:
        return saldate;
    case Urgenza::scaduta:
        return nonSaldate;
    case Urgenza::inScadenza:
        return nonSaldate && inScadenza;
    case Urgenza::futura:
        return nonSaldate && !escludiNonScadute;
    }
    return false;
}

AspettoScadenza aspetto(Urgenza urgenza)
{
    switch (urgenza) {
    case Urgenza::scaduta:
        return {rgb(255, 0, 0), {"!", "scaduta"}};
    case Urgenza::inScadenza:
        return {rgb(0, 0, 192), {"…", "in scadenza"}};
    case Urgenza::futura:
        return {rgb(0, 128, 0), {}};
    case Urgenza::pagata:
        break;
    }
    return {};
}

std::vector<VoceScadenzario> leggiScadenze(Recordset& documenti, const SceltaScadenze& scelta)
{
    std::vector<VoceScadenzario> voci;
    if (documenti.eof()) {
        return voci;
    }
    const Posti deiDocumenti(documenti,
                             {"NumeroDocumento", "DataDocumento", "Cliente", "ModalitaPagamento", "NumeroRegistro"});
    const Posti delleRate(documenti.chapter("ChildCMD"),
                          {"ID", "Scadenza", "Saldato", "avere", "dare", "Data_Pagamento", "Descrizione"});
    for (; !documenti.eof(); documenti.moveNext()) {
        for (Recordset& rate = documenti.chapter("ChildCMD"); !rate.eof(); rate.moveNext()) {
            const Value& scadenza = rate[delleRate[rata::Scadenza]].value();
            if (scadenza.isNull()) {
                continue;
            }
            VoceScadenzario voce;
            voce.Scadenza = scadenza.toDate();
            voce.Saldata = rataSaldata(rate[delleRate[rata::Saldato]].text());
            if (!scelta.comprende(voce)) {
                continue;
            }
            voce.ID = rate[delleRate[rata::ID]].asLong();
            voce.testi.resize(colonne::scadenzario);
            scriviTesti(voce, rate, delleRate);
            voce.testi[colonne::numeroFattura] = documenti[deiDocumenti[testata::NumeroDocumento]].text();
            voce.testi[colonne::dataDocumento] = giorno(documenti[deiDocumenti[testata::DataDocumento]].value());
            voce.testi[colonne::cliente] = documenti[deiDocumenti[testata::Cliente]].text();
            voce.testi[colonne::modalita] = documenti[deiDocumenti[testata::ModalitaPagamento]].text();
            voce.testi[colonne::registro] = documenti[deiDocumenti[testata::NumeroRegistro]].text();
            voci.push_back(std::move(voce));
        }
    }
    return voci;
}

std::string CalcolaSaldoo(std::string& dare, std::string& avere)
{
    const auto importo = [](std::string& testo) {
        if (!isNumeric(testo)) {
            return Currency();
        }
        testo = FormattaImporto(testo);
        return toCurrency(testo);
    };
    return FormattaImporto(importo(avere) - importo(dare));
}

std::int32_t creaRataLibera(Connection& cn, const std::string& anno, Date oggi)
{
    const std::string chiave = std::to_string(chiaveSegnaposto);
    if (manca(cn, "FATTURE WHERE IDFATTURA")) {
        aggiungiSegnaposto(
            cn, "Fatture",
            {{"IDFattura", chiave}, {"IDCliente", chiave}, {"TipoDocumento", chiave}, {"AnnoDocumento", anno}});
    }
    if (manca(cn, "ModalitaPagamento WHERE IDmodalitaPagamento")) {
        aggiungiSegnaposto(cn, "ModalitaPagamento", {{"IDmodalitaPagamento", chiave}});
    }
    if (manca(cn, "Clienti WHERE IDcliente")) {
        aggiungiSegnaposto(cn, "Clienti", {{"IDCliente", chiave}, {"IDpagamento", chiave}});
    }
    Recordset scadenzario = cn.openTable("Scadenzario");
    scadenzario.addNew();
    scadenzario["Scadenza"] = oggi;
    scadenzario["IDDocumento"] = int{chiaveSegnaposto};
    scadenzario.update();
    return scadenzario["ID"].asLong();
}

std::string assegnazione(int colonna, const std::string& testo, Date oggi)
{
    const auto importo = [&testo] { return testo.empty() ? "Null" : quotedText(numberText(toCurrency(testo))); };
    switch (colonna) {
    case colonne::pagata:
        return "Saldato=" + quotedText(testo);
    case colonne::scadenza:
        return "Scadenza=#" + (testo.empty() ? oggi : toDate(testo)).text() + "#";
    case colonne::avere:
        return "Avere=" + importo();
    case colonne::dare:
        return "Dare =" + importo();
    case colonne::dataPagamento:
        return isDate(testo) ? "Data_Pagamento=#" + toDate(testo).text() + "#" : "Data_Pagamento= null";
    default:
        return "Descrizione=" + (testo.empty() ? "Null" : quotedText(testo));
    }
}

bool aggiornaScadenza(Connection& cn, std::int32_t id, const std::string& assegnazione)
{
    return cn.execute("Update Scadenzario SET " + assegnazione + " Where ID =" + std::to_string(id)) > 0;
}

void eliminaScadenza(Connection& cn, std::int32_t id)
{
    cn.execute("Delete From Scadenzario Where ID =" + std::to_string(id));
}

}  // namespace bravona
