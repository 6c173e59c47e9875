#pragma once

#include <cstdint>
#include <string>

namespace bravona {

// The VAT codes in memory, as every subsystem asks for them. Look-ups stop at the first match and compare codes
// exactly; what is not found gives the empty text or 0.
class TabellaCodiciIva {
public:
    virtual ~TabellaCodiciIva() = default;
    [[nodiscard]] virtual std::string GetCodiceAliquotaIvaFromID(std::int32_t id) const = 0;
    [[nodiscard]] virtual std::string GetDescrizioneAliquotaIvaFromID(std::int32_t id) const = 0;
    [[nodiscard]] virtual std::int16_t GetValoreAliquotaIvaFromID(std::int32_t id) const = 0;  // whole percent
    [[nodiscard]] virtual std::int32_t GetIDAliquotaIvaFromCodice(const std::string& codice) const = 0;
    [[nodiscard]] virtual std::string GetDescrizioneAliquotaIvaFromCodice(const std::string& codice) const = 0;
    [[nodiscard]] virtual std::int16_t GetValoreAliquotaIvaFromCodice(
        const std::string& codice) const = 0;  // whole percent
    virtual void Refresh() = 0;                // reads the table again
};

}  // namespace bravona
