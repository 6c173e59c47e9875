#include "maintenance/FRM_Backup.h"

#include <filesystem>

#include "maintenance/modArchivio.h"
#include "session/modMain.h"

namespace bravona {

FRM_Backup::FRM_Backup(Sessione& sessione)
    : FinestraBackup(
          sessione, "FRM_Backup", "Backup Database ...",
          {.prima = "Lettura Database ...", .codifica = "Compressing Database", .file = "Salvataggio Database ..."})
{
    Text2.setLocked(true);
    Text2.grows = true;
    Command2.onClick = [this] { CreaBackup(); };

    add("Label1", Label1);
    add("Drive1", Drive1);
    add("Dir1", Dir1);
    add("Text2", Text2);
    add("Label3", Label3);
    add("ProgressBar1", ProgressBar1);
    add("Command2", Command2);
    setLayout(layout::column({layout::of(Label1), layout::of(Drive1), layout::grow(layout::of(Dir1)),
                              layout::form({layout::line("Cartella", layout::of(Text2))}), layout::of(Label3),
                              layout::of(ProgressBar1), layout::rowEnd({layout::of(Command2)})}));
}

// The lists stand in the home folder; none is chosen before the person does.
void FRM_Backup::onLoad()
{
    FinestraBackup::onLoad();
    Drive1.setDrive(primoPosto());
    try {
        Dir1.setPath(primoPosto());
    } catch (const Errore&) {
        // An empty list; another place can be chosen.
    }
    Drive1.onChange = [this] { cambiaUnita(); };
    Dir1.onChange = [this] { Text2.setText(Dir1.path()); };
}

void FRM_Backup::cambiaUnita()
{
    Text2.setText({});
    try {
        Dir1.setPath(Drive1.drive());
        Text2.setText(Dir1.path());
    } catch (const Errore&) {
        // A place that cannot be read: the folders stay, none is chosen.
    }
}

void FRM_Backup::CreaBackup()
{
    if (alLavoro()) {
        return;
    }
    if (Text2.text().empty()) {
        desktop().inform("Seleziona cartella e Clicka su Crea Backup...", "Backup Database ...");
        return;
    }
    const std::string destinazione = Files::native(Text2.text() + "\\DBBVEURO_Backup.bk");
    const bool precedente = sessione_.files().exists(destinazione);
    const auto fatto = [&](const clsHuffman::Esito& esito) {
        // The backup is always of the program folder's archive, also while another is in use.
        const bool altro = !archivioDelProgrammaInUso(sessione_);
        racconta("Backup di " + testoByte(esito.scritti) + " byte (archivio " + testoByte(esito.letti) + " byte) in " +
                     destinazione +
                     (precedente ? ", il precedente in " +
                                       std::filesystem::path(backupPrecedenti(destinazione).front()).filename().string()
                                 : "") +
                     (altro ? "; non è l'archivio in uso" : ""),
                 "Il Backup e stato fatto e salvato. .\n"
                 "si consiglia di effettuare periodicamente l'operazione di backup.");
    };
    try {
        if (!esegui([&](const clsHuffman& huffman) { SalvaArchivio(sessione_, huffman, destinazione, fatto); })) {
            Annuncia(sessione_, "Backup interrotto");
        }
    } catch (const Errore& errore) {
        Annuncia(sessione_, "Backup non riuscito");
        mostraFallimento(errore);
    }
    unload();
}

void FRM_Backup::mostraFallimento(const Errore& errore)
{
    if (errore.numero() == errori::unitaNonPronta) {
        desktop().messageBox({.title = "Bravona",
                              .text = "Non ce disketto   in drive A:\n"
                                      "Inserisce un disketto per il Backup del data base\n" +
                                      errore.descrizione(),
                              .icon = MsgIcon::exclamation});
    } else {
        desktop().messageBox({.title = "Bravona",
                              .text = std::to_string(errore.numero()) + "\n" + errore.descrizione(),
                              .icon = MsgIcon::none});
    }
}

}  // namespace bravona
