#pragma once

#include "platform/reports/Report.h"

namespace bravona {

// A price list. Without a logo `Shape1` frames the title over the whole width.
Report arptListinovb();

}  // namespace bravona
