#pragma once

#include "platform/reports/Report.h"

namespace bravona {

// The printed due-date ledger, on a sheet laid across: the labels of "H" beside their captions are set at each print.
Report arptScadenzario();

}  // namespace bravona
