#include "maintenance/modArchivio.h"

#include "platform/values/Numeri.h"
#include "schema/Schema.h"
#include "schema/Tabelle.h"
#include "session/modMain.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace bravona {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t nonArchivio = 3031;
constexpr std::uint32_t archivioDanneggiato = 3049;
constexpr std::uint32_t discoGuasto = 3043;
constexpr std::size_t backupTenuti = 3;

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

// Opens the archive again, and reads from it what has to be read anew; what comes of it.
std::optional<Errore> riapri(Sessione& sessione, const std::function<void()>& rileggi)
{
    std::optional<Errore> guasto;
    const auto prova = [&guasto](const std::function<void()>& passo) {
        try {
            passo();
        } catch (const Errore& errore) {
            guasto.emplace(errore.numero(), "Riapertura dell'archivio: " + errore.descrizione());
        }
    };
    prova([&] { ApriConnessione(sessione, sessione.PercorsoArchivio); });
    if (!sessione.cn.isOpen()) {
        return Errore(guasto->numero(), guasto->descrizione() + "\nL'archivio non è aperto: riavviare Bravona.");
    }
    if (rileggi) {
        prova(rileggi);
    }
    return guasto;
}

// The work tells by itself what it has achieved. A failed opening afterwards is told as what it is: behind the failure
// of the work, or in a report of its own.
void senzaConnessione(Sessione& sessione, const std::function<void()>& lavoro,
                      const std::function<void()>& rileggi = {})
{
    const auto riferisci = [&sessione](const std::optional<Errore>& guasto) {
        if (guasto) {
            sessione.desktop().report(*guasto);
        }
    };
    ChiudiConnessione(sessione);
    try {
        lavoro();
    } catch (const Errore& errore) {
        const std::optional<Errore> guasto = riapri(sessione, rileggi);
        throw Errore(errore.numero(), errore.descrizione() + (guasto ? "\n" + guasto->descrizione() : ""),
                     errore.origine());
    } catch (...) {
        riferisci(riapri(sessione, rileggi));
        throw;
    }
    riferisci(riapri(sessione, rileggi));
}

// Nobody has to do with the archive until the new one stands in its place. A journal beside what cannot be opened as an
// archive undoes nothing any more.
void sostituisciDatabase(const Sessione& sessione, const std::string& nuovo, const std::string& database)
{
    Connection tenuto;
    if (!sessione.files().exists(database)) {
        Connection::discardJournal(database);
    } else {
        try {
            tenuto.hold(database, passwordArchivio, Hold::toReplace);
        } catch (const Errore& errore) {
            if (errore.numero() != nonArchivio && errore.numero() != archivioDanneggiato) {
                throw;
            }
            Connection::discardJournal(database);
        }
    }
    const std::string precedente = percorsoPrecedente(sessione);
    Connection::discardJournal(precedente);
    sessione.files().copy(nuovo, database, {.ownerOnly = true, .earlier = {precedente}});
}

// False when the file is still there: what was achieved, or another failure, is the thing to tell.
bool togli(Files& files, const std::string& file)
{
    try {
        if (files.exists(file)) {
            files.remove(file);
        }
        Connection::discardJournal(file);
        return true;
    } catch (const Errore&) {
        return false;
    }
}

// The tables with their columns, and what the start reads of them.
void leggiComeAllAvvio(Sessione& prova)
{
    for (const Tabella& tabella : tabelleArchivio()) {
        const Recordset aperta = prova.cn.openTable(tabella.nome, OpenMode::readOnly);
        for (const Colonna& colonna : tabella.colonne) {
            if (!aperta.hasColumn(colonna.nome)) {
                throw Errore(nonArchivio, "Manca la colonna " + std::string(colonna.nome) + ".");
            }
        }
    }
    static_cast<void>(prova.cn.open("SELECT Versione FROM VersioneDB")["Versione"].longOr(0));
    EsisteArchivio(prova);
    CaricaDatiAzienda(prova);
    CaricaRegistri(prova);
}

// An archive from which the program can start.
void pretendiArchivio(const Sessione& sessione, const std::string& file, const Connection::Working& dipinge)
{
    bool aperto = false;
    try {
        Connection::verify(file, passwordArchivio, dipinge);
        Sessione prova({sessione.desktop(), sessione.settings(), sessione.clock(), sessione.files(),
                        sessione.cartellaProgramma()});
        prova.cn.open(file, passwordArchivio);
        aperto = true;
        leggiComeAllAvvio(prova);
    } catch (const Errore& errore) {
        if (errore.numero() == archivioDanneggiato) {
            throw Errore(archivioDanneggiato, "L'archivio contenuto nel backup è danneggiato.");
        }
        if (errore.numero() == nonArchivio || (aperto && errore.numero() != discoGuasto)) {
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

// Of a compaction that was killed; nobody works with it.
std::string consiglioSulResto(const std::string& temporaneo)
{
    try {
        Connection prova;
        prova.hold(temporaneo, passwordArchivio, Hold::toReplace);
        return "\nE' il resto di una compattazione interrotta: si può eliminare.";
    } catch (const Errore&) {
        return {};
    }
}

// What is to be told of it in the status bar. Nobody changes the archive from the reading on until the new one stands
// in its place.
std::string compatta(Sessione& sessione, const std::string& temporaneo, const Connection::Working& dipinge)
{
    const std::string& archivio = sessione.PercorsoArchivio;
    Files& files = sessione.files();
    std::error_code ignorato;
    if (fs::exists(fs::symlink_status(temporaneo, ignorato))) {
        throw Errore(3204, "Il file \"" + temporaneo + "\" esiste già." + consiglioSulResto(temporaneo));
    }
    Connection::discardJournal(temporaneo);
    const Avanzamento avanzamento(sessione);
    Connection tenuto;
    tenuto.hold(archivio, passwordArchivio, Hold::toReplace);
    const std::uint64_t prima = files.size(archivio);
    std::uint64_t dopo = 0;
    try {
        avanzamento.passo("Compattazione dell'archivio: copia...", 0);
        files.copy(archivio, temporaneo, {.ownerOnly = true, .earlier = {}});
        tenuto.holdAgain();
        avanzamento.passo("Compattazione dell'archivio: riordino...", 30);
        Connection::compact(temporaneo, passwordArchivio, dipinge);
        dopo = files.size(temporaneo);
        avanzamento.passo("Compattazione dell'archivio: sostituzione...", 80);
        files.copy(temporaneo, archivio, {.ownerOnly = true, .earlier = {}});
    } catch (...) {
        togli(files, temporaneo);
        throw;
    }
    const bool resta = !togli(files, temporaneo);
    return "Archivio compattato: da " + testoByte(prima) + " a " + testoByte(dopo) + " byte" +
           (resta ? "; resta da eliminare " + temporaneo : "");
}

bool stessoFile(const std::string& uno, const std::string& altro)
{
    std::error_code ignorato;
    return fs::equivalent(uno, altro, ignorato);
}

std::string percorsoRipristino(const Sessione& sessione)
{
    return nellaCartella(sessione, "\\Database\\DBBVEURO_bk.mdb");
}

// Leaves the original of the backup, an archive from which the program can start, beside the database.
clsHuffman::Esito preparaRipristino(const Sessione& sessione, const clsHuffman& huffman, const std::string& sorgente,
                                    const Connection::Working& dipinge)
{
    const std::string temporaneo = percorsoRipristino(sessione);
    for (const std::string& lavoro : {temporaneo, percorsoPrecedente(sessione)}) {
        // A restore that was killed may have left the database itself under that name as well.
        if (stessoFile(sessione.PercorsoArchivio, lavoro) && !archivioDelProgrammaInUso(sessione)) {
            throw Errore(errori::erroreDiPercorso,
                         "L'archivio in uso è un file di lavoro del ripristino, che lo sostituirebbe: " + lavoro +
                             "\nCopiarlo altrove e sceglierlo con Percorso archivio, poi ripetere il ripristino.");
        }
    }
    const clsHuffman::Esito esito = huffman.DecodeFile(sorgente, temporaneo);
    try {
        Connection::discardJournal(temporaneo);  // of an earlier restore that was killed
        pretendiArchivio(sessione, temporaneo, dipinge);
    } catch (...) {
        togli(sessione.files(), temporaneo);
        throw;
    }
    return esito;
}

void concludiRipristino(const Sessione& sessione)
{
    const std::string temporaneo = percorsoRipristino(sessione);
    try {
        sostituisciDatabase(sessione, temporaneo, percorsoDatabase(sessione));
    } catch (const Errore& errore) {
        if (errore.numero() == errori::discoPieno) {
            togli(sessione.files(), temporaneo);  // the disk needs the room
        }
        throw;
    }
    togli(sessione.files(), temporaneo);  // the next restore replaces it
}

}  // namespace

std::string percorsoPrecedente(const Sessione& sessione)
{
    return nellaCartella(sessione, "\\Database\\DBBVEURO_precedente.mdb");
}

std::vector<std::string> backupPrecedenti(const std::string& destinazione)
{
    std::vector<std::string> nomi;
    for (std::size_t numero = 1; numero <= backupTenuti; ++numero) {
        nomi.push_back(destinazione + "." + std::to_string(numero));
    }
    return nomi;
}

std::string percorsoDatabase(const Sessione& sessione)
{
    return nellaCartella(sessione, "\\Database\\DBBVEURO.mdb");
}

bool archivioDelProgrammaInUso(const Sessione& sessione)
{
    return stessoFile(sessione.PercorsoArchivio, percorsoDatabase(sessione));
}

clsHuffman::Esito SalvaArchivio(Sessione& sessione, const clsHuffman& huffman, const std::string& destinazione,
                                const Racconto& racconto)
{
    const std::string database = percorsoDatabase(sessione);
    if (stessoFile(database, destinazione) || stessoFile(sessione.PercorsoArchivio, destinazione)) {
        throw Errore(errori::erroreDiPercorso, "Il backup non può prendere il posto dell'archivio: " + destinazione);
    }
    const FinestreVive finestre(sessione);
    clsHuffman::Esito esito;
    senzaConnessione(sessione, [&] {
        Connection tenuto;
        // A missing and an empty one are the codec's to refuse.
        if (sessione.files().exists(database) && sessione.files().size(database) > 0) {
            Connection::verify(database, passwordArchivio, finestre.dipinge());
            tenuto.hold(database, passwordArchivio, Hold::toCopy);
        }
        esito = huffman.EncodeFile(database, destinazione, backupPrecedenti(destinazione));
        tenuto.close();
        if (racconto) {
            racconto(esito);
        }
    });
    return esito;
}

clsHuffman::Esito RipristinaArchivio(Sessione& sessione, const clsHuffman& huffman, const std::string& sorgente,
                                     const Racconto& racconto)
{
    const FinestreVive finestre(sessione);
    const clsHuffman::Esito esito = preparaRipristino(sessione, huffman, sorgente, finestre.dipinge());
    senzaConnessione(
        sessione,
        [&] {
            concludiRipristino(sessione);
            if (racconto) {
                racconto(esito);
            }
        },
        [&] { rileggiArchivio(sessione); });
    return esito;
}

void RipristinaAllAvvio(Sessione& sessione, const std::string& sorgente)
{
    const clsCursorWait attesa(sessione.desktop());
    const FinestreVive finestre(sessione);
    preparaRipristino(sessione, clsHuffman(sessione.files()), sorgente, finestre.dipinge());
    concludiRipristino(sessione);
}

void ProvaAvvio(const Sessione& sessione, const std::string& file)
{
    Connection::verify(file, passwordArchivio);
    Sessione prova(
        {sessione.desktop(), sessione.settings(), sessione.clock(), sessione.files(), sessione.cartellaProgramma()});
    prova.cn.open(file, passwordArchivio);
    leggiComeAllAvvio(prova);
}

void CompattaArchivio(Sessione& sessione)
{
    senzaConnessione(sessione, [&] {
        std::string parola;
        try {
            const clsCursorWait attesa(sessione.desktop());
            const FinestreVive finestre(sessione);
            parola = compatta(sessione, nellaCartella(sessione, "\\temp_db.mdb"), finestre.dipinge());
        } catch (const Errore& errore) {
            Annuncia(sessione, "Compattazione non riuscita");
            MostraErroreStandard(sessione.desktop(), errore, "Modulo: frmMain", "Routine: CompattaArchivio");
            return;
        }
        Annuncia(sessione, parola);
        sessione.desktop().inform("Compattazione dati completata!", "Bravona");
    });
}

std::string testoByte(std::uint64_t byte)
{
    return format(Value(static_cast<double>(byte)), "#,##0");
}

}  // namespace bravona
