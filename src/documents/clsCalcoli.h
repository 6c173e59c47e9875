#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "documents/Documento.h"
#include "session/TabellaCodiciIva.h"

namespace bravona {

// Totals of a document in up to five VAT groups, in the order in which the codes first occur. Every `Calcola` starts
// from zero; the results are those of the last one.
class clsCalcoli {
public:
    static constexpr int numeroGruppi = numeroGruppiIva;

    // How rows fall into groups: each code its own, or, as on goods received, all of them one without a code, which
    // takes the rate of its last row.
    enum class Gruppi { perCodice, unico };

    explicit clsCalcoli(const TabellaCodiciIva& tabellaIva, Gruppi gruppi = Gruppi::perCodice)
        : tabellaIva_(tabellaIva),
          raggruppamento_(gruppi)
    {}

    // Errore 9 for a sixth VAT code, 6 for totals out of range.
    void Calcola(std::span<const RigaDocumento> righe);

    // Of a group, 1 to 5; Errore 9 outside.
    [[nodiscard]] std::int16_t GetAliquotaIVA(int gruppo) const { return gruppo_(gruppo).Aliquota; }
    [[nodiscard]] Currency GetImportoIVA(int gruppo) const { return gruppo_(gruppo).ImportoIva; }
    [[nodiscard]] Currency GetImponibile(int gruppo) const { return gruppo_(gruppo).Imponibile; }
    [[nodiscard]] const std::string& GetDescrizioneAliquotaIva(int gruppo) const { return gruppo_(gruppo).Descrizione; }
    [[nodiscard]] const std::string& GetCodiceAliquotaIVA(int gruppo) const { return gruppo_(gruppo).Codice; }
    [[nodiscard]] Currency GetTotale(int gruppo) const { return gruppo_(gruppo).Totale; }
    [[nodiscard]] const GruppiIVA& gruppi() const { return gruppi_; }

    [[nodiscard]] std::int16_t NumeroRigheValide() const { return righeValide_; }
    [[nodiscard]] Currency TotaleImportoVoci() const { return voci_; }
    [[nodiscard]] Currency TotaleImportoImponibile() const { return imponibile_; }
    [[nodiscard]] Currency TotaleImportoImposta() const { return imposta_; }
    [[nodiscard]] Currency TotaleImportoDocumento() const { return documento_; }
    // A screen may impose them; the next `Calcola` overwrites them.
    void setTotaleImportoImposta(Currency importo) { imposta_ = importo; }
    void setTotaleImportoDocumento(Currency importo) { documento_ = importo; }

    // Groups and totals into a header, the totals to the cent.
    void riporta(TestataDocumento& testata) const;
    // The fixed-width lines of the VAT summary, each ended by "\r\n".
    [[nodiscard]] std::string riepilogoIva() const;

private:
    [[nodiscard]] const GruppoIVA& gruppo_(int gruppo) const;
    GruppoIVA& gruppoDi(const std::string& codice);  // PosizioneGruppoIVA

    const TabellaCodiciIva& tabellaIva_;
    Gruppi raggruppamento_;
    GruppiIVA gruppi_;
    std::int16_t righeValide_ = 0;
    Currency voci_;
    Currency imponibile_;
    Currency imposta_;
    Currency documento_;
};

// The arithmetic of one row: nothing is rounded between the steps. Euro.
struct TotaleRiga {
    double prezzoScontato = 0;  // of one piece, after the discounts
    double totale = 0;
};
// `prezzo` to the cent; discounts in percent, one after the other.
[[nodiscard]] TotaleRiga CalcolaTotaleRiga(double quantita, Currency prezzo, const std::array<double, 3>& sconti);

// The same while it is typed: "0" as long as there is no quantity or no price, else amount text.
struct TestiTotaleRiga {
    std::string prezzoScontato, totale;
};
[[nodiscard]] TestiTotaleRiga CalcolaTotaleRiga(const std::string& quantita, const std::string& prezzo,
                                                const std::array<double, 3>& sconti);

}  // namespace bravona
