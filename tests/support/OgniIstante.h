#pragma once

#include <functional>

#include "support/ProgrammaDiProva.h"

namespace bravona {

// Kills the action at each operation of the engine on the archive in turn, before it and in the middle of a write, in a
// process of its own. `guarda` sees the archive as each kill left it, and as the action that came to its end did; the
// archive is put back every time. Call ScritturaUccisa::installa before the program is made. How many kills there were.
int uccidiAOgniIstante(ProgrammaDiProva& programma, const std::function<void()>& azione,
                       const std::function<void(Connection&)>& guarda);

}  // namespace bravona
