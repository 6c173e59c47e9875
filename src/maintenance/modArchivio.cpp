#include "maintenance/modArchivio.h"

#include "platform/values/Numeri.h"
#include "schema/Schema.h"
#include "schema/Tabelle.h"
#include "session/modMain.h"

#include <filesystem>
#include <functional>

namespace bravona {

namespace {

constexpr std::uint32_t nonArchivio = 3031;
constexpr std::uint32_t archivioDanneggiato = 3049;
constexpr std::uint32_t tabellaMancante = 3078;

std::string nellaCartella(const Sessione& sessione, const char* nome)
{
    return Files::native(sessione.cartellaProgramma() + nome);
}

// Paints the windows between the pieces of file work as long as it lives.
class FinestreVive {
public:
    explicit FinestreVive(Sessione& sessione) : files_(sessione.files()), prima_(files_.betweenPieces)
    {
        files_.betweenPieces = [&sessione] { sessione.desktop().repaint(); };
    }
    ~FinestreVive() { files_.betweenPieces = prima_; }
    FinestreVive(const FinestreVive&) = delete;
    FinestreVive& operator=(const FinestreVive&) = delete;

    [[nodiscard]] const Connection::Working& dipinge() const { return files_.betweenPieces; }

private:
    Files& files_;
    std::function<void()> prima_;
};

void senzaConnessione(Sessione& sessione, const std::function<void()>& lavoro)
{
    ChiudiConnessione(sessione);
    try {
        lavoro();
    } catch (...) {
        try {
            ApriConnessione(sessione, sessione.PercorsoArchivio);
        } catch (const Errore&) {
            // The failure of the work is the one to tell.
        }
        throw;
    }
    ApriConnessione(sessione, sessione.PercorsoArchivio);
}

// A journal beside what cannot be opened as an archive undoes nothing any more.
void preparaAllaSostituzione(const Sessione& sessione, const std::string& archivio)
{
    if (!sessione.files().exists(archivio)) {
        Connection::discardJournal(archivio);
        return;
    }
    try {
        Connection::settle(archivio, passwordArchivio);
    } catch (const Errore& errore) {
        if (errore.numero() != nonArchivio && errore.numero() != archivioDanneggiato) {
            throw;
        }
        Connection::discardJournal(archivio);
    }
}

void sostituisciArchivio(const Sessione& sessione, const std::string& nuovo, const std::string& archivio)
{
    preparaAllaSostituzione(sessione, archivio);
    sessione.files().copy(nuovo, archivio);
}

void togli(Files& files, const std::string& file)
{
    try {
        if (files.exists(file)) {
            files.remove(file);
        }
        Connection::discardJournal(file);
    } catch (const Errore&) {
        // Another failure is being told.
    }
}

// An archive from which the program can start.
void pretendiArchivio(const std::string& file, const Connection::Working& dipinge)
{
    try {
        Connection::verify(file, passwordArchivio, dipinge);
        Connection cn;
        cn.open(file, passwordArchivio);
        for (const Tabella& tabella : tabelleArchivio()) {
            cn.openTable(tabella.nome, OpenMode::readOnly);
        }
        for (const char* tabella : {"VersioneDB", "DatiAzienda"}) {
            if (cn.openTable(tabella, OpenMode::readOnly).eof()) {
                throw Errore(nonArchivio, std::string("La tabella ") + tabella + " è vuota.");
            }
        }
    } catch (const Errore& errore) {
        if (errore.numero() == archivioDanneggiato) {
            throw Errore(archivioDanneggiato, "L'archivio contenuto nel backup è danneggiato.");
        }
        if (errore.numero() == nonArchivio || errore.numero() == tabellaMancante) {
            throw Errore(nonArchivio, "Il backup non contiene un archivio di Bravona.");
        }
        throw;
    }
}

// What the session holds in memory comes from the archive that was.
void rileggiArchivio(Sessione& sessione)
{
    CaricaDatiAzienda(sessione);
    CaricaRegistri(sessione);
    if (sessione.TabellaIva) {
        sessione.TabellaIva->Refresh();
    }
}

bool stessoFile(const std::string& uno, const std::string& altro)
{
    std::error_code ignorato;
    return std::filesystem::equivalent(uno, altro, ignorato);
}

}  // namespace

std::string percorsoDatabase(const Sessione& sessione)
{
    return nellaCartella(sessione, "\\Database\\DBBVEURO.mdb");
}

clsHuffman::Esito SalvaArchivio(Sessione& sessione, const clsHuffman& huffman, const std::string& destinazione)
{
    const std::string database = percorsoDatabase(sessione);
    if (stessoFile(database, destinazione)) {
        throw Errore(errori::erroreDiPercorso, "Il backup non può prendere il posto dell'archivio: " + destinazione);
    }
    const FinestreVive finestre(sessione);
    clsHuffman::Esito esito;
    senzaConnessione(sessione, [&] {
        // A missing and an empty one are the codec's to refuse.
        if (sessione.files().exists(database) && sessione.files().size(database) > 0) {
            Connection::verify(database, passwordArchivio, finestre.dipinge());
            Connection::settle(database, passwordArchivio);
        }
        esito = huffman.EncodeFile(database, destinazione);
    });
    return esito;
}

clsHuffman::Esito RipristinaArchivio(Sessione& sessione, const clsHuffman& huffman, const std::string& sorgente)
{
    const std::string database = percorsoDatabase(sessione);
    const std::string temporaneo = nellaCartella(sessione, "\\Database\\DBBVEURO_bk.mdb");
    const FinestreVive finestre(sessione);
    const clsHuffman::Esito esito = huffman.DecodeFile(sorgente, temporaneo);
    try {
        Connection::discardJournal(temporaneo);  // of an earlier restore that was killed
        pretendiArchivio(temporaneo, finestre.dipinge());
    } catch (...) {
        togli(sessione.files(), temporaneo);
        throw;
    }
    senzaConnessione(sessione, [&] { sostituisciArchivio(sessione, temporaneo, database); });
    rileggiArchivio(sessione);
    sessione.files().remove(temporaneo);
    return esito;
}

void CompattaArchivio(Sessione& sessione)
{
    const std::string temporaneo = nellaCartella(sessione, "\\temp_db.mdb");
    const std::string& archivio = sessione.PercorsoArchivio;
    Files& files = sessione.files();
    std::uint64_t prima = 0;
    try {
        const clsCursorWait attesa(sessione.desktop());
        const FinestreVive finestre(sessione);
        Annuncia(sessione, "Compattazione dell'archivio in corso...");
        sessione.desktop().repaint();
        senzaConnessione(sessione, [&] {
            prima = files.size(archivio);
            Connection::compact(archivio, temporaneo, passwordArchivio, finestre.dipinge());
            try {
                sostituisciArchivio(sessione, temporaneo, archivio);
            } catch (...) {
                togli(files, temporaneo);
                throw;
            }
        });
        files.remove(temporaneo);
    } catch (const Errore& errore) {
        Annuncia(sessione, "Compattazione non riuscita");
        MostraErroreStandard(sessione.desktop(), errore, "Modulo: frmMain", "Routine: CompattaArchivio");
        return;
    }
    Annuncia(sessione,
             "Archivio compattato: da " + testoByte(prima) + " a " + testoByte(files.size(archivio)) + " byte");
    sessione.desktop().inform("Compattazione dati completata!", "Bravona");
}

std::string testoByte(std::uint64_t byte)
{
    return format(Value(static_cast<double>(byte)), "#,##0");
}

}  // namespace bravona
