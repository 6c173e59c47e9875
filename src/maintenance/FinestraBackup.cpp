#include "maintenance/FinestraBackup.h"

#include "session/modMain.h"

namespace bravona {

namespace {

// Not a failure: leaves the codec when the person gives the work up.
struct Interruzione {};

constexpr int completo = 100;

}  // namespace

FinestraBackup::FinestraBackup(Sessione& sessione, const char* nome, const char* titolo, const Parole& parole)
    : Form(sessione.desktop(), nome, titolo),
      sessione_(sessione),
      parole_(parole)
{
    Drive1.setAccessibleName("Unità");
    Dir1.setAccessibleName("Cartelle");
    ProgressBar1.setAccessibleName("Avanzamento");
    mostraStato(false);
}

void FinestraBackup::onLoad()
{
    Huffman_ = std::make_unique<clsHuffman>(sessione_.files());
    Huffman_->Progress = [this](std::int16_t percento) { Huffman_Progress(percento); };
    Drive1.refresh();
    CentraFinestra(*this, false);
}

void FinestraBackup::onKeyDown(KeyEvent& event)
{
    if (event.key == Key::escape) {
        event.drop();
        unload();
    }
}

bool FinestraBackup::onQueryUnload(CloseCause)
{
    interrotto_ = alLavoro_;
    return !alLavoro_;
}

bool FinestraBackup::esegui(const std::function<void(const clsHuffman& huffman)>& lavoro)
{
    alLavoro_ = true;
    interrotto_ = false;
    Label3.setCaption(parole_.prima);
    mostraStato(true);
    const auto finito = [this] {
        alLavoro_ = false;
        ProgressBar1.setValue(0);
        mostraStato(false);
    };
    try {
        const clsCursorWait attesa(desktop());
        desktop().repaint();
        lavoro(*Huffman_);
    } catch (const Interruzione&) {
        finito();
        return false;
    } catch (...) {
        finito();
        throw;
    }
    finito();
    return true;
}

void FinestraBackup::racconta(const std::string& parola, const std::string& testo)
{
    desktop().setPointer(Pointer::normal);
    Annuncia(sessione_, parola);
    desktop().inform(testo, "Bravona");
}

std::string FinestraBackup::primoPosto() const
{
    return Drive1.drives().front();
}

void FinestraBackup::Huffman_Progress(std::int16_t percento)
{
    Label3.setCaption(parole_.codifica);
    ProgressBar1.setValue(percento);
    if (ProgressBar1.value() == completo) {
        Label3.setCaption(parole_.file);
    }
    desktop().processEvents();
    if (interrotto_) {
        throw Interruzione{};
    }
}

void FinestraBackup::mostraStato(bool visibile)
{
    Label3.setVisible(visibile);
    ProgressBar1.setVisible(visibile);
}

}  // namespace bravona
