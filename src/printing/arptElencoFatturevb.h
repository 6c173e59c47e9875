#pragma once

#include "platform/reports/Report.h"

namespace bravona {

// The year's summary of invoices: `lblTitolo` of "H", the totals of "F" are set at each print.
Report arptElencoFatturevb();

}  // namespace bravona
