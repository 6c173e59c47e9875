#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "documents/Documento.h"

// A document made from others. Nothing is reckoned anew: amounts are copied or added. Number, register and year are the
// caller's; instalments are made from the new document's payment method afterwards.
namespace bravona {

// What every new document is told.
struct NuovoDocumento {
    std::int32_t numero = 0;
    std::int32_t registro = 1;
    std::int32_t anno = 0;
    Date data;
};

// The rows of a transport document as its invoice carries them: a line that names it, then its rows without the
// comments meant for it alone; comments meant for every document become the invoice's own.
[[nodiscard]] std::vector<RigaDocumento> righeRiportate(const Documento& ddt);

// One deferred invoice of one or more transport documents of a customer. Customer, payment method and exemption are the
// last one's. A sixth VAT code finds no group; the totals hold it all the same.
[[nodiscard]] Documento fatturaDaDDT(std::span<const Documento> ddt, const NuovoDocumento& nuovo);

// Copies of a quotation.
[[nodiscard]] Documento fatturaDaProforma(const Documento& proforma, const NuovoDocumento& nuovo);
[[nodiscard]] Documento ddtDaProforma(const Documento& proforma, const NuovoDocumento& nuovo);

}  // namespace bravona
