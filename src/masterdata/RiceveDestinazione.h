#pragma once

#include <cstdint>
#include <string>

namespace bravona {

// A screen that a delivery address is chosen for (`frmEmissioneDocumento`, `frmModificaFattura`, `frmModificaDDT`).
class RiceveDestinazione {
public:
    virtual ~RiceveDestinazione() = default;
    virtual void RiceviDestinazione(std::int32_t idDestinazione, const std::string& destinazione) = 0;
};

}  // namespace bravona
