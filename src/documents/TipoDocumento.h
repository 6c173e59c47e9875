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
// In the column of that name 1 is an invoice made from transport documents: a scale of its own.
inline constexpr std::int16_t colonnaFatturaDifferita = 1;
}  // namespace tipo

// Where documents of a kind are kept, and what they are called.
struct TabelleDocumento {
    std::string testata, dettagli;
    std::string chiave;  // of the header; the column of that name in the rows table owns them
    std::string titolo;
};
TabelleDocumento tabelleDocumento(std::int16_t tipoDocumento);

// Whether documents of the kind have instalments of their own.
[[nodiscard]] constexpr bool conScadenze(std::int16_t tipoDocumento)
{
    return tipoDocumento == tipo::fattura || tipoDocumento == tipo::notaCredito || tipoDocumento == tipo::notaDebito;
}

// A screen that derives a document from quotations, told by a word ("FATTURA", "DDT") what to make.
class DocumentoDaProforma {
public:
    virtual ~DocumentoDaProforma() = default;
    virtual void setTipoDocumento(const std::string& tipoDocumento) = 0;
};

}  // namespace bravona
