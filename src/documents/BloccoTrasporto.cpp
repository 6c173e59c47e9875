#include "documents/BloccoTrasporto.h"

#include "masterdata/modValidazioneCampi_Caratteri.h"
#include "platform/values/Numeri.h"

namespace bravona {

BloccoTrasporto::BloccoTrasporto()
{
    add("fraNote", fraNote);
    add("txtNoteGeneriche", txtNoteGeneriche);
    add("fraSpedizioneAMezzo", fraSpedizioneAMezzo);
    add("cmbCausaleTrasporto", cmbCausaleTrasporto);
    add("cmbSpedizione", cmbSpedizione);
    add("fraVettore", fraVettore);
    add("txtVettore", txtVettore);
    add("fraPorto", fraPorto);
    add("cmbPorto", cmbPorto);
    add("fraColli", fraColli);
    add("txtPeso", txtPeso);
    add("txtColliAspetto", txtColliAspetto);
    add("txtColliNumero", txtColliNumero);

    txtNoteGeneriche.multiLine = true;
    txtNoteGeneriche.lines = 4;
    txtNoteGeneriche.grows = true;
    txtVettore.multiLine = true;
    txtVettore.lines = 2;
    txtVettore.grows = true;
    txtPeso.align = Align::right;
    txtColliNumero.align = Align::right;
    txtPeso.numeric = true;
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

DatiTrasporto BloccoTrasporto::leggi() const
{
    DatiTrasporto trasporto;
    trasporto.SpedizioneAMezzo = cmbSpedizione.text();
    trasporto.Porto = cmbPorto.text();
    trasporto.Vettore = txtVettore.text();
    if (!txtPeso.text().empty())
        trasporto.Peso = toDouble(txtPeso.text());
    trasporto.ColliAspetto = txtColliAspetto.text();
    trasporto.ColliNumero = leadingNumber(txtColliNumero.text());
    return trasporto;
}

void BloccoTrasporto::mostra(const DatiTrasporto& trasporto)
{
    cmbSpedizione.setText(trasporto.SpedizioneAMezzo);
    cmbPorto.setText(trasporto.Porto);
    txtVettore.setText(trasporto.Vettore);
    txtPeso.setText(trasporto.Peso ? numberText(*trasporto.Peso) : std::string());
    txtColliAspetto.setText(trasporto.ColliAspetto);
    txtColliNumero.setText(numberText(trasporto.ColliNumero));
}

void BloccoTrasporto::abilita(bool abilitati)
{
    for (Frame* cornice : {&fraNote, &fraSpedizioneAMezzo, &fraVettore, &fraPorto, &fraColli})
        cornice->setEnabled(abilitati);
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
