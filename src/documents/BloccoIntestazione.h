#pragma once

#include <array>
#include <functional>
#include <string>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// Register, number, date, exemption and reason for transport of a new document.
class BloccoIntestazione {
public:
    BloccoIntestazione();

    Frame fraIntestazioneDocumento{"Documento"};
    ComboBox cmbRegistro;
    TextBox txtNumeroDocumento{8};
    DatePicker dtpDataDocumento;
    TextBox txtEsenzioneIVA{40};
    Label lblEsenteIva;
    Frame fraCausale{"Causale DDT"};
    std::array<OptionButton, 5> optTipoBolla{OptionButton{"Vendita"}, OptionButton{"Reso"}, OptionButton{"Campione"},
                                             OptionButton{"Visione"}, OptionButton{"Altro"}};
    TextBox txtAltro{24};

    // One letter for the kind of transport, and the wording behind it.
    [[nodiscard]] std::string CausaleDocumento() const;
    [[nodiscard]] bool causaleMancante() const;  // "Altro" without a wording

    void registra(const std::function<void(const std::string&, Control&, int)>& aggiungi);
    [[nodiscard]] Layout layout();
};

}  // namespace bravona
