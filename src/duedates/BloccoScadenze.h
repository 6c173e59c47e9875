#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "duedates/GrigliaScadenze.h"
#include "duedates/Rate.h"
#include "platform/windowing/ControlGroup.h"
#include "session/Sessione.h"

namespace bravona {

// What a plan is made from.
struct BasePiano {
    std::int32_t idModalitaPagamento = 0;  // 0: none
    Date data;
    std::int32_t registro = 1;
    Currency totale;
};

// The instalments of a document on its screen: the grid and the command that makes them anew.
class BloccoScadenze final : public ControlGroup {
public:
    explicit BloccoScadenze(Sessione& sessione);

    GrigliaScadenze Griglia;
    Button cmdRicalcola{"&Ricalcola Scadenze"};

    void setBase(std::function<BasePiano()> base) { base_ = std::move(base); }
    // Headings only.
    void svuota();
    // The plan of the document as it stands; one changed by hand stays.
    void GeneraScadenze();
    void mostra(std::span<const Rata> rate);
    // What the grid shows. Errore 13 for a date or an amount that is none.
    [[nodiscard]] std::vector<Rata> rate() const;
    void blocca(bool bloccato);
    [[nodiscard]] Layout layout();

private:
    Sessione& sessione_;
    std::function<BasePiano()> base_;
};

}  // namespace bravona
