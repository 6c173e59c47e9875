#pragma once

#include "platform/reports/Report.h"

namespace bravona {

inline constexpr int righeFatturaProforma = 39;

// The quotation.
Report arptFatturaProformavb();

}  // namespace bravona
