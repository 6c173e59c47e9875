#include "documents/BloccoTrasporto.h"

#include "masterdata/modValidazioneCampi_Caratteri.h"

namespace bravona {

BloccoTrasporto::BloccoTrasporto()
{
    txtNoteGeneriche.multiLine = true;
    txtNoteGeneriche.lines = 4;
    txtNoteGeneriche.grows = true;
    txtVettore.multiLine = true;
    txtVettore.lines = 2;
    txtVettore.grows = true;
    txtPeso.align = Align::right;
    txtColliNumero.align = Align::right;
    txtPeso.onKeyPress = filtraTasti(ValidaImporto);
    txtColliNumero.onKeyPress = filtraTasti(ValidaCifre);
    cmbCausaleTrasporto.width = 14;
    cmbSpedizione.width = 14;
    cmbPorto.width = 14;
    txtColliAspetto.width = 18;
}

void BloccoTrasporto::inizializza()
{
    for (const char* voce : {"Vendita", "Reso", "Campione", "Per visione"})
        cmbCausaleTrasporto.addItem(voce);
    cmbCausaleTrasporto.setListIndex(0);
    for (const char* voce : {"Mittente", "Destinatario", "Vettore"})
        cmbSpedizione.addItem(voce);
    cmbSpedizione.setText("Destinatario");
    for (const char* voce : {"Franco", "Assegnato"})
        cmbPorto.addItem(voce);
    cmbPorto.setListIndex(0);
    for (const char* voce : {"A vista", "Buste", "Scatole", "Pedane"})
        txtColliAspetto.addItem(voce);
    txtColliAspetto.setText("A vista");
}

void BloccoTrasporto::abilita(bool abilitati)
{
    for (Frame* cornice : {&fraNote, &fraSpedizioneAMezzo, &fraVettore, &fraPorto, &fraColli})
        cornice->setEnabled(abilitati);
}

void BloccoTrasporto::registra(const std::function<void(const std::string&, Control&, int)>& aggiungi)
{
    constexpr int semplice = -1;
    const auto uno = [&](const char* nome, Control& controllo) { aggiungi(nome, controllo, semplice); };
    uno("fraNote", fraNote);
    uno("txtNoteGeneriche", txtNoteGeneriche);
    uno("fraSpedizioneAMezzo", fraSpedizioneAMezzo);
    uno("cmbCausaleTrasporto", cmbCausaleTrasporto);
    uno("cmbSpedizione", cmbSpedizione);
    uno("fraVettore", fraVettore);
    uno("txtVettore", txtVettore);
    uno("fraPorto", fraPorto);
    uno("cmbPorto", cmbPorto);
    uno("fraColli", fraColli);
    uno("txtPeso", txtPeso);
    uno("txtColliAspetto", txtColliAspetto);
    uno("txtColliNumero", txtColliNumero);
}

Layout BloccoTrasporto::layout()
{
    using namespace layout;
    return column({row({frame(fraSpedizioneAMezzo,
                              form({line("A mezzo", of(cmbSpedizione)), line("Causale", of(cmbCausaleTrasporto))})),
                        frame(fraPorto, form({line("Porto", of(cmbPorto))})),
                        frame(fraColli, form({line("Aspetto", of(txtColliAspetto)), line("Numero", of(txtColliNumero)),
                                              line("Peso (kg)", of(txtPeso))})),
                        stretch()}),
                   frame(fraVettore, form({line("Descrizione e indirizzo vettore", of(txtVettore))})),
                   frame(fraNote, form({line("Note", of(txtNoteGeneriche))})), stretch()});
}

}  // namespace bravona
