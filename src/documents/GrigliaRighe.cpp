#include "documents/GrigliaRighe.h"

#include <algorithm>

#include "platform/values/Errore.h"

namespace bravona {

GrigliaRighe::GrigliaRighe(ColonneGriglia colonne, ChiaviRighe chiavi) : colonne_(std::move(colonne)), chiavi_(chiavi)
{
    add("lvwDettagli", lvwDettagli);
    lvwDettagli.setColumns(intestazioni(colonne_));
}

void GrigliaRighe::mostra(std::span<const RigaDocumento> righe)
{
    righe_.assign(righe.begin(), righe.end());
    std::vector<ListRow> disegnate;
    disegnate.reserve(righe_.size());
    for (const RigaDocumento& riga : righe_) {
        ultimaChiave_ = std::max<std::int64_t>(ultimaChiave_, riga.IDRiga);
        disegnate.push_back(disegna(colonne_, riga, chiaveRiga(chiavi_, std::to_string(riga.IDRiga), riga)));
    }
    lvwDettagli.clear();
    lvwDettagli.append(std::move(disegnate));
}

void GrigliaRighe::aggiungi(const RigaDocumento& riga, bool ritenta)
{
    for (;;) {
        try {
            lvwDettagli.add(disegna(colonne_, riga, chiaveRiga(chiavi_, NuovaChiaveRiga(), riga)));
            break;
        } catch (const Errore& errore) {
            if (errore.numero() != errori::chiaveGiaInElenco || !ritenta)
                throw;
        }
    }
    righe_.push_back(riga);
    scegli(righe_.size() - 1);
}

void GrigliaRighe::cambia(std::size_t posizione, const RigaDocumento& riga)
{
    lvwDettagli.setRow(posizione, disegna(colonne_, riga, lvwDettagli.row(posizione).key));
    righe_.at(posizione) = riga;
    scegli(posizione);
}

void GrigliaRighe::togli(std::size_t posizione)
{
    lvwDettagli.remove(posizione);
    righe_.erase(righe_.begin() + static_cast<std::ptrdiff_t>(posizione));
    if (!righe_.empty())
        scegli(righe_.size() - 1);
}

void GrigliaRighe::scegli(std::size_t posizione)
{
    lvwDettagli.ensureVisible(posizione);
    lvwDettagli.select(posizione);
}

}  // namespace bravona
