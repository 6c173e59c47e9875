#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "documents/Documento.h"
#include "documents/TipoDocumento.h"
#include "platform/store/Connection.h"

// Documents between the archive and their values. Writers send one record at a time and begin no transaction; failures
// of the store pass through.
namespace bravona {

// By number, year and register; none when there is no such document.
[[nodiscard]] std::optional<TestataDocumento> leggiTestata(Connection& cn, const TabelleDocumento& tabelle,
                                                           std::int32_t numero, std::int32_t anno,
                                                           std::int32_t registro);
// By its key.
[[nodiscard]] std::optional<TestataDocumento> leggiTestata(Connection& cn, const TabelleDocumento& tabelle,
                                                           std::int32_t idDocumento);
// Of the current record of a set over all columns of a header table.
[[nodiscard]] TestataDocumento leggiTestata(Recordset& record, const TabelleDocumento& tabelle);
[[nodiscard]] std::vector<RigaDocumento> leggiRighe(Connection& cn, const TabelleDocumento& tabelle,
                                                    std::int32_t idDocumento);
// Header, rows and, for kinds that have them, instalments.
[[nodiscard]] std::optional<Documento> leggiDocumento(Connection& cn, std::int16_t tipoDocumento, std::int32_t numero,
                                                      std::int32_t anno, std::int32_t registro);

// Adds a header; its key.
std::int32_t scriviTestata(Connection& cn, const TabelleDocumento& tabelle, const TestataDocumento& testata);
// Over the header of that key. Errore 3021 when it is gone.
void riscriviTestata(Connection& cn, const TabelleDocumento& tabelle, const TestataDocumento& testata);
void scriviRighe(Connection& cn, const TabelleDocumento& tabelle, std::int32_t idDocumento,
                 std::span<const RigaDocumento> righe);
// In place of those that are there; they get keys of their own.
void riscriviRighe(Connection& cn, const TabelleDocumento& tabelle, std::int32_t idDocumento,
                   std::span<const RigaDocumento> righe);

// Links an invoice with the transport documents it was made from, and marks those as invoiced.
void collega(Connection& cn, const TestataDocumento& fattura, std::span<const Documento> ddt);

}  // namespace bravona
