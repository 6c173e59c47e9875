#pragma once

#include <filesystem>
#include <functional>

#include "platform/store/Connection.h"

namespace bravona {

// Runs an action on an open archive again and again, each time in a process of its own that is killed one operation of
// the engine later, before it or in the middle of its write, up to the time when it comes to its end; `guarda` opens
// what was left. The archive itself is as before afterwards. `ScritturaUccisa::installa` goes before the archive is
// opened. Throws when the action failed.
void adOgniIstante(const std::filesystem::path& archivio, const std::function<void()>& azione,
                   const std::function<void(Connection& rimasto, int istante)>& guarda);

}  // namespace bravona
