#pragma once

#include <functional>
#include <string>

#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// The one top-level window: maps menu commands to screens, guards those that need the archive idle, and runs the check
// of due dates at the start. Commands whose screen is not known stand disabled.
class frmMain final : public Form {
public:
    explicit frmMain(Sessione& sessione);

    void onLoad() override;
    void onActivate() override;
    bool onQueryUnload(CloseCause cause) override;
    void onDblClick() override;

private:
    enum class Apertura { figlia, modale };

    void creaMenu();
    void creaMenuFile();
    void creaMenuAnagrafiche();
    void creaMenuDocumenti();
    Menu& voce(Menu& menu, const char* nome, const char* testo, const char* schermata, Apertura apertura);
    Menu& voce(Menu& menu, const char* nome, const char* testo, bool disponibile, std::function<void()> azione);
    void apri(const std::string& schermata, Apertura apertura);
    // With no other window loaded runs the command, otherwise says why not.
    void custodito(const std::string& rifiuto, const std::function<void()>& comando);
    void PercorsoArchivio();

    Sessione& sessione_;
    bool AllarmeInSospeso = false;
};

}  // namespace bravona
