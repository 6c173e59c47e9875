#pragma once

#include <string>

#include "platform/files/Files.h"

namespace bravona {

// The writable folder of one installation: the archive, its link, the pictures. What is missing in it is taken from
// what is shipped; what the person has in it stays as it is, readable by nobody else. The shipped archive comes in only
// while no archive was chosen (`archivioScelto`): it never takes the place of one that is gone. Errore 53 when the
// shipped archive is needed and not there, others as the files refuse.
void preparaCartellaProgramma(Files& files, const std::string& cartella, const std::string& fornita,
                              bool archivioScelto);

// Its place: `bravona` in the user's data folder (XDG_DATA_HOME, else ~/.local/share).
std::string cartellaProgrammaUtente();

}  // namespace bravona
