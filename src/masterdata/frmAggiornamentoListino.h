#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Raises or lowers the prices of one list by a percentage, for the articles ticked.
class frmAggiornamentoListino final : public Form {
public:
    explicit frmAggiornamentoListino(Sessione& sessione);

    ComboBox cmbListini;
    ComboBox cmbFiltro;
    TextBox txtFiltro{24};
    Button cmdFiltra{"&Filtra / Cerca"};
    ListView lvwListino;
    ComboBox cmbVariazione;
    TextBox txtPercentuale{6};
    Button cmdAggiorna{"&Aggiorna"};
    std::array<Button, 1> cmdAzioni{Button("&Chiudi")};

    void onLoad() override;
    void onActivate() override { rileggiListini(); }
    [[nodiscard]] bool hasUnsavedWork() const override { return !articoliSpuntati().empty(); }
    [[nodiscard]] std::string subject() const override;

    // The prices of these articles (their keys) in the chosen list, up or down as chosen, by so many percent: all of
    // them or, false, none.
    bool AggiornaPrezzi(const std::vector<std::string>& articoli, const std::string& percentuale);

private:
    void creaMenu();
    void rileggiListini();  // their names; keeps the chosen one
    void spunta(bool tutti);
    void CaricaListino();
    [[nodiscard]] std::string filtro() const;
    void Aggiorna();
    [[nodiscard]] std::vector<std::string> articoliSpuntati() const;  // keys of articles
    [[nodiscard]] std::string listino() const { return std::to_string(cmbListini.listIndex() + 1); }

    Sessione& sessione_;
};

}  // namespace bravona
