#include "program/CartellaProgramma.h"

#include <cstdlib>
#include <filesystem>

#include "platform/store/Connection.h"
#include "platform/values/Errore.h"

namespace bravona {

namespace {

namespace fs = std::filesystem;

void copiaMancanti(Files& files, const fs::path& da, const fs::path& a)
{
    std::error_code errore;
    for (fs::recursive_directory_iterator voce(da, errore); !errore && voce != fs::recursive_directory_iterator();
         voce.increment(errore)) {
        const fs::path destinazione = a / fs::relative(voce->path(), da);
        std::error_code ignorato;
        if (voce->is_directory(ignorato)) {
            files.makeFolder(destinazione.string());
        } else if (!files.exists(destinazione.string())) {
            files.copy(voce->path().string(), destinazione.string());
        }
    }
}

// Also what an earlier program has left there under the user's mask.
void soloDelProprietario(const fs::path& radice)
{
    Files::makeOwnerOnly(radice.string());
    Files::makeOwnerOnly((radice / "temp_db.mdb").string());
    std::error_code errore;
    for (fs::directory_iterator voce(radice / "Database", errore); !errore && voce != fs::directory_iterator();
         voce.increment(errore)) {
        Files::makeOwnerOnly(voce->path().string());
    }
}

}  // namespace

void preparaCartellaProgramma(Files& files, const std::string& cartella, const std::string& fornita,
                              bool archivioScelto)
{
    const fs::path radice(cartella);
    const fs::path archivio = radice / "Database" / "DBBVEURO.mdb";
    const fs::path collegamento = radice / "dbbveuro.mdb";
    for (const char* nome : {"Database", "images", "logo"}) {
        files.makeFolder((radice / nome).string());
        if (nome != std::string("Database") && files.folderExists((fs::path(fornita) / nome).string())) {
            copiaMancanti(files, fs::path(fornita) / nome, radice / nome);
        }
    }
    if (!archivioScelto && !files.exists(archivio.string())) {
        // Of an archive that was taken away, it would be played into this one.
        Connection::discardJournal(archivio.string());
        files.copy((fs::path(fornita) / "Database" / "DBBVEURO.mdb").string(), archivio.string(),
                   {.ownerOnly = true, .earlier = {}});
    }
    soloDelProprietario(radice);
    // One archive under two names, so that both speak of the same file.
    std::error_code errore;
    if (fs::symlink_status(collegamento, errore).type() == fs::file_type::not_found) {
        fs::create_symlink(fs::path("Database") / "DBBVEURO.mdb", collegamento, errore);
        if (errore) {
            throw Errore(errori::permessoNegato, "Permesso negato: " + collegamento.string());
        }
    }
}

std::string cartellaProgrammaUtente()
{
    const auto variabile = [](const char* nome) {
        const char* valore = std::getenv(nome);
        return fs::path(valore != nullptr ? valore : "");
    };
    const fs::path dati = variabile("XDG_DATA_HOME");
    const fs::path radice = dati.is_absolute() ? dati : variabile("HOME") / ".local" / "share";
    return (radice / "bravona").string();
}

}  // namespace bravona
