#include "session/frmDialogBox.h"

namespace bravona {

std::string frmDialogBox::apri(const std::string& titolo, const std::string& cartella, const std::string& filtro)
{
    return sessione_.desktop()
        .openFile({.title = titolo, .folder = Files::native(cartella), .filter = filtro})
        .value_or(std::string());
}

std::string frmDialogBox::SelezioneImmagineArticolo()
{
    return apri("Selezione immagine articolo", sessione_.cartellaProgramma() + "\\images\\",
                "Immagine BitMap (*.bmp)|*.bmp|Immagine GIF (*.gif)|*.gif|Immagine JPEG (*.jpg)|*.jpg");
}

std::string frmDialogBox::SelezioneDBBV2000()
{
    return apri("Selezione database ", sessione_.cartellaProgramma(), "DB Bravona |dbfatture.mdb");
}

std::string frmDialogBox::SelezioneDB()
{
    return apri("Selezione archivio dati", sessione_.cartellaProgramma() + "\\", "Bravona dati (*.mdb)|*.mdb");
}

std::string frmDialogBox::SelezioneDBoBackup()
{
    return apri("Selezione archivio dati", sessione_.cartellaProgramma() + "\\",
                "Archivi e backup di Bravona (*.mdb, *.bk)|*.mdb;*.bk;*.bk.?|Bravona dati (*.mdb)|*.mdb");
}

Colour frmDialogBox::SelezioneColore(Colour iniziale)
{
    return sessione_.desktop().chooseColour("Selezione colore", iniziale).value_or(iniziale);
}

}  // namespace bravona
