#pragma once

#include <string>

namespace bravona {

// What the start asks the due-date ledger (`frmScadenze`) when the check at the start is on. Loading it runs its
// search.
class ScadenzeInArrivo {
public:
    virtual ~ScadenzeInArrivo() = default;
    // The count of instalments found, as its label shows it; "0" for none.
    [[nodiscard]] virtual std::string TotaleDocumenti() const = 0;
};

}  // namespace bravona
