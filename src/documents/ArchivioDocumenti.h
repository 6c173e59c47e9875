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
// Header, rows and, of all but transport documents, instalments.
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

// Quotations count their keys apart from invoices, whose instalments stand under the same column; one from before that
// may have a key that an invoice has or will get. Whether an invoice has it: the instalments there are the invoice's.
[[nodiscard]] bool chiaveDiFattura(Connection& cn, std::int32_t idProforma);
// Before instalments are written for a quotation: its key, which no invoice has or gets from now on. It is a new one
// for a quotation whose key an invoice has.
[[nodiscard]] std::int32_t separaDalleFatture(Connection& cn, std::int32_t idProforma);

// Links an invoice with the transport documents it was made from, and marks those as invoiced.
void collega(Connection& cn, const TestataDocumento& fattura, std::span<const Documento> ddt);

}  // namespace bravona
