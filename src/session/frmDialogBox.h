#pragma once

#include <string>

#include "platform/windowing/Events.h"
#include "session/Sessione.h"

namespace bravona {

// The dialogs for files and colours that screens share. The empty text when cancelled.
class frmDialogBox {
public:
    explicit frmDialogBox(Sessione& sessione) : sessione_(sessione) {}
    std::string SelezioneImmagineArticolo();
    std::string SelezioneDBBV2000();
    std::string SelezioneDB();
    std::string SelezioneDBoBackup();  // at the start: an archive, or a backup to restore
    // Cancelled: the colour that it started with.
    Colour SelezioneColore(Colour iniziale);

private:
    std::string apri(const std::string& titolo, const std::string& cartella, const std::string& filtro);
    Sessione& sessione_;
};

}  // namespace bravona
