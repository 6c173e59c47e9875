#pragma once

#include <functional>
#include <string>

#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Which invoices and notes a list is made of: one customer, one month, one register, and their kinds, of which one
// stays ticked at least.
class FiltriFatture final : public ControlGroup {
public:
    explicit FiltriFatture(Sessione& sessione);

    ComboBox cmbCliente;
    ComboBox cmbPeriodo;
    ComboBox cmbRegistro;
    CheckBox chkFatture{"Includi &Fatture"};
    CheckBox chkNoteCredito{"Includi &note di Credito"};
    CheckBox chkNoteDebito{"Includi Note di &Debito"};

    // Another choice was made, by hand or by code.
    std::function<void()> cambiato;

    // Fills the combos, each on its first item, and ticks all kinds, without an event. `clienti` gives the columns
    // IDCliente and Cliente; `tuttiRegistri` puts "Tutti i Registri" before the registers.
    void carica(const std::string& clienti, bool tuttiRegistri);

    // The choices as conditions of a statement over Fatture, each begun by " AND "; empty where there is none.
    [[nodiscard]] std::string diCliente() const;
    [[nodiscard]] std::string diPeriodo() const;
    [[nodiscard]] std::string diRegistro() const;
    [[nodiscard]] std::string diTipo() const;

    [[nodiscard]] Layout layout();

private:
    void scelto();
    void scelto(CheckBox& tipo);

    Sessione& sessione_;
    bool tuttiRegistri_ = false;
    bool carica_ = false;
};

}  // namespace bravona
