#pragma once

#include <functional>
#include <memory>

#include "maintenance/clsHuffman.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// What the screens that make and take back a backup share: places and folders to choose from, the codec and its
// progress. Escape closes; while the codec works it gives the work up first, and everything is as before.
class FinestraBackup : public Form {
public:
    DriveList Drive1;
    DirList Dir1;
    Label Label3;
    ProgressBar ProgressBar1;

    void onLoad() override;
    void onKeyDown(KeyEvent& event) override;
    bool onQueryUnload(CloseCause cause) override;

protected:
    struct Parole {
        const char* prima;     // of the status label: before the codec tells its progress,
        const char* codifica;  // while it does,
        const char* file;      // and when only the file is left to be written
    };
    FinestraBackup(Sessione& sessione, const char* nome, const char* titolo, const Parole& parole);

    // Runs the work with bar and label shown; false when the person gave it up. Failures travel on. Afterwards the bar
    // stands at 0 and both are hidden again.
    bool esegui(const std::function<void(const clsHuffman& huffman)>& lavoro);
    // Tells, still within the work, what it has achieved: a word in the status bar and a box.
    void racconta(const std::string& parola, const std::string& testo);
    [[nodiscard]] bool alLavoro() const { return alLavoro_; }
    // The place where a person begins: the home folder.
    [[nodiscard]] std::string primoPosto() const;

    Sessione& sessione_;

private:
    void Huffman_Progress(std::int16_t percento);
    void mostraStato(bool visibile);

    std::unique_ptr<clsHuffman> Huffman_;
    Parole parole_;
    bool alLavoro_ = false;
    bool interrotto_ = false;
};

}  // namespace bravona
