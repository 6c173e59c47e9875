#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// One letter for the kind of transport, and its wording.
struct CausaleTrasporto {
    std::string Tipo, testo;
};

// Register, number, date, exemption and reason for transport of a document.
class BloccoIntestazione final : public ControlGroup {
public:
    BloccoIntestazione();

    Frame fraIntestazioneDocumento{"Documento"};
    ComboBox cmbRegistro;
    TextBox txtNumeroDocumento{8};
    DatePicker dtpDataDocumento;
    TextBox txtEsenzioneIVA{40};
    Label lblEsenteIva;
    Label lblAvvisoData;  // what is odd about the date
    Frame fraCausale{"Causale DDT"};
    std::array<OptionButton, 5> optTipoBolla{OptionButton{"Vendita"}, OptionButton{"Reso"}, OptionButton{"Campione"},
                                             OptionButton{"Visione"}, OptionButton{"Altro"}};
    TextBox txtAltro{24};

    // The reason for transport that is lit. A wording of one's own stands as it was typed.
    [[nodiscard]] CausaleTrasporto causale() const;
    // Lights the reason of that letter, the first one for a letter that is none.
    void mostraCausale(const CausaleTrasporto& causale);
    [[nodiscard]] bool causaleMancante() const;  // "Altro" without a wording

    // Between 1 and 999,999,999; none for anything else.
    [[nodiscard]] std::optional<std::int32_t> numero() const;
    [[nodiscard]] std::int32_t registro() const { return cmbRegistro.itemData(); }
    [[nodiscard]] Layout layout();
};

}  // namespace bravona
