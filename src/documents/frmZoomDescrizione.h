#pragma once

#include "platform/windowing/Fields.h"
#include "session/Sessione.h"

namespace bravona {

// A text of a field in a large box, several lines of it if need be.
class frmZoomDescrizione final : public Form {
public:
    explicit frmZoomDescrizione(Sessione& sessione);

    TextBox Text1{60};
    Button cmdOk{"&Ok"};
    Button cmdAnnulla{"Annulla"};

    // The field whose text is shown, and which takes it back by "&Ok".
    void setControlloChiamante(TextBox& controllo);

private:
    TextBox* controlloChiamante_ = nullptr;
};

}  // namespace bravona
