#pragma once

#include <cstdint>
#include <string>

#include "platform/reports/Report.h"
#include "platform/store/Recordset.h"
#include "session/Sessione.h"

namespace bravona {

// Prints of stored documents of the reference year: the document is read, poured into pages and shown in a preview,
// from which it is printed or saved. Errore 3021 for a document that does not exist (a transport document without rows
// counts as such).
void StampaDDT(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro);
void StampaFatturaImmediata(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro);  // modal
void StampaFatturaProforma(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro);
// `titolo` replaces "FATTURA" when it is not empty.
void StampaFatturaDifferita(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro,
                            const std::string& titolo);

// A print before it is shown: the design as this print changed it, and the paginated data that it is bound to.
struct StampaDocumento {
    Report report;
    Recordset dati;
    std::string nomeFile;  // offered for the PDF, without ending
};
StampaDocumento PreparaDDT(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro);
StampaDocumento PreparaFatturaImmediata(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro);
StampaDocumento PreparaFatturaProforma(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro);
StampaDocumento PreparaFatturaDifferita(Sessione& sessione, std::int32_t NumeroDocumento, std::int16_t NumeroRegistro,
                                        const std::string& titolo);

// In section "H": the logo of the program folder in place of the firm's name and address, where there is one; looked
// for anew at each print.
void ImpostaLogoDocumento(const Sessione& sessione, Report& report);

}  // namespace bravona
