#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/values/Errore.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// Routines that every screen shares. Failures that a routine does not tell are Errore.

inline constexpr const char* titoloErrore = "Errore - Bravona";
// "1.0.0"
std::string testoVersione();

// The steps of the start, in its order. FineProcesso where one of them ends the process.
void RegistraDatiProgramma(Sessione& sessione);
void CaricaImpostazioniDocumenti(Sessione& sessione);
void VerificaCartelle(Sessione& sessione);
std::string RilevaPercorsoDB(Sessione& sessione);
// A start with this archive failed for that reason: the next one asks for another, or for a backup. Not when another
// program held it.
void AnnotaArchivioRifiutato(Sessione& sessione, const std::string& percorso, std::uint32_t numero);
void AnnotaAvvioRiuscito(Sessione& sessione);
void ApriConnessione(Sessione& sessione, const std::string& percorso);
void ChiudiConnessione(Sessione& sessione);
bool EsisteArchivio(Sessione& sessione);
void CaricaDatiAzienda(Sessione& sessione);
void CaricaRegistri(Sessione& sessione);
bool NessunaFinestraAperta(const Sessione& sessione);
void CentraFinestra(Form& finestra, bool sulloSchermo);
// The title of the main window and its first status panel for the reference year.
void MostraAnnoRiferimento(Sessione& sessione);
// A short word on what just happened, in the main window's status bar.
void Annuncia(Sessione& sessione, const std::string& testo);
// What a long work is doing, there, with a bar beside it as long as it lives.
class Avanzamento {
public:
    explicit Avanzamento(Sessione& sessione) : sessione_(sessione) {}
    ~Avanzamento() { mostra(std::nullopt); }
    Avanzamento(const Avanzamento&) = delete;
    Avanzamento& operator=(const Avanzamento&) = delete;
    void passo(const std::string& testo, int percento) const;  // paints

private:
    void mostra(std::optional<int> percento) const;
    Sessione& sessione_;
};

// Numbering. The reference year's highest number of the table, in the register, plus 1.
std::int32_t ProssimoNumero(Sessione& sessione, const std::string& tabella, std::int32_t registro);
std::int32_t ProssimoNumeroTabella(Sessione& sessione, const std::string& tabella);
void CaricaComboRegistri(const Sessione& sessione, ComboBox& combo);

// The box of a routine that guards itself: "Si e' verificato il seguente errore: ", number and description, then the
// two lines as given ("Modulo: modMain", "Routine: AzzeraCampi"), in the order given.
MessageBox ErroreStandard(const Errore& errore, const std::string& primaRiga, const std::string& secondaRiga,
                          const std::string& separatore = " - ");
void MostraErroreStandard(Desktop& desktop, const Errore& errore, const std::string& primaRiga,
                          const std::string& secondaRiga, const std::string& separatore = " - ");
// "Attenzione! Operazione annullata a causa dell'errore n." and the number (or "Errore n."), description and the two
// lines.
void MostraOperazioneAnnullata(Desktop& desktop, const Errore& errore, bool inTransazione, const std::string& primaRiga,
                               const std::string& secondaRiga);

// The writes of one command, all or nothing. False when they failed: taken back, and told by that box with those lines.
bool InUnaTransazione(Sessione& sessione, const std::function<void()>& scritture, const std::string& primaRiga,
                      const std::string& secondaRiga);

// "Valore non valido!" under the screen's title, for a number that does not fit its type; the field gets the focus
// back.
void MostraValoreNonValido(Control& campo);

// The wait pointer as long as it lives.
class clsCursorWait {
public:
    explicit clsCursorWait(Desktop& desktop) : desktop_(desktop), previous_(desktop.pointer())
    {
        desktop_.setPointer(Pointer::wait);
    }
    ~clsCursorWait() { desktop_.setPointer(previous_); }
    clsCursorWait(const clsCursorWait&) = delete;
    clsCursorWait& operator=(const clsCursorWait&) = delete;

private:
    Desktop& desktop_;
    Pointer previous_;
};

}  // namespace bravona
