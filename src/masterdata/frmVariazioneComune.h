#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "masterdata/CampiComune.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Finds and changes municipalities, or, with `onInserisci` set before it is shown, hands one to the screen that asked.
class frmVariazioneComune final : public Form {
public:
    explicit frmVariazioneComune(Sessione& sessione);

    std::int32_t IDCodiceComune = 0;  // above 0: the row to open on
    std::function<void(const clsComuni&)> onInserisci;

    ComboBox cboCampoDiRicerca;
    TextBox txtCercaComune{24};
    CampiComune campi;
    std::array<Button, 3> cmdComune{Button("&Aggiorna"), Button("&Esci"), Button("&Nuovo")};
    Button Command1{"Inserisce"};

    void onLoad() override;
    void onKeyDown(KeyEvent& evento) override;
    [[nodiscard]] bool hasUnsavedWork() const override { return contenuto() != comeMostrati_; }
    [[nodiscard]] std::string subject() const override;

private:
    [[nodiscard]] std::string contenuto() const { return fieldContents({&cboCampoDiRicerca, &txtCercaComune}); }
    void Ricerca();
    void Aggiorna();
    void Inserisce();
    void pulisci();
    Sessione& sessione_;
    Label lblRicerca_{"Premi F3 per la Ricerca"};
    std::string comeMostrati_;   // the fields before anybody typed
    std::int32_t caricato_ = 0;  // key of the row on the screen, 0: none
};

}  // namespace bravona
