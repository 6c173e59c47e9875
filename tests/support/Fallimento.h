#pragma once

#include <cstdint>
#include <utility>

#include "platform/values/Errore.h"

namespace bravona {

/// The number of the failure that `azione` ends in, 0 when it does not fail.
template <typename Azione>
std::uint32_t numeroDelFallimento(Azione&& azione)
{
    try {
        static_cast<void>(std::forward<Azione>(azione)());
    } catch (const Errore& e) {
        return e.numero();
    }
    return 0;
}

}  // namespace bravona
