#pragma once

#include <cstdint>

#include "documents/SchermataDocumento.h"
#include "duedates/BloccoScadenze.h"

namespace bravona {

// Composes and registers a new document of any of the five kinds. `TipoDocumento` is set before the screen is shown.
class frmEmissioneDocumento final : public SchermataDocumento {
public:
    explicit frmEmissioneDocumento(Sessione& sessione);

    std::int16_t TipoDocumento = 0;

    BloccoScadenze scadenze;

    void onLoad() override;
    bool onQueryUnload(CloseCause causa) override;
    void onUnload() override;

private:
    Layout disponi();
    void cambiaScheda() override;
    void proponiNumero();
    void RegistraDocumento();
    [[nodiscard]] bool ControllaDatiDocumento();
    [[nodiscard]] bool numeroOccupato(std::int32_t numero);
    [[nodiscard]] bool chiediProgressivo();
    [[nodiscard]] bool scriviDocumento(std::int32_t numero, bool progressivo);
    [[nodiscard]] TestataDocumento testata(std::int32_t numero) const;
    [[nodiscard]] std::string nomeDocumento() const;  // title and number
    void documentoRegistrato();
    void StampaDocumento();
    [[nodiscard]] bool registrato() const { return modo() == ModoDocumento::registrato; }

    TabelleDocumento tabelle_;
    std::int32_t numeroRegistrato_ = 0;
    std::int32_t idRegistrato_ = 0;
};

}  // namespace bravona
