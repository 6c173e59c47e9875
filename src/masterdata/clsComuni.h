#pragma once

#include <cstdint>
#include <string>

#include "masterdata/RigaDiTabella.h"

namespace bravona {

// One row of Comuni. The operations answer false after having told the person why.
class clsComuni final : public RigaDiTabella {
public:
    explicit clsComuni(Sessione& sessione) : RigaDiTabella(sessione, "clsComuni") {}

    bool RegistraComune();  // inserts; `IDCodiceComune` is the new key
    bool RichiamaComune(std::int32_t id);
    bool ModificaComune(std::int32_t id);
    bool EliminaComune(std::int32_t id);

    std::string Cap, Provincia, Comune;
    std::int32_t IDCodiceComune = 0;

private:
    void scrivi(Recordset& record) const override;
};

}  // namespace bravona
