#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// The register of documents, chosen in a combo.
class SceltaRegistro final : public ControlGroup {
public:
    SceltaRegistro();

    ComboBox cmbRegistro;
    std::function<void()> registroCambiato;  // not told while the combo is filled

    // Fills the combo and chooses the first register.
    void carica(const Sessione& sessione);
    [[nodiscard]] std::int32_t registro() const { return cmbRegistro.itemData(); }  // Errore 9 without one
    // As it stands in a statement.
    [[nodiscard]] std::string testo() const { return std::to_string(registro()); }
    [[nodiscard]] Layout linea();  // of a form
};

}  // namespace bravona
