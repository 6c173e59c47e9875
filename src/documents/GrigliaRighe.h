#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "documents/RigheDettaglio.h"
#include "platform/windowing/ControlGroup.h"

namespace bravona {

// The rows of the document on the screen, as values, and the list that is drawn from them. Positions from 0.
class GrigliaRighe final : public ControlGroup {
public:
    GrigliaRighe(ColonneGriglia colonne, ChiaviRighe chiavi);

    ListView lvwDettagli;

    [[nodiscard]] const std::vector<RigaDocumento>& righe() const { return righe_; }
    [[nodiscard]] const RigaDocumento& riga(std::size_t posizione) const { return righe_.at(posizione); }
    // In place of what is there; keys are those of the archive, running keys begin above them.
    void mostra(std::span<const RigaDocumento> righe);
    // At the end, selected and scrolled to. Errore 35602 when its running key is in the list already; with `ritenta`
    // further ones are tried.
    void aggiungi(const RigaDocumento& riga, bool ritenta);
    void cambia(std::size_t posizione, const RigaDocumento& riga);
    // Removes it and selects the last one.
    void togli(std::size_t posizione);
    // The key of the next row, without its letter; never used again.
    [[nodiscard]] std::string NuovaChiaveRiga() { return std::to_string(++ultimaChiave_); }

private:
    void scegli(std::size_t posizione);
    ColonneGriglia colonne_;
    ChiaviRighe chiavi_;
    std::vector<RigaDocumento> righe_;
    std::int64_t ultimaChiave_ = 0;
};

}  // namespace bravona
