#pragma once

#include <string>

#include "documents/Documento.h"
#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// Transport data and notes of a document, shared by the document screens.
class BloccoTrasporto final : public ControlGroup {
public:
    BloccoTrasporto();

    Frame fraNote{"Note"};
    TextBox txtNoteGeneriche{60};
    Frame fraSpedizioneAMezzo{"Spedizione"};
    ComboBox cmbCausaleTrasporto;
    ComboBox cmbSpedizione;
    Frame fraVettore{"Vettore"};
    TextBox txtVettore{40};
    Frame fraPorto{"Porto"};
    ComboBox cmbPorto;
    Frame fraColli{"Colli"};
    TextBox txtPeso{10};
    ComboBox txtColliAspetto{true};
    TextBox txtColliNumero{8};

    void inizializza();
    // Errore 13 for a weight that is no number.
    [[nodiscard]] DatiTrasporto leggi() const;
    void mostra(const DatiTrasporto& trasporto);
    void abilita(bool abilitati);  // all its frames
    [[nodiscard]] Layout layout();
};

}  // namespace bravona
