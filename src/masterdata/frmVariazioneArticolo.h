#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "masterdata/SchedaArticolo.h"

namespace bravona {

// Finds an article and changes it.
class frmVariazioneArticolo final : public SchedaArticolo {
public:
    explicit frmVariazioneArticolo(Sessione& sessione);

    TextBox txtChiaveRicerca{24};
    ComboBox cboCampoDiRicerca;
    Button cmdClearPicture{"&Elimina immagine"};
    std::array<Button, 3> cmdAzioni{Button("&Aggiorna"), Button("&Chiudi"), Button("&Nuovo...")};

    void onLoad() override;
    void onKeyDown(KeyEvent& evento) override;

private:
    [[nodiscard]] std::vector<const Control*> campiDiRicerca() const override
    {
        return {&txtChiaveRicerca, &cboCampoDiRicerca};
    }
    void cerca();
    void tornaAllaRicerca();
    void VisualizzaArticolo(std::int32_t id);
    void Aggiorna();
    bool VariazioneArticoloEsistente();
};

}  // namespace bravona
