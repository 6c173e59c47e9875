#pragma once

#include <cstdint>
#include <string>

#include "masterdata/RigaDiTabella.h"

namespace bravona {

// One row of Comuni. The operations tell nobody of a failure.
class clsComuni final : public RigaDiTabella {
public:
    explicit clsComuni(Sessione& sessione) : RigaDiTabella(sessione, "clsComuni") {}

    Esito RegistraComune();  // inserts; `IDCodiceComune` is the new key
    Esito RichiamaComune(std::int32_t id);
    Esito ModificaComune(std::int32_t id);
    Esito EliminaComune(std::int32_t id);

    std::string Cap, Provincia, Comune;
    std::int32_t IDCodiceComune = 0;

private:
    void scrivi(Recordset& record) const override;
};

}  // namespace bravona
