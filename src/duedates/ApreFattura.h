#pragma once

#include <cstdint>

namespace bravona {

// The screen of stored invoices, for the ledger, which does not know it: `frmModificaFattura` by name. Loads the
// invoice and shows nothing by itself.
class ApreFattura {
public:
    virtual ~ApreFattura() = default;
    virtual void ApriFattura(std::int32_t numero, std::int32_t registro, std::int32_t anno) = 0;
};

}  // namespace bravona
