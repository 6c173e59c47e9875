#pragma once

#include "documents/clsCalcoli.h"

namespace bravona {

// The totals of goods received: those of a sale, but for one VAT group without a code.
class clsCalcoliMagazzino final : public clsCalcoli {
public:
    explicit clsCalcoliMagazzino(const TabellaCodiciIva& tabellaIva) : clsCalcoli(tabellaIva, Gruppi::unico) {}
};

}  // namespace bravona
