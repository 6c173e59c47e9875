#include "session/modMain.h"

#include <limits>

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "schema/Schema.h"
#include "session/frmDialogBox.h"

namespace bravona {

namespace {

constexpr std::uint32_t archivioInUso = 3218;  // by another program: not its own fault
constexpr std::int32_t versioneArchivio = 3;

// Settings of a wrong form lead to no message: what is too big for a number counts as 0.
double numeroImpostazione(const std::string& testo)
{
    try {
        return leadingNumber(testo);
    } catch (const Errore&) {
        return 0;
    }
}

std::int32_t interoImpostazione(const std::string& testo)
{
    try {
        return Value(leadingNumber(testo)).toLong();
    } catch (const Errore&) {
        return 0;
    }
}

// Once for an installation: totals of the documents from their stored parts, whatever their year.
void FirForOneEuro(Sessione& sessione)
{
    try {
        sessione.cn.execute("UPDATE Fatture SET TotaleDocumento=ImportoTotaleIva+TotaleIvaEsclusa");
        sessione.settings().save("Impostazioni", "EuroFix", "OK");
    } catch (const Errore& errore) {
        MostraErroreStandard(sessione.desktop(), errore, "Modulo: modMain", "Routine: FirForOneEuro");
    }
}

std::int32_t massimoPiuUno(Sessione& sessione, const std::string& istruzione)
{
    Recordset record = sessione.cn.open(istruzione);
    const std::int32_t ultimo = record.eof() ? 0 : record["UltimoDocumento"].longOr(0);
    if (ultimo == std::numeric_limits<std::int32_t>::max()) {
        throw Errore(errori::numeroTroppoGrande, "Overflow");
    }
    return ultimo + 1;
}

// An archive that ended the last start is tried once more when nothing is found wrong with it now.
bool rifiutato(Sessione& sessione, const std::string& percorso)
{
    Settings& settings = sessione.settings();
    if (percorso != settings.get("Avvio", "ArchivioRifiutato")) {
        return false;
    }
    if (percorso == settings.get("Avvio", "Riprovato")) {
        return true;
    }
    try {
        sessione.Comandi.ProvaAvvio(percorso);
    } catch (const Errore& errore) {
        return errore.numero() != archivioInUso;
    }
    settings.save("Avvio", "Riprovato", percorso);
    return false;
}

// An archive, or a backup that is put in place at once. Without either the program ends.
std::string chiediArchivio(Sessione& sessione, const std::string& perche)
{
    for (;;) {
        sessione.desktop().inform(perche, "Bravona");
        std::string scelto = frmDialogBox(sessione).SelezioneDBoBackup();
        if (scelto.empty()) {
            sessione.desktop().messageBox(
                {.title = "Bravona",
                 .text = "Attenzione! Non è stato selezionato alcun database.\nIl programma verrà terminato",
                 .icon = MsgIcon::exclamation});
            throw FineProcesso{};
        }
        if (lower(scelto).find(".bk", scelto.rfind('/') + 1) == std::string::npos) {
            return scelto;
        }
        try {
            return sessione.Comandi.RipristinaAllAvvio(scelto);
        } catch (const Errore& errore) {
            sessione.desktop().report(errore);
        }
    }
}

void mostraErrore(Desktop& desktop, const std::string& testo)
{
    desktop.critical(testo, titoloErrore);
}

}  // namespace

std::string testoVersione()
{
    return std::to_string(versioneProgramma.maggiore) + "." + std::to_string(versioneProgramma.minore) + "." +
           std::to_string(versioneProgramma.revisione);
}

void RegistraDatiProgramma(Sessione& sessione)
{
    sessione.settings().save("Impostazioni", "WorkDirectory", sessione.cartellaProgramma());
    sessione.settings().save("Impostazioni", "Versione", testoVersione());
}

void CaricaImpostazioniDocumenti(Sessione& sessione)
{
    sessione.OmbreggiaturaAttiva = numeroImpostazione(sessione.settings().get("Documenti", "Ombreggiatura", "1")) == 1;
    sessione.ColoreSfondo = interoImpostazione(sessione.settings().get("Documenti", "BGColor", "12632256"));
}

void VerificaCartelle(Sessione& sessione)
{
    for (const char* nome : {"\\images", "\\logo"}) {
        const std::string cartella = Files::native(sessione.cartellaProgramma() + nome);
        if (!sessione.files().folderExists(cartella)) {
            sessione.files().makeFolder(cartella);
        }
    }
}

std::string RilevaPercorsoDB(Sessione& sessione)
{
    std::string percorso = sessione.settings().get("Impostazioni", "PercorsoDB");
    const std::string predefinito = Files::native(sessione.cartellaProgramma() + "\\dbbveuro.mdb");
    if (percorso.empty() && sessione.files().exists(predefinito)) {
        percorso = predefinito;
    } else if (percorso.empty() || !sessione.files().exists(percorso)) {
        // A stored path whose file has gone is never replaced silently.
        percorso = chiediArchivio(sessione, "E' necessario selezionare il percorso del database per Bravona");
    } else if (rifiutato(sessione, percorso)) {
        percorso = chiediArchivio(sessione, "L'ultimo avvio con l'archivio \"" + percorso +
                                                "\" non è riuscito.\nScegliere un altro archivio (.mdb), oppure un "
                                                "backup (.bk) da ripristinare.");
    }
    sessione.settings().save("Impostazioni", "PercorsoDB", percorso);
    return percorso;
}

void AnnotaArchivioRifiutato(Sessione& sessione, const std::string& percorso, std::uint32_t numero)
{
    if (numero != archivioInUso) {
        sessione.settings().save("Avvio", "ArchivioRifiutato", percorso);
    }
}

void AnnotaAvvioRiuscito(Sessione& sessione)
{
    for (const char* nota : {"ArchivioRifiutato", "Riprovato"}) {
        if (!sessione.settings().get("Avvio", nota).empty()) {
            sessione.settings().save("Avvio", nota, "");
        }
    }
}

void ApriConnessione(Sessione& sessione, const std::string& percorso)
{
    Files::makeOwnerOnly(percorso);  // an earlier program left it under the user's mask
    try {
        sessione.cn.open(percorso, passwordArchivio);
    } catch (const Errore& errore) {
        AnnotaArchivioRifiutato(sessione, percorso, errore.numero());
        throw;
    }
    {
        Recordset versione =
            sessione.cn.open("SELECT TOP 1 Versione, DataAggiornamento FROM VersioneDB;", OpenMode::updatable);
        // Any other structure is stamped 0 at each opening, and the session goes on with it.
        if (versione["Versione"].longOr(0) != versioneArchivio) {
            versione["Versione"] = 0;
            versione["DataAggiornamento"] = sessione.clock().today();
            versione.update();
        }
    }
    completaSchema(sessione.cn);
    if (trim(sessione.settings().get("Impostazioni", "EuroFix")).empty()) {
        FirForOneEuro(sessione);
    }
}

void ChiudiConnessione(Sessione& sessione)
{
    sessione.cn.close();
}

bool EsisteArchivio(Sessione& sessione)
{
    Recordset record = sessione.cn.open("SELECT Max(AnnoArchivio) As AnnoRiferimentoArchivio FROM Archivi");
    return !record.eof() && record["AnnoRiferimentoArchivio"].longOr(0) != 0;
}

void CaricaDatiAzienda(Sessione& sessione)
{
    Recordset record = sessione.cn.open("Select * From DatiAzienda");
    sessione.DatiDitta = {.RagioneSocialeRiga1 = record["RagioneSocialeRiga1"].text(),
                          .RagioneSocialeRiga2 = record["RagioneSocialeRiga2"].text(),
                          .Indirizzo = record["Indirizzo"].text(),
                          .Citta = record["Citta"].text(),
                          .Provincia = record["Provincia"].text(),
                          .Cap = record["Cap"].text(),
                          .Telefono = record["Telefono"].text(),
                          .Fax = record["Fax"].text(),
                          .TipoStampa = record["TipoStampa"].text(),
                          .PercorsoImmagineLogo = record["PercorsoImmagineLogo"].text(),
                          .PartitaIva = record["PartitaIva"].text()};
}

void CaricaRegistri(Sessione& sessione)
{
    Recordset record = sessione.cn.open("SELECT * FROM TabellaRegistri ORDER BY CodiceRegistro");
    std::vector<std::string> registri{std::string()};
    for (; !record.eof(); record.moveNext()) {
        registri.push_back("(" + record["CodiceRegistro"].text() + ") - " + record["Descrizione"].text());
    }
    sessione.ElencoRegistri = std::move(registri);
}

bool NessunaFinestraAperta(const Sessione& sessione)
{
    return sessione.schermate().loadedCount() == 1;
}

void CentraFinestra(Form& finestra, bool sulloSchermo)
{
    finestra.centredOnScreen = sulloSchermo;
    finestra.desktop().centre(finestra, sulloSchermo);
}

void MostraAnnoRiferimento(Sessione& sessione)
{
    Form& principale = sessione.schermate().get("frmMain");
    sessione.desktop().load(principale);
    principale.setCaption("Bravona Ver." + testoVersione() + " Anno: " + sessione.AnnoRiferimento);
    principale.statusBar->panels.at(0) = "Gestione anno " + sessione.AnnoRiferimento;
    principale.statusBarChanged();
}

void Annuncia(Sessione& sessione, const std::string& testo)
{
    if (Form* principale = sessione.schermate().find("frmMain")) {
        principale->statusBar->panels.at(2) = testo;
        principale->statusBarChanged();
    }
}

void Avanzamento::passo(const std::string& testo, int percento) const
{
    mostra(percento);
    Annuncia(sessione_, testo);
    sessione_.desktop().repaint();
}

void Avanzamento::mostra(std::optional<int> percento) const
{
    if (Form* principale = sessione_.schermate().find("frmMain")) {
        principale->statusBar->progress = percento;
        principale->statusBarChanged();
    }
}

std::int32_t ProssimoNumero(Sessione& sessione, const std::string& tabella, std::int32_t registro)
{
    return massimoPiuUno(sessione, "SELECT MAX(NumeroDocumento) As UltimoDocumento FROM " + tabella +
                                       " WHERE AnnoDocumento=" + sessione.AnnoRiferimento +
                                       " AND NumeroRegistro=" + std::to_string(registro));
}

std::int32_t ProssimoNumeroTabella(Sessione& sessione, const std::string& tabella)
{
    return massimoPiuUno(sessione, "SELECT MAX(NumeroDocumento) As UltimoDocumento FROM " + tabella +
                                       " WHERE AnnoDocumento=" + sessione.AnnoRiferimento + " ");
}

void CaricaComboRegistri(const Sessione& sessione, ComboBox& combo)
{
    for (std::size_t registro = 1; registro < sessione.ElencoRegistri.size(); ++registro) {
        combo.addItem(sessione.ElencoRegistri[registro], static_cast<std::int32_t>(registro));
    }
}

MessageBox ErroreStandard(const Errore& errore, const std::string& primaRiga, const std::string& secondaRiga,
                          const std::string& separatore)
{
    return {.title = "Errore - Bravona",
            .text = "Si e' verificato il seguente errore: \n" + std::to_string(errore.numero()) + separatore +
                    errore.descrizione() + "\n" + primaRiga + "\n" + secondaRiga,
            .icon = MsgIcon::critical};
}

void MostraErroreStandard(Desktop& desktop, const Errore& errore, const std::string& primaRiga,
                          const std::string& secondaRiga, const std::string& separatore)
{
    desktop.messageBox(ErroreStandard(errore, primaRiga, secondaRiga, separatore));
}

void MostraOperazioneAnnullata(Desktop& desktop, const Errore& errore, bool inTransazione, const std::string& primaRiga,
                               const std::string& secondaRiga)
{
    mostraErrore(desktop,
                 std::string(inTransazione ? "Attenzione! Operazione annullata a causa dell'errore n." : "Errore n.") +
                     std::to_string(errore.numero()) + "\n" + errore.descrizione() + "\n" + primaRiga + "\n" +
                     secondaRiga);
}

bool InUnaTransazione(Sessione& sessione, const std::function<void()>& scritture, const std::string& primaRiga,
                      const std::string& secondaRiga)
{
    bool aperta = false;
    try {
        Transaction transazione(sessione.cn);
        aperta = true;
        scritture();
        transazione.commit();
        return true;
    } catch (const Errore& errore) {
        MostraOperazioneAnnullata(sessione.desktop(), errore, aperta, primaRiga, secondaRiga);
        return false;
    }
}

void MostraValoreNonValido(Control& campo)
{
    Form& finestra = *campo.form();
    finestra.desktop().inform("Valore non valido!", finestra.caption());
    campo.setFocus();
}

}  // namespace bravona
