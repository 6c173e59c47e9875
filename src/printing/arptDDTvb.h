#pragma once

#include "platform/reports/Report.h"

namespace bravona {

inline constexpr int righeDDT = 39;

// The transport document: goods without prices, transport data, carriers and signatures.
Report arptDDTvb();

}  // namespace bravona
