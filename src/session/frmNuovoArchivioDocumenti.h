#pragma once

#include <array>
#include <cstdint>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// Creates a working year. It is neither selected nor opened.
class frmNuovoArchivioDocumenti final : public Form {
public:
    explicit frmNuovoArchivioDocumenti(Sessione& sessione);

    // The archive has no year yet: giving up ends the process.
    bool ArchivioVuoto = false;

    TextBox txtNuovoArchivio{6};
    SpinButton upCont;
    std::array<Button, 2> cmdNuovoArchivio{Button("&Crea"), Button("&Annulla")};

    void onLoad() override;
    bool onQueryUnload(CloseCause cause) override;

private:
    void Crea();
    bool ArchivioEsistente(std::int16_t anno);
    void terminaProgramma();
    Sessione& sessione_;
};

}  // namespace bravona
