#pragma once

#include <cstdint>
#include <string>

#include "session/Sessione.h"

namespace bravona {

// Whether an invoice goes to this destination. Transport documents are not asked.
bool DestinazioneMerceUtilizzata(Sessione& sessione, std::int32_t id);
// The destination's name: "IDEM" for 0, the empty text for one that is not there.
std::string RilevaDestinazioneMerce(Sessione& sessione, std::int32_t id);

}  // namespace bravona
