#pragma once

#include "platform/reports/Report.h"

namespace bravona {

// The parties, one block each. `Label1` of "H" is the title.
Report arptElencoClientivb();

}  // namespace bravona
