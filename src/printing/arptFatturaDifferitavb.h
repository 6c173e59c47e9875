#pragma once

#include "platform/reports/Report.h"

namespace bravona {

inline constexpr int righeFatturaDifferita = 39;

// The invoice made from transport documents; also credit and debit notes, under another title.
Report arptFatturaDifferitavb();

}  // namespace bravona
