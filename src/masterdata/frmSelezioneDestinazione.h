#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Chooses one of a party's delivery addresses for the calling screen, which is found by name and given the choice
// through RiceveDestinazione. Set both properties, then show it modally.
class frmSelezioneDestinazione final : public Form {
public:
    explicit frmSelezioneDestinazione(Sessione& sessione);

    std::int32_t IDCliente = 0;
    std::string FormChiamante;  // "EmissioneFatture", "EmissioneDocumenti", "ModificaFatture", "ModificaBolle"

    ListView lvwDestinazioni;
    std::array<Button, 2> cmdAzioni{Button("&Ok"), Button("&Annulla")};

    void onLoad() override;

private:
    void VisualizzaDestinazione();
    Sessione& sessione_;
};

}  // namespace bravona
