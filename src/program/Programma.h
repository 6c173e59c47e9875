#pragma once

#include "session/Sessione.h"

namespace bravona {

// The composition root: knows every screen, hands them to the registry by name, and runs the start. The screens refer
// to its session: they go (with the desktop, or by clearing its registry) before it does.
class Programma {
public:
    explicit Programma(Ambiente ambiente);
    Programma(const Programma&) = delete;
    Programma& operator=(const Programma&) = delete;
    // The start sequence, up to the main window on the screen. A failure that nothing caught, and every deliberate end,
    // leaves the desktop ended with its status.
    void avvia();
    [[nodiscard]] Sessione& sessione() { return sessione_; }

private:
    void registraSchermate();
    void sequenzaDiAvvio();
    void sessioneSullArchivio();
    void scarichiDovuti();
    Sessione sessione_;
};

}  // namespace bravona
