#include "support/ScritturaUccisa.h"

#include <sqlcipher/sqlite3.h>

#include <csignal>
#include <cstring>

namespace bravona {

namespace {

// A file of the engine: the real one behind it.
struct FileGuardato {
    sqlite3_file base;
    sqlite3_file* vero;
};

sqlite3_vfs* vfsVero = nullptr;
int mancanti = 0;  // operations until the end; 0: not armed
ScritturaUccisa::Modo modoScelto = ScritturaUccisa::Modo::prima;

sqlite3_file* vero(sqlite3_file* file)
{
    return reinterpret_cast<FileGuardato*>(file)->vero;
}

bool tocca()
{
    return mancanti > 0 && --mancanti == 0;
}

void muori()
{
    std::raise(SIGKILL);
}

int scrivi(sqlite3_file* file, const void* dati, int quanti, sqlite3_int64 dove)
{
    if (tocca()) {
        if (modoScelto == ScritturaUccisa::Modo::mezza && quanti > 1) {
            vero(file)->pMethods->xWrite(vero(file), dati, quanti / 2, dove);
        }
        muori();
    }
    return vero(file)->pMethods->xWrite(vero(file), dati, quanti, dove);
}

int tronca(sqlite3_file* file, sqlite3_int64 lunghezza)
{
    if (tocca()) {
        muori();
    }
    return vero(file)->pMethods->xTruncate(vero(file), lunghezza);
}

int sincronizza(sqlite3_file* file, int come)
{
    if (tocca()) {
        muori();
    }
    return vero(file)->pMethods->xSync(vero(file), come);
}

int chiudi(sqlite3_file* file)
{
    return vero(file)->pMethods->xClose(vero(file));
}
int leggi(sqlite3_file* file, void* dati, int quanti, sqlite3_int64 dove)
{
    return vero(file)->pMethods->xRead(vero(file), dati, quanti, dove);
}
int misura(sqlite3_file* file, sqlite3_int64* lunghezza)
{
    return vero(file)->pMethods->xFileSize(vero(file), lunghezza);
}
int blocca(sqlite3_file* file, int come)
{
    return vero(file)->pMethods->xLock(vero(file), come);
}
int sblocca(sqlite3_file* file, int come)
{
    return vero(file)->pMethods->xUnlock(vero(file), come);
}
int bloccato(sqlite3_file* file, int* esito)
{
    return vero(file)->pMethods->xCheckReservedLock(vero(file), esito);
}
int comanda(sqlite3_file* file, int comando, void* dati)
{
    return vero(file)->pMethods->xFileControl(vero(file), comando, dati);
}
int settore(sqlite3_file* file)
{
    return vero(file)->pMethods->xSectorSize(vero(file));
}
int caratteristiche(sqlite3_file* file)
{
    return vero(file)->pMethods->xDeviceCharacteristics(vero(file));
}

const sqlite3_io_methods metodi = [] {
    sqlite3_io_methods m{};
    m.iVersion = 1;
    m.xClose = chiudi;
    m.xRead = leggi;
    m.xWrite = scrivi;
    m.xTruncate = tronca;
    m.xSync = sincronizza;
    m.xFileSize = misura;
    m.xLock = blocca;
    m.xUnlock = sblocca;
    m.xCheckReservedLock = bloccato;
    m.xFileControl = comanda;
    m.xSectorSize = settore;
    m.xDeviceCharacteristics = caratteristiche;
    return m;
}();

int apri(sqlite3_vfs*, const char* nome, sqlite3_file* file, int bandiere, int* esito)
{
    auto* guardato = reinterpret_cast<FileGuardato*>(file);
    guardato->vero = reinterpret_cast<sqlite3_file*>(guardato + 1);
    const int codice = vfsVero->xOpen(vfsVero, nome, guardato->vero, bandiere, esito);
    guardato->base.pMethods = guardato->vero->pMethods != nullptr ? &metodi : nullptr;
    return codice;
}

int cancella(sqlite3_vfs*, const char* nome, int sincrona)
{
    if (tocca()) {
        muori();
    }
    return vfsVero->xDelete(vfsVero, nome, sincrona);
}

}  // namespace

void ScritturaUccisa::installa()
{
    static sqlite3_vfs vfs{};
    if (vfsVero != nullptr) {
        return;
    }
    vfsVero = sqlite3_vfs_find(nullptr);
    std::memcpy(&vfs, vfsVero, sizeof vfs);
    vfs.zName = "uccisa";
    vfs.pNext = nullptr;
    vfs.szOsFile = static_cast<int>(sizeof(FileGuardato)) + vfsVero->szOsFile;
    vfs.xOpen = apri;
    vfs.xDelete = cancella;
    sqlite3_vfs_register(&vfs, 1);
}

void ScritturaUccisa::arma(int operazione, Modo modo)
{
    mancanti = operazione;
    modoScelto = modo;
}

}  // namespace bravona
