#pragma once

#include "platform/reports/Report.h"

namespace bravona {

inline constexpr int righeFatturaImmediata = 33;

// The invoice that goes with the goods: prices, VAT summary, totals and transport data on one sheet.
Report arptFatturaImmediatavb();

}  // namespace bravona
