#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "duedates/Rate.h"
#include "platform/values/Currency.h"
#include "platform/values/Date.h"

// A document as a value: what the screens compose, the archive keeps, derivations turn into other documents and prints
// read. No control, no record set.
namespace bravona {

// One of the five VAT groups of a document.
struct GruppoIVA {
    std::string Codice;         // empty: free
    std::int16_t Aliquota = 0;  // whole percent
    std::string Descrizione;
    Currency Imponibile;
    Currency ImportoIva;  // four decimals
    Currency Totale;

    friend bool operator==(const GruppoIVA&, const GruppoIVA&) = default;
};
inline constexpr int numeroGruppiIva = 5;
using GruppiIVA = std::array<GruppoIVA, numeroGruppiIva>;

namespace righe {
inline constexpr std::int32_t commento = -5;  // IDArticolo of a comment row: no amounts
inline constexpr std::int32_t libera = -1;    // of a row typed without a search

inline constexpr const char* codiceTesto = "***";
inline constexpr const char* codiceSoloFattura = "***F";
inline constexpr const char* codiceSoloDDT = "***D";
}  // namespace righe

struct RigaDocumento {
    std::int32_t IDRiga = 0;  // 0: not in the archive
    std::int32_t IDArticolo = righe::libera;
    std::string CodiceArticolo, Descrizione, UnitaMisura;
    double Quantita = 0;
    std::optional<std::int32_t> Listino = 0;  // price list, 1 to 10
    Currency PrezzoUnitario;                  // before discounts
    std::array<double, 3> Sconti{};           // percent
    Currency TotaleRiga;                      // to the cent
    std::string CodiceIva;                    // one letter
    std::int32_t IDCodiceIva = 0;
    std::int16_t AliquotaIva = 0;  // rows entered by hand leave it at 0
    std::string Aggiornato;        // of a row of goods received: "S" once the stock has it, else "N"

    // How they stood in the fields; the grid shows them so. Empty: by their values.
    std::string quantitaScritta, prezzoScritto, totaleScritto;

    [[nodiscard]] bool commento() const { return IDArticolo == righe::commento; }
    // Counts among the rows and in the totals.
    [[nodiscard]] bool conImporto() const { return IDArticolo >= righe::libera; }

    friend bool operator==(const RigaDocumento&, const RigaDocumento&) = default;
};

// A comment row as it is kept: one blank for unit and code, zeros elsewhere.
[[nodiscard]] RigaDocumento rigaCommento(std::string codice, std::string testo);

// How the goods travel.
struct DatiTrasporto {
    std::string SpedizioneAMezzo, Porto, Vettore, ColliAspetto;
    std::optional<double> Peso;  // kilograms
    double ColliNumero = 0;

    friend bool operator==(const DatiTrasporto&, const DatiTrasporto&) = default;
};

// The header. What is optional and without a value is left alone when the header is written: a new record keeps the
// column's default, an old one what it has.
struct TestataDocumento {
    std::int32_t IDDocumento = 0;  // IDFattura or IDBolla, given by the archive
    std::optional<std::int32_t> NumeroDocumento, NumeroRegistro;
    std::int32_t AnnoDocumento = 0;
    Date DataDocumento;
    std::int32_t IDCliente = 0;
    std::int32_t IDDestinazione = 0;  // 0: the customer's own address
    std::string ModalitaPagamento;
    std::int32_t IDmodalitaPagamento = 0;  // 0: none
    std::optional<DatiTrasporto> Trasporto;
    std::optional<std::string> CausaleTrasporto;
    std::int32_t Sconto = 0;                                       // percent, told but not reckoned
    std::int32_t NumeroDettagli = 0;                               // rows with an amount
    Currency TotaleIvaEsclusa, ImportoTotaleIva, TotaleDocumento;  // to the cent
    GruppiIVA Gruppi;
    std::optional<std::string> NoteGeneriche;
    std::string NoteEsenzioneIVA;

    // Of invoices, notes and quotations.
    std::optional<std::int16_t> TipoDocumento;
    std::optional<std::string> RiferimentoBolla;  // "S" made from transport documents, "N" direct

    // Of transport documents.
    std::optional<std::string> Tipo;           // one letter
    std::optional<std::string> EmessaFattura;  // "S" invoiced
    std::optional<std::int32_t> NumeroFattura;
    std::optional<std::string> DataFattura;  // dd/mm/yyyy, or empty

    [[nodiscard]] bool daDDT() const { return RiferimentoBolla == "S"; }
    [[nodiscard]] bool fatturato() const { return EmessaFattura == "S"; }

    friend bool operator==(const TestataDocumento&, const TestataDocumento&) = default;
};

struct Documento {
    TestataDocumento testata;
    std::vector<RigaDocumento> righe;
    std::vector<Rata> rate;

    friend bool operator==(const Documento&, const Documento&) = default;
};

}  // namespace bravona
