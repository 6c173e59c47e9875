#pragma once

#include <functional>

namespace bravona {

// Runs an action in a process of its own and kills it as it asks the system for its nth change of a file (a write, a
// truncation, a flush, a new name, a removal), from 1: what was asked for then has not happened. True when it was
// killed there, false when the action came to its end before. Throws when the action failed, or the system does not
// let a process be watched.
bool uccidiAllIstante(int istante, const std::function<void()>& azione);

// How many such instants the action has; it runs to its end, in a process of its own. `guarda` sees the files at each
// of them as a kill would leave them.
int istantiDi(const std::function<void()>& azione, const std::function<void(int istante)>& guarda = {});

}  // namespace bravona
