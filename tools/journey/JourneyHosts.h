#pragma once

#include <memory>

#include "support/journey/JourneyHost.h"

namespace bravona {

// The host of real windows; made in its own file, the only one of this tool that knows the toolkit.
std::unique_ptr<JourneyHost> makeQtHost(int& argc, char** argv);

}  // namespace bravona
