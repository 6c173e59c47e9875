#include "printing/RecordsetStampa.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/text/Text.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr std::string_view dueDecimali = "#,##0.00";

// What becomes of a column of the document query on the page.
enum class Parte {
    testoRiga,     // of the row: its text, zeroes left out
    importoRiga,   // of the row: two decimals, zeroes left out
    importoIva,    // of the VAT summary: two decimals, zeroes left out
    aliquotaIva,   // of the VAT summary: its text, zeroes left out
    totale,        // two decimals, zeroes printed
    intestatario,  // on every page
    altro          // on the last page
};

bool Uno(std::string_view nome, std::initializer_list<std::string_view> nomi)
{
    return std::any_of(nomi.begin(), nomi.end(), [&](std::string_view altro) { return equalFolded(nome, altro); });
}

// True for the base name with a figure from 1 to 5 behind it.
bool Numerato(std::string_view nome, std::string_view base)
{
    return nome.size() == base.size() + 1 && nome.back() >= '1' && nome.back() <= '5' &&
           equalFolded(nome.substr(0, base.size()), base);
}

Parte ParteDi(std::string_view nome)
{
    if (Uno(nome, {"CodiceArticolo", "Descrizione", "UnitaMisura", "Quantita", "Sconto1", "Sconto2", "Sconto3",
                   "CodiceIva"})) {
        return Parte::testoRiga;
    }
    if (Uno(nome, {"PrezzoUnitario", "TotaleRiga"})) {
        return Parte::importoRiga;
    }
    if (Numerato(nome, "ImponibileIva") || Numerato(nome, "ImportoIva")) {
        return Parte::importoIva;
    }
    if (Numerato(nome, "AliquotaIva")) {
        return Parte::aliquotaIva;
    }
    if (Uno(nome, {"TotaleIvaEsclusa", "ImportoTotaleIva", "TotaleDocumento"})) {
        return Parte::totale;
    }
    if (Uno(nome,
            {"Cliente", "ClienteSecondaRiga", "Clienti.Indirizzo", "PartitaIva", "CodiceFiscale", "DataDocumento"})) {
        return Parte::intestatario;
    }
    return Parte::altro;
}

bool DiRiga(Parte parte)
{
    return parte == Parte::testoRiga || parte == Parte::importoRiga;
}

std::string Stampato(Parte parte, const Value& valore)
{
    switch (parte) {
    case Parte::importoRiga:
    case Parte::importoIva:
        return VuotoSeZero(format(valore, dueDecimali));
    case Parte::testoRiga:
    case Parte::aliquotaIva:
        return VuotoSeZero(valore.text());
    case Parte::totale:
        return format(valore, dueDecimali);
    case Parte::intestatario:
    case Parte::altro:
        break;
    }
    return valore.text();
}

// A column of the query with its place there and, by name, in the record that takes it.
struct Colonna {
    std::string nome;
    Parte parte;
    std::size_t posto;
};

// A page for each record: fixed columns, those of the query that are no row's, and the rows in a chapter.
DeclaredSet Forma(const std::vector<Colonna>& colonne)
{
    const DeclaredColumn pagina{"IDdb", 10};
    DeclaredSet forma{{pagina}, {{"Child", "IDdb", "IDdb", {{pagina}, {}}}}};
    for (const char* nome : {"NumeroDoc", "NumeroReg", "RagioneSociale", "RagioneSociale2", "azIndirizzo", "azCitta",
                             "azFax", "azTelefono", "azProv", "azPartitaIva", "lblCittaProvincia",
                             "lblDestinazioneMerceIndirizzo", "lblDestinazioneMerceCitta", "SEGUE", "txtTotaleLire"}) {
        forma.columns.push_back({nome});
    }
    for (const Colonna& colonna : colonne) {
        (DiRiga(colonna.parte) ? forma.chapters[0].rows : forma).columns.push_back({colonna.nome});
    }
    return forma;
}

class Impaginazione {
public:
    Impaginazione(Recordset& origine, std::int16_t righePerPagina) : origine_(origine), righe_(righePerPagina)
    {
        const auto& colonne = origine.columns();
        for (std::size_t i = 0; i < colonne.size(); ++i) {
            colonne_.push_back({colonne[i].name, ParteDi(colonne[i].name), i});
        }
        pagine_ = NumeroPagine(Value(static_cast<std::int64_t>(origine.recordCount())).toInt(), righePerPagina);
        risultato_ = Recordset::declare(Forma(colonne_));
    }

    Recordset Componi(const DatiDitta& ditta, const std::string& numeroDoc, const std::string& numeroReg,
                      const RigheIndirizzo& indirizzo)
    {
        // The totals are read before the rows move the query on; they are the same in each of its rows.
        for (std::int16_t pagina = 1; pagina <= pagine_; ++pagina) {
            risultato_.addNew();
            const auto scrivi = [this](const char* nome, const std::string& testo) { risultato_[nome] = testo; };
            scrivi("IDdb", std::to_string(pagina));
            scrivi("NumeroDoc", numeroDoc);
            scrivi("NumeroReg", numeroReg);
            scrivi("RagioneSociale", ditta.RagioneSocialeRiga1);
            scrivi("RagioneSociale2", ditta.RagioneSocialeRiga2);
            scrivi("azTelefono", ditta.Telefono);
            scrivi("azCitta", ditta.Citta);
            scrivi("azProv", ditta.Provincia);
            scrivi("azFax", ditta.Fax);
            scrivi("azIndirizzo", ditta.Indirizzo);
            scrivi("azPartitaIva", ditta.PartitaIva);
            scrivi("lblCittaProvincia", indirizzo.lblCittaProvincia);
            scrivi("lblDestinazioneMerceIndirizzo", indirizzo.lblDestinazioneMerceIndirizzo);
            scrivi("lblDestinazioneMerceCitta", indirizzo.lblDestinazioneMerceCitta);
            const bool ultima = pagina == pagine_;
            const Value totale = origine_["TotaleDocumento"].value();
            scrivi("txtTotaleLire",
                   ultima && !totale.isNull() ? format(totale.toDouble() * lirePerEuro, "#,##0") : std::string());
            scrivi("SEGUE", ultima ? "" : "SEGUE");
            for (const Colonna& colonna : colonne_) {
                if (!DiRiga(colonna.parte)) {
                    const bool copia = ultima || colonna.parte == Parte::intestatario;
                    risultato_[colonna.nome] =
                        copia ? Stampato(colonna.parte, origine_[colonna.posto].value()) : std::string();
                }
            }
            ComponiRighe(risultato_.chapter("Child"), std::to_string(pagina));
            risultato_.update();
        }
        risultato_.moveFirst();
        return std::move(risultato_);
    }

private:
    void ComponiRighe(Recordset& figlio, const std::string& pagina)
    {
        for (std::int16_t riga = 0; riga < righe_; ++riga) {
            const bool vuota = origine_.eof();
            figlio.addNew();
            figlio["IDdb"] = pagina;
            for (const Colonna& colonna : colonne_) {
                if (DiRiga(colonna.parte)) {
                    figlio[colonna.nome] =
                        vuota ? std::string() : Stampato(colonna.parte, origine_[colonna.posto].value());
                }
            }
            figlio.update();
            if (!vuota) {
                origine_.moveNext();
            }
        }
    }

    Recordset& origine_;
    std::int16_t righe_;
    std::int16_t pagine_ = 1;
    std::vector<Colonna> colonne_;
    Recordset risultato_;
};

}  // namespace

std::int16_t NumeroPagine(std::int16_t a, std::int16_t b)
{
    if (a <= b) {
        return 1;
    }
    if (b == 0) {
        throw Errore(errori::divisionePerZero, "Divisione per zero");
    }
    return static_cast<std::int16_t>(a % b == 0 ? a / b : a / b + 1);
}

std::string VuotoSeZero(const std::string& testo)
{
    const bool zero = isNumeric(testo) ? leadingNumber(testo) == 0 : testo == "0";
    return zero ? std::string() : testo;
}

Recordset CostruisciRecordsetStampa(Recordset& origine, const DatiDitta& ditta, const std::string& NumeroDoc,
                                    const std::string& NumeroReg, const RigheIndirizzo& indirizzo,
                                    std::int16_t righePerPagina)
{
    return Impaginazione(origine, righePerPagina).Componi(ditta, NumeroDoc, NumeroReg, indirizzo);
}

}  // namespace bravona
