#pragma once

#include <array>

#include "masterdata/modFunzioniComuni.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "session/Sessione.h"

namespace bravona {

// Names the ten price lists.
class frmDescrizioneListini final : public Form {
public:
    explicit frmDescrizioneListini(Sessione& sessione);

    std::array<TextBox, numeroListini> Text1;
    std::array<Button, 2> Command1{Button("&Registra"), Button("&Annulla")};

    void onLoad() override;
    [[nodiscard]] bool hasUnsavedWork() const override { return variato_; }
    [[nodiscard]] std::string subject() const override { return caption(); }

private:
    void Registra();
    Sessione& sessione_;
    bool variato_ = false;
};

}  // namespace bravona
