#pragma once

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// Name and version of the program. Closed by its button, a double click on it or a click on its labels.
class frmAbout final : public Form {
public:
    explicit frmAbout(Sessione& sessione);

    PictureBox picIcona;
    Label lbl2000;
    Label lblProgramVersion;
    Label lblDescrizione{"Fatture, documenti di trasporto, scadenze e magazzino"};
    Button cmdChiudi{"Chiudi"};

    void onDblClick() override { unload(); }
};

}  // namespace bravona
