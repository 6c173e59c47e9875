#pragma once

#include <cstdint>
#include <string>

namespace bravona {

// Kinds of a document, as the screens pass them.
namespace tipo {
inline constexpr std::int16_t ddt = 1;
inline constexpr std::int16_t fattura = 2;
inline constexpr std::int16_t proforma = 3;
inline constexpr std::int16_t notaCredito = 4;
inline constexpr std::int16_t notaDebito = 5;
}  // namespace tipo

// A screen that derives a document from quotations, told by a word ("FATTURA", "DDT") what to make.
class DocumentoDaProforma {
public:
    virtual ~DocumentoDaProforma() = default;
    virtual void setTipoDocumento(const std::string& tipoDocumento) = 0;
};

}  // namespace bravona
