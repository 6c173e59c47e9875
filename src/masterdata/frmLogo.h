#pragma once

#include <string>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// The logo of the printed documents: shown, chosen from a file, deleted.
class frmLogo final : public Form {
public:
    explicit frmLogo(Sessione& sessione);

    Frame picMain;
    PictureBox picLogo;
    PictureBox picShadow;  // behind the logo, drawn with it
    Label lblMessaggio{"Nessun logo definito"};
    Label lblDimensioni{"Dimensioni massime: Larghezza 290 pixel, Altezza 140 pixel"};
    CheckBox chkBordo{"&Bordo"};
    Button cmdSfoglia{"&Sfoglia"};
    Button cmdDelete{"&Elimina logo"};
    Button cmdOk{"&Chiudi"};

    bool LogoVariato = false;  // another file was chosen and is only shown so far

    void onLoad() override;
    bool onQueryUnload(CloseCause cause) override;
    void onUnload() override;

private:
    [[nodiscard]] std::string fileLogo() const;
    void VisualizzaLogo(const std::string& nome);  // "-" stands for the logo in use
    void mostra(bool logo);
    void mostraBordo();
    void sfoglia();
    void elimina();
    Sessione& sessione_;
    std::string scelto_;
};

}  // namespace bravona
