#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "masterdata/Esito.h"
#include "platform/values/Currency.h"
#include "session/Sessione.h"
#include "session/TabellaCodiciIva.h"

namespace bravona {

class ListView;

// The VAT table in memory, in the order of its keys. Making it reads the archive. A writer that fails leaves the
// table in memory unchanged.
class clsTabellaCodiciIVA final : public TabellaCodiciIva {
public:
    struct Codice {
        std::string CodiceIva;
        std::int16_t AliquotaIva = 0;  // percent, cut to a whole one
        std::string Descrizione;
        std::int32_t IDCodiceIva = 0;
    };

    explicit clsTabellaCodiciIVA(Sessione& sessione);

    Esito AddCodiceIVA(const std::string& codice, Currency aliquota, const std::string& descrizione);
    Esito RemoveAliquotaIVA(std::int32_t id);
    Esito SetDescrizioneAliquotaIVA(std::int32_t id, const std::string& descrizione);

    [[nodiscard]] std::string GetCodiceAliquotaIvaFromID(std::int32_t id) const override;
    [[nodiscard]] std::string GetDescrizioneAliquotaIvaFromID(std::int32_t id) const override;
    [[nodiscard]] std::int16_t GetValoreAliquotaIvaFromID(std::int32_t id) const override;
    [[nodiscard]] std::int32_t GetIDAliquotaIvaFromCodice(const std::string& codice) const override;
    [[nodiscard]] std::string GetDescrizioneAliquotaIvaFromCodice(const std::string& codice) const override;
    [[nodiscard]] std::int16_t GetValoreAliquotaIvaFromCodice(const std::string& codice) const override;

    // One row a code: the code, with the key "c" and its id, the rate, the description.
    void VisualizzaTabellaIvaSuListView(ListView& lista) const;
    void Refresh() override;

private:
    struct Rifiuto {
        std::uint32_t numero;
        const char* messaggio;
        const char* modulo;  // of the general message
        const char* routine;
    };
    Esito scrivi(const std::string& istruzione, const Rifiuto& rifiuto);
    [[nodiscard]] const Codice* daID(std::int32_t id) const;
    [[nodiscard]] const Codice* daCodice(const std::string& codice) const;

    Sessione& sessione_;
    std::vector<Codice> codici_;
};

// The session's table with its writers. Errore 91 before the start has made it.
clsTabellaCodiciIVA& TabellaIvaDi(const Sessione& sessione);

}  // namespace bravona
