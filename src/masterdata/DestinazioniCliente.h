#pragma once

#include <array>
#include <functional>
#include <string>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"

namespace bravona {

// What differs between the party screens when a destination comes or goes. Failures pass through.
struct RegoleDestinazioni {
    std::function<bool()> puoAggiungere;                       // false: told already
    std::function<std::string(const ListRow&)> aggiunta;       // keeps the row; its key in the list
    std::function<bool(const std::string& chiave)> eliminare;  // asks, tells and deletes; false: the row stays
};

// A party's delivery addresses: the list and the boxes for a new one.
class DestinazioniCliente {
public:
    explicit DestinazioniCliente(RegoleDestinazioni regole);

    ListView lvwDestinazioni;
    // Name, address, city, province, postcode; not the order of the list's columns.
    std::array<TextBox, 5> txtDestinazioni{TextBox{40}, TextBox{40}, TextBox{28}, TextBox{4}, TextBox{7}};
    std::array<Button, 2> cmdDestinazioni{Button{"Aggiunge"}, Button{"Elimina"}};

    void registra(const std::function<void(const std::string&, Control&, int)>& aggiungi);
    // The first box of a destination that is typed and not added; nullptr: none is.
    [[nodiscard]] TextBox* battuta();
    [[nodiscard]] Layout layout();

private:
    void Aggiunge();
    void Elimina();
    RegoleDestinazioni regole_;
};

}  // namespace bravona
