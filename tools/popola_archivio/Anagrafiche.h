#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "Caso.h"
#include "documents/Giacenza.h"
#include "platform/store/Connection.h"
#include "session/TabellaCodiciIva.h"

namespace bravona {

// What documents draw on, as the generator keeps it at hand.
struct ClientePopolato {
    std::int32_t id = 0;
    std::int32_t pagamento = 0;
    std::int32_t listino = 1;
    std::array<int, 3> sconti{};
    bool esente = false;
    std::string noteEsenzione;
    std::vector<std::int32_t> destinazioni;
};

struct ArticoloPopolato {
    std::int32_t id = 0;
    std::string codice, descrizione, unita;
    std::int32_t idIva = 0;
    std::int64_t prezzo = 0;  // of the first list, cents
    Giacenza stock;
    Currency caricoValore;
    std::string ultimoCarico;
};

// The VAT codes of the archive.
class IvaPopolata final : public TabellaCodiciIva {
public:
    struct Voce {
        std::int32_t id;
        std::string codice, descrizione;
        std::int16_t aliquota;
    };
    explicit IvaPopolata(Connection& cn);
    std::vector<Voce> voci;
    [[nodiscard]] const Voce* perId(std::int32_t id) const;
    [[nodiscard]] const Voce* perCodice(const std::string& codice) const;
    [[nodiscard]] std::string GetCodiceAliquotaIvaFromID(std::int32_t id) const override;
    [[nodiscard]] std::string GetDescrizioneAliquotaIvaFromID(std::int32_t id) const override;
    [[nodiscard]] std::int16_t GetValoreAliquotaIvaFromID(std::int32_t id) const override;
    [[nodiscard]] std::int32_t GetIDAliquotaIvaFromCodice(const std::string& codice) const override;
    [[nodiscard]] std::string GetDescrizioneAliquotaIvaFromCodice(const std::string& codice) const override;
    [[nodiscard]] std::int16_t GetValoreAliquotaIvaFromCodice(const std::string& codice) const override;
    void Refresh() override {}
};

struct Anagrafiche {
    std::vector<ClientePopolato> clienti;
    std::vector<std::int32_t> fornitori;
    std::vector<ArticoloPopolato> articoli;
    struct Pagamento {
        std::int32_t id;
        std::string nome;
        std::vector<int> giorni;
        bool fineMese;
    };
    std::vector<Pagamento> pagamenti;
};

// Writes them and hands them back.
Anagrafiche popolaAnagrafiche(Connection& cn, const IvaPopolata& iva, Caso& caso, int documenti);

}  // namespace bravona
