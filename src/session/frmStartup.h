#pragma once

#include <string>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Chooses the reference year among the archive's years.
class frmStartup final : public Form {
public:
    explicit frmStartup(Sessione& sessione);

    // "Main" when the main window opened it; from anywhere else, giving up offers to end the program.
    std::string FormChiamante;

    ComboBox cmbArchivi;
    Button cmdAzioni{"&Apri"};
    Button cmdEnd{"&Annulla"};

    void onLoad() override;
    bool onQueryUnload(CloseCause cause) override;

private:
    void Apri();
    bool consenteAnnullamento();
    Sessione& sessione_;
};

}  // namespace bravona
