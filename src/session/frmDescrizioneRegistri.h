#pragma once

#include "platform/store/Recordset.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Grids.h"
#include "session/Sessione.h"

namespace bravona {

// Names the registers but for the main one. Closing it, in any way, saves.
class frmDescrizioneRegistri final : public Form {
public:
    explicit frmDescrizioneRegistri(Sessione& sessione);

    DataGrid DataGrid1;
    Button Command1{"Esci"};

    void onLoad() override;
    bool onQueryUnload(CloseCause cause) override;

private:
    bool registra();  // false when what was typed was refused; it can be mended then
    Sessione& sessione_;
    Recordset registri_;
};

}  // namespace bravona
