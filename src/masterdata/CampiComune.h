#pragma once

#include <array>
#include <functional>
#include <string>

#include "masterdata/clsComuni.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"

namespace bravona {

// The three boxes of a municipality, shared by the screen for new ones and the one that finds and changes them.
class CampiComune {
public:
    CampiComune();

    std::array<TextBox, 3> txtComune{TextBox{40}, TextBox{4}, TextBox{7}};  // name, province, postcode

    // False when one of them is empty: told under that title, and the first such box gets the focus.
    [[nodiscard]] bool controlla(const std::string& titolo);
    void svuota();
    void mostra(const clsComuni& comune);
    void leggi(clsComuni& comune) const;
    [[nodiscard]] bool vuoti() const;  // all three
    [[nodiscard]] Layout layout();
};

}  // namespace bravona
