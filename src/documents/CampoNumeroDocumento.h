#pragma once

#include <cstdint>
#include <optional>

#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"

namespace bravona {

// Where the number of a document is typed.
class CampoNumeroDocumento final : public ControlGroup {
public:
    CampoNumeroDocumento();

    TextBox txtNumeroDocumento{10};

    // Nothing, after having told it, when it is no number or too big for a document's.
    [[nodiscard]] std::optional<std::int32_t> numero();
    [[nodiscard]] Layout linea();  // of a form
};

}  // namespace bravona
