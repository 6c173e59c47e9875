#pragma once

#include <functional>
#include <initializer_list>

#include "platform/windowing/Form.h"

namespace bravona {

// Filters of typed characters: the character, or 0 to drop it. Control characters and the blank always pass; the test
// is exact, with case.
char32_t ValidaCodiceArticolo(char32_t tasto);
char32_t ValidaCifre(char32_t tasto);
char32_t ValidaData(char32_t tasto);
char32_t ValidaImporto(char32_t tasto);
char32_t ValidaSconto(char32_t tasto);
char32_t ValidaLettere(char32_t tasto);
char32_t inMaiuscolo(char32_t tasto);
// The older filter: digits, Backspace and Enter, besides them "/" in mode 1 and "." in mode 4.
char32_t VerificaTasto(char32_t tasto, int modo);

// The filters as a control's `onKeyPress`, one behind the other.
template <class... Filtro>
std::function<void(char32_t&)> filtraTasti(Filtro... filtro)
{
    return [=](char32_t& tasto) { ((tasto = tasto == 0 ? 0 : filtro(tasto)), ...); };
}

// Empties text boxes, lists, combos, check boxes and pictures of the window, but for `tranne`. A failure is told to the
// person.
void AzzeraCampi(Form& finestra, std::initializer_list<const Control*> tranne = {});

}  // namespace bravona
