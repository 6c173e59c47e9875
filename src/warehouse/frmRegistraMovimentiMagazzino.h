#pragma once

#include "warehouse/SchermataMovimento.h"

namespace bravona {

// Records goods received, under the supplier's number.
class frmRegistraMovimentiMagazzino final : public SchermataMovimento {
public:
    explicit frmRegistraMovimentiMagazzino(Sessione& sessione);

    void onLoad() override;
    bool onQueryUnload(CloseCause causa) override;

private:
    void RegistraDocumento();
    [[nodiscard]] bool numeroAccettato(std::int32_t& numero);
    bool registrato_ = false;
};

}  // namespace bravona
