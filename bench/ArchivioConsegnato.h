#pragma once

#include <filesystem>
#include <string>

#include "schema/Schema.h"
#include "support/ArchivioTemporaneo.h"

namespace bravona {

// A program folder with the archive as it is delivered, of the year 2004; the archive's path.
inline std::string archivioConsegnato(const std::filesystem::path& programFolder)
{
    std::filesystem::create_directories(programFolder / "Database");
    const std::string archivio = (programFolder / "Database" / "DBBVEURO.mdb").string();
    Connection cn;
    cn.create(archivio, passwordArchivio);
    creaSchema(cn);
    semiConsegna(cn);
    cn.execute("INSERT INTO Archivi (AnnoArchivio) VALUES (2004)");
    return archivio;
}

}  // namespace bravona
