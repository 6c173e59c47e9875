#pragma once

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// Whether the due dates are checked at the start, and how many days ahead. Closing the window keeps what it shows.
class frmControlloScadenze final : public Form {
public:
    explicit frmControlloScadenze(Sessione& sessione);

    CheckBox Check1{"&Abilita Controllo Scadenze all'avvio"};
    TextBox Text1{6};

    void onLoad() override;
    bool onQueryUnload(CloseCause causa) override;

private:
    Sessione& sessione_;
    Label giorni_{"gg. prima della scadenza"};
};

}  // namespace bravona
