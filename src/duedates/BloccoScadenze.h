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
    Label lblSommaRate;       // of the instalments
    Label lblDifferenzaRate;  // from the document's total, where there is one

    // `titolo`: of its box.
    void setTitolo(std::string titolo) { titolo_ = std::move(titolo); }
    void setBase(std::function<BasePiano()> base) { base_ = std::move(base); }
    // Headings only.
    void svuota();
    // The plan of the document as it stands; one changed by hand stays. A line that comes out with the date and the
    // amount of an old one keeps its paid mark.
    void GeneraScadenze();
    void mostra(std::span<const Rata> rate);
    void mostraSomma();  // of what the grid shows, against the total of now
    // What the grid shows. Errore 13 for a date or an amount that is none.
    [[nodiscard]] std::vector<Rata> rate() const;
    void blocca(bool bloccato);
    [[nodiscard]] Layout layout();

private:
    void ricalcola();
    [[nodiscard]] std::vector<Rata> rateLeggibili() const;
    [[nodiscard]] std::vector<Rata> piano() const;
    Sessione& sessione_;
    std::string titolo_ = "Scadenzario";
    std::function<BasePiano()> base_;
};

}  // namespace bravona
