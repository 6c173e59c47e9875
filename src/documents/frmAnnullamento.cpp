#include "documents/frmAnnullamento.h"

#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"
#include "session/modMain.h"

namespace bravona {

namespace {
constexpr const char* titolo = "Annullamento documento";
}

frmAnnullamento::frmAnnullamento(Sessione& sessione)
    : Form(sessione.desktop(), "frmAnnullamento", titolo, WindowStyle::dialog),
      sessione_(sessione)
{
    cmdShow.onClick = [this] { conferma(); };
    cmdClose.onClick = [this] { unload(); };

    add("fraTipo", fraTipo);
    add("optTipo", optTipo);
    add(registro);
    add(campoNumero);
    add("cmdShow", cmdShow);
    add("cmdClose", cmdClose);
    optTipo[0].choose();
    using namespace layout;
    setLayout(column({frame(fraTipo, row({of(optTipo[0]), of(optTipo[1]), stretch()})),
                      form({registro.linea(), campoNumero.linea()}), rowEnd({of(cmdShow), of(cmdClose)})}));
    setDefaultButton(&cmdShow);
    setCancelButton(&cmdClose);
}

void frmAnnullamento::onLoad()
{
    registro.carica(sessione_);
}

void frmAnnullamento::conferma()
{
    if (campoNumero.txtNumeroDocumento.text().empty()) {
        desktop().inform("Indicare il numero del documento da annullare!", titolo);
        campoNumero.txtNumeroDocumento.setFocus();
        return;
    }
    if (const auto numero = campoNumero.numero())
        AnnullaDocumento(*numero);
}

void frmAnnullamento::AnnullaDocumento(std::int32_t numero)
{
    const bool inDDT = optTipo[0].chosen();
    Recordset trovato = inDDT ? cerca("IDBolla, EmessaFattura", "Bolle", numero)
                              : cerca("IDFattura, RiferimentoBolla", "Fatture", numero);
    if (trovato.eof()) {
        desktop().inform("Attenzione! Documento inesistente.", titolo);
        return;
    }
    const std::string id = trovato[0].text();
    const bool legato = trovato[1].text() == "S";  // to an invoice, or to transport documents
    if (!inDDT)
        AnnullaFattura(id, legato);
    else if (legato)
        desktop().inform("Impossibile annullare questo documento in quanto esistono documenti figli!", titolo);
    else
        AnnullaDDT(id);
}

Recordset frmAnnullamento::cerca(const std::string& colonne, const std::string& tabella, std::int32_t numero) const
{
    return sessione_.cn.open("SELECT " + colonne + ", NumeroDocumento FROM " + tabella + " WHERE NumeroDocumento= " +
                             std::to_string(numero) + " AND AnnoDocumento=" + sessione_.AnnoRiferimento +
                             " AND NumeroRegistro=" + registro.testo());
}

bool frmAnnullamento::chiedi(const std::string& documento) const
{
    return desktop().askBeforeLosing(documento + campoNumero.txtNumeroDocumento.text() +
                                         "\nAnnullando il documento, verranno eliminati tutti i riferimenti ad esso."
                                         "\nContinuare con l'operazione?",
                                     titolo);
}

void frmAnnullamento::AnnullaDDT(const std::string& idBolla)
{
    if (!chiedi("D.D.T. n."))
        return;
    sessione_.cn.execute("DELETE * FROM Bolle WHERE IDBolla=" + idBolla);
    desktop().inform("Documento annullato!", titolo);
}

// The rows and instalments of the document go with its header, by the archive's own rules.
void frmAnnullamento::AnnullaFattura(const std::string& idFattura, bool daDDT)
{
    if (!chiedi("Fattura n."))
        return;
    const auto scritture = [&] {
        if (daDDT) {
            // The links tell which ones to free: they go afterwards.
            sessione_.cn.execute("UPDATE Bolle INNER JOIN Fatture_RiferimentoBolle ON Bolle.IDbolla = "
                                 "Fatture_RiferimentoBolle.IDBolla SET Bolle.EmessaFattura = 'N', "
                                 "Bolle.NumeroFattura = 0, Bolle.DataFattura ='' WHERE "
                                 "Fatture_RiferimentoBolle.IDFattura=" +
                                 idFattura);
            desktop().processEvents();
            sessione_.cn.execute("DELETE * FROM Fatture_RiferimentoBolle WHERE IDFattura=" + idFattura);
            desktop().processEvents();
        }
        sessione_.cn.execute("DELETE * FROM Fatture WHERE IDFattura=" + idFattura);
    };
    if (InUnaTransazione(sessione_, scritture, "Routine: AnnullaFattura ", "Modulo: frmAnnullamento"))
        desktop().inform("Documento annullato!", titolo);
}

}  // namespace bravona
