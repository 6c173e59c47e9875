#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/values/Currency.h"
#include "session/TabellaCodiciIva.h"

namespace bravona {

// One of the five VAT groups of a document.
struct GruppoIVA {
    std::string Codice;         // empty: free
    std::int16_t Aliquota = 0;  // whole percent
    std::string Descrizione;
    Currency Imponibile;
    Currency ImportoIva;
    Currency Totale;
};

// The rows as the engine reads them, by position from 0.
class FonteRighe {
public:
    virtual ~FonteRighe() = default;
    [[nodiscard]] virtual std::size_t numeroRighe() const = 0;
    [[nodiscard]] virtual const std::string& tagRiga(std::size_t riga) const = 0;     // a number; below -1: no amount
    [[nodiscard]] virtual const std::string& totaleRiga(std::size_t riga) const = 0;  // amount text
    [[nodiscard]] virtual const std::string& codiceIvaRiga(std::size_t riga) const = 0;
};

// Totals of a document in up to five VAT groups, in the order in which the codes first occur. Every `Calcola` starts
// from zero; the results are those of the last one.
class clsCalcoli {
public:
    static constexpr int numeroGruppi = 5;

    explicit clsCalcoli(const TabellaCodiciIva& tabellaIva) : tabellaIva_(tabellaIva) {}
    void setFormRiferimento(const FonteRighe* righe) { righe_ = righe; }

    // Errore 9 for a sixth VAT code, 13 for a row total that cannot be read.
    void Calcola();

    // Of a group, 1 to 5; Errore 9 outside.
    [[nodiscard]] std::int16_t GetAliquotaIVA(int gruppo) const { return gruppo_(gruppo).Aliquota; }
    [[nodiscard]] Currency GetImportoIVA(int gruppo) const { return gruppo_(gruppo).ImportoIva; }
    [[nodiscard]] Currency GetImponibile(int gruppo) const { return gruppo_(gruppo).Imponibile; }
    [[nodiscard]] const std::string& GetDescrizioneAliquotaIva(int gruppo) const { return gruppo_(gruppo).Descrizione; }
    [[nodiscard]] const std::string& GetCodiceAliquotaIVA(int gruppo) const { return gruppo_(gruppo).Codice; }
    [[nodiscard]] Currency GetTotale(int gruppo) const { return gruppo_(gruppo).Totale; }

    [[nodiscard]] std::int16_t NumeroRigheValide() const { return righeValide_; }
    [[nodiscard]] Currency TotaleImportoVoci() const { return voci_; }
    [[nodiscard]] Currency TotaleImportoImponibile() const { return imponibile_; }
    [[nodiscard]] Currency TotaleImportoImposta() const { return imposta_; }
    [[nodiscard]] Currency TotaleImportoDocumento() const { return documento_; }
    // A screen may impose them; the next `Calcola` overwrites them.
    void setTotaleImportoImposta(Currency importo) { imposta_ = importo; }
    void setTotaleImportoDocumento(Currency importo) { documento_ = importo; }

    // The fixed-width lines of the VAT summary, each ended by "\r\n".
    [[nodiscard]] std::string riepilogoIva() const;

private:
    [[nodiscard]] const GruppoIVA& gruppo_(int gruppo) const;
    GruppoIVA& gruppoDi(const std::string& codice);  // PosizioneGruppoIVA

    const TabellaCodiciIva& tabellaIva_;
    const FonteRighe* righe_ = nullptr;
    std::array<GruppoIVA, numeroGruppi> gruppi_;
    std::int16_t righeValide_ = 0;
    Currency voci_;
    Currency imponibile_;
    Currency imposta_;
    Currency documento_;
};

// The arithmetic of one row, from the typed texts.
struct TotaleRiga {
    std::string prezzoScontato;  // "0", or amount text
    std::string totale;
};
// Discounts in percent, in chain; the price rounds to two decimals first, the total at the end. A lone "-" as quantity
// counts as 0. Errore 13 for a quantity that cannot be read; a price that cannot counts as 0.
TotaleRiga CalcolaTotaleRiga(const std::string& quantita, const std::string& prezzo,
                             const std::array<double, 3>& sconti);

}  // namespace bravona
