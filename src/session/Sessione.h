#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/clock/Clock.h"
#include "platform/files/Files.h"
#include "platform/settings/Settings.h"
#include "platform/store/Connection.h"
#include "platform/windowing/Desktop.h"
#include "session/TabellaCodiciIva.h"

namespace bravona {

// What the host gives to a session. Outlives it.
struct Ambiente {
    Desktop& desktop;
    Settings& settings;
    Clock& clock;
    Files& files;
    std::string cartellaProgramma;  // without a separator at its end
};

struct Versione {
    int maggiore = 1;
    int minore = 0;
    int revisione = 0;
};
inline constexpr Versione versioneProgramma{1, 0, 0};

// The first row of DatiAzienda, a Null as the empty text.
struct DatiDitta {
    std::string RagioneSocialeRiga1, RagioneSocialeRiga2, Indirizzo, Citta, Provincia, Cap, Telefono, Fax, TipoStampa,
        PercorsoImmagineLogo, PartitaIva;
};

// Commands of the main window that are no screen. Whoever has one puts it here; the entries of the others stand
// disabled.
struct Comandi {
    std::function<void()> CompattaArchivio;
    // At the start: whether one could be made with this archive (Errore when not), and a backup put in place.
    std::function<void(const std::string& percorso)> ProvaAvvio;
    std::function<std::string(const std::string& backup)> RipristinaAllAvvio;  // the archive's path
    std::function<void()> StampaElencoClienti;
    std::function<void()> StampaElencoFornitori;
};

// What is process-wide. Made once, handed by reference to every screen; tests hold several side by side.
class Sessione {
public:
    explicit Sessione(Ambiente ambiente) : ambiente_(std::move(ambiente)) {}
    Sessione(const Sessione&) = delete;
    Sessione& operator=(const Sessione&) = delete;

    Connection cn;  // the single connection to the archive
    std::string PercorsoArchivio;
    std::string AnnoRiferimento = "0";  // decimal text, concatenated into statements
    bool OmbreggiaturaAttiva = false;   // the border of the company's logo
    std::int32_t ColoreSfondo = 0;
    bravona::DatiDitta DatiDitta;
    std::vector<std::string> ElencoRegistri{std::string()};  // from index 1: "(1) - Principale"
    std::unique_ptr<TabellaCodiciIva> TabellaIva;
    std::string TipoAnagraficaCorrente = "C";  // "C" customers or "F" suppliers, for the search by name
    std::int32_t SelezioneRecord = -2;         // answers of the pick-lists
    std::int32_t SelezioneArticolo = -2;
    bravona::Comandi Comandi;

    [[nodiscard]] Desktop& desktop() const { return ambiente_.desktop; }
    [[nodiscard]] Schermate& schermate() const { return ambiente_.desktop.screens(); }
    [[nodiscard]] Settings& settings() const { return ambiente_.settings; }
    [[nodiscard]] Clock& clock() const { return ambiente_.clock; }
    [[nodiscard]] Files& files() const { return ambiente_.files; }
    [[nodiscard]] const std::string& cartellaProgramma() const { return ambiente_.cartellaProgramma; }

private:
    Ambiente ambiente_;
};

}  // namespace bravona
