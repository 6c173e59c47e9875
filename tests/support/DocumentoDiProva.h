#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/reports/Report.h"
#include "platform/store/Recordset.h"
#include "printing/RecordsetStampa.h"

namespace bravona {

/// A document query as the prints read it: the same header in each row, and the rows of a document. All columns are
/// texts.
struct DocumentoDiProva {
    int righe = 1;
    bool lunghi = false;                                          // every text as long as a column takes
    bool milioni = false;                                         // amounts of hundreds of millions
    int aliquote = 1;                                             // VAT codes in use
    std::vector<std::pair<std::string, std::string>> altri = {};  // columns to set otherwise

    [[nodiscard]] Recordset apri() const;
    // Its columns with what they hold in the first row.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> colonne() const;
};

/// The design's pages for that document, for a firm whose texts are as long as the document's.
Pages pagineDi(const Report& report, int righePerPagina, const DocumentoDiProva& documento);

}  // namespace bravona
