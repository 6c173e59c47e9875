#pragma once

#include "warehouse/SchermataMovimento.h"

namespace bravona {

// Shows goods received and lets them be changed; the stock is corrected by the differences.
class frmModificaMovimentiMagazzino final : public SchermataMovimento {
public:
    explicit frmModificaMovimentiMagazzino(Sessione& sessione);

    // The receipt, read-only. False when the person keeps the one being changed. Errore 3021 when it is not there.
    bool CaricaMovimento(std::int32_t idMovimenti);
    // After a change was stored.
    std::function<void()> cambiato;

    void onLoad() override;
    bool onQueryUnload(CloseCause causa) override;

private:
    enum class Modo { lettura, modifica, aggiornato };
    void carica(std::int32_t idMovimenti);
    void modifica();
    void RegistraDocumento();
    void annulla();
    [[nodiscard]] bool abbandona();  // asks where something is being changed
    void impostaModo(Modo modo);

    Movimento vecchio_;  // as it was loaded; rows are paired by their place
    Modo modo_ = Modo::lettura;
};

}  // namespace bravona
