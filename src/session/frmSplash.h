#pragma once

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// The program's picture, for a second.
class frmSplash final : public Form {
public:
    static constexpr int durata = 1000;  // ms
    explicit frmSplash(Sessione& sessione);

    PictureBox picSplash;
    Label lblNome{"Bravona"};
    Label lblVersione;
    Timer Timer1;

    void onLoad() override;
    void onDblClick() override { unload(); }
};

}  // namespace bravona
