#include "maintenance/FRMRipristino.h"

#include "maintenance/modArchivio.h"
#include "session/modMain.h"

namespace bravona {

namespace {

// Numbers and lists go on in the reference year, which an older archive may not have.
bool annoPresente(Sessione& sessione)
{
    return !sessione.cn.isOpen() || sessione.AnnoRiferimento == "0" ||
           !sessione.cn.open("SELECT AnnoArchivio FROM Archivi WHERE AnnoArchivio=" + sessione.AnnoRiferimento).eof();
}

}  // namespace

FRMRipristino::FRMRipristino(Sessione& sessione)
    : FinestraBackup(sessione, "FRMRipristino", "Ripristino Database",
                     {.prima = "Lettura Backup ...",
                      .codifica = "Uncompressing Database",
                      .file = "Repristino Uncompressed File ..."})
{
    File1.pattern = "*.bk;*.bk.?";  // earlier ones too
    File1.setAccessibleName("File di backup");
    Label1[1].sunken = true;
    Label1[1].wrap = true;  // a long path shows whole
    Label1[1].setAccessibleName("File selezionato");
    Drive1.onChange = [this] { cambiaUnita(); };
    Dir1.onChange = [this] { cambiaCartella(); };
    File1.onClick = [this] { scegliFile(); };
    Command1.onClick = [this] { Ripristina(); };

    add("Label1", Label1);
    add("Drive1", Drive1);
    add("Dir1", Dir1);
    add("File1", File1);
    add("Label2", Label2);
    add("Label3", Label3);
    add("ProgressBar1", ProgressBar1);
    add("Command1", Command1);
    setLayout(
        layout::column({layout::of(Label1[0]), layout::of(Drive1),
                        layout::grow(layout::row({layout::grow(layout::of(Dir1)), layout::grow(layout::of(File1))})),
                        layout::form({layout::line(Label2, layout::of(Label1[1]))}), layout::of(Label3),
                        layout::of(ProgressBar1), layout::rowEnd({layout::of(Command1)})}));
}

void FRMRipristino::onLoad()
{
    FinestraBackup::onLoad();
    Label1[1].setCaption({});
    Drive1.setDrive(primoPosto());
}

void FRMRipristino::cambiaUnita()
{
    try {
        Dir1.setPath(Drive1.drive());
    } catch (const Errore&) {
        // A place that cannot be read: the folders stay.
    }
}

void FRMRipristino::cambiaCartella()
{
    Label1[1].setCaption({});
    try {
        File1.setPath(Dir1.path());
    } catch (const Errore&) {
        // It went away meanwhile: the files stay.
    }
}

void FRMRipristino::scegliFile()
{
    const std::string cartella = File1.path().ends_with('/') ? File1.path() : File1.path() + "/";
    Label1[1].setCaption(cartella + File1.fileName());
}

void FRMRipristino::Ripristina()
{
    if (alLavoro()) {
        return;
    }
    const std::string sorgente = Label1[1].caption();
    if (sorgente.empty()) {
        desktop().inform("Seleziona File Backup e Clicka su Ripristina...", "Seleziona Cartella ...");
        return;
    }
    const bool precedente = sessione_.files().exists(percorsoDatabase(sessione_));
    const auto fatto = [&](const clsHuffman::Esito& esito) {
        racconta("Ripristinato archivio di " + testoByte(esito.scritti) + " byte (backup " + testoByte(esito.letti) +
                     " byte) da " + sorgente +
                     (precedente ? "; quello di prima è in " + percorsoPrecedente(sessione_) : ""),
                 "Il Database e stato ripristinato. .");
    };
    // A failure is the platform's to report; the screen stays for another file.
    if (!esegui([&](const clsHuffman& huffman) { RipristinaArchivio(sessione_, huffman, sorgente, fatto); })) {
        Annuncia(sessione_, "Ripristino interrotto");
    } else if (!annoPresente(sessione_)) {
        Annuncia(sessione_, "L'archivio ripristinato non ha l'anno " + sessione_.AnnoRiferimento +
                                ": scegliere un anno con Apri archivio");
    }
    unload();
}

}  // namespace bravona
