#pragma once

#include <functional>
#include <string>

#include "maintenance/clsHuffman.h"
#include "session/Sessione.h"

namespace bravona {

// The archive as a file. An archive in use is replaced in one step or not at all: at whatever instant the machine
// stops, it holds the old one or the new one, whole. Each operation closes the session's connection while it touches
// the file and has it open again afterwards, however it ends. Opening it may fail: that is told by itself, after what
// the work has come to, and the work stands. Windows are painted meanwhile.

// Tells the person what was achieved, as soon as it is; the connection is opened again when it has been read.
using Racconto = std::function<void(const clsHuffman::Esito& esito)>;

// The database that a backup reads and a restore replaces, wherever the archive in use lies.
std::string percorsoDatabase(const Sessione& sessione);

// Whether that is the archive in use.
bool archivioDelProgrammaInUso(const Sessione& sessione);

// Packs the database into `destinazione`. Errore 3031 when it is no archive, 3049 when it is damaged, 3218 when another
// program is changing it, 75 when the destination is an archive in use, and those of the codec and the files; what was
// at the destination is then as it was.
clsHuffman::Esito SalvaArchivio(Sessione& sessione, const clsHuffman& huffman, const std::string& destinazione,
                                const Racconto& racconto = {});

// Where a restore keeps the archive that it has replaced.
std::string percorsoPrecedente(const Sessione& sessione);

// The names under which earlier backups stand beside a new one, the latest first.
std::vector<std::string> backupPrecedenti(const std::string& destinazione);

// Puts the original of a backup in the place of the database, which is kept as `percorsoPrecedente`, and reads what the
// session keeps of it again. Errore of the codec and the files; 3031 when the original is no archive from which the
// program can start, 3049 when it is damaged, 75 when the archive in use is one of the restore's own working files:
// nothing has changed then. A failure of the replacement itself leaves the original beside the database, until the next
// restore, but for a full disk.
clsHuffman::Esito RipristinaArchivio(Sessione& sessione, const clsHuffman& huffman, const std::string& sorgente,
                                     const Racconto& racconto = {});

// The same at the start, while no archive is open.
void RipristinaAllAvvio(Sessione& sessione, const std::string& sorgente);

// Opens an archive and reads all that a start reads. Errore as a start would end with, 3049 for damage anywhere.
void ProvaAvvio(const Sessione& sessione, const std::string& file);

// Rewrites the archive in use without its dead space, and tells how it went.
void CompattaArchivio(Sessione& sessione);

// "65.536"
std::string testoByte(std::uint64_t byte);

}  // namespace bravona
