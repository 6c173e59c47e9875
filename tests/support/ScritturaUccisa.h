#pragma once

namespace bravona {

// Kills the process at a chosen operation of the engine on its files (a write, a truncation, a synchronisation, a
// deletion), so that a test can enumerate every instant of a transaction. Connections opened after `installa` are
// watched.
class ScritturaUccisa {
public:
    enum class Modo {
        prima,  // before the operation
        mezza   // in the middle of a write: its first half reaches the file
    };
    static void installa();
    // The process dies at the nth operation from now on, from 1; 0 disarms.
    static void arma(int operazione, Modo modo);
};

}  // namespace bravona
