#pragma once

#include <bitset>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/store/Connection.h"
#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Lists.h"

namespace bravona {

// What is chosen in the tree.
struct NodoPerMese {
    enum class Genere { radice, soggetto, mese };
    Genere genere = Genere::radice;
    std::int32_t idSoggetto = 0;
    int mese = 0;  // 1 to 12; 0: the documents without a date

    friend bool operator==(const NodoPerMese&, const NodoPerMese&) = default;
};

// In which months, 1 to 12, a party has documents; 0 stands for a date that is none.
using MesiConDocumenti = std::bitset<13>;

[[nodiscard]] std::size_t meseDi(const Field& data);
// Statement of the documents of a table that a party's node or a month's holds, by number.
[[nodiscard]] std::string documentiDelNodo(const NodoPerMese& nodo, const std::string& tabella, const std::string& anno,
                                           const std::string& registro);

// How the trees of the screens differ.
struct RegoleAlbero {
    std::string radice;      // "Clienti"
    std::string etichetta;   // in front of the party's name: "Cliente: "
    std::string soggetti;    // statement of the parties, with IDCliente and Cliente
    bool tuttiIMesi = true;  // the twelve, those with documents bold; else only those with documents
};

// A tree of parties and, below each, of months, and a line that tells what is chosen. Node keys: "ROOT", "c" and the
// party's id, "m", two digits of the month and the party's id.
class AlberoPerMese final : public ControlGroup {
public:
    AlberoPerMese(Connection& cn, RegoleAlbero regole);

    TreeView tvwClienti;
    Label lblCliente;

    // Told when a node is chosen, the root too.
    std::function<void(const NodoPerMese&)> nodoScelto;

    // Fills the tree anew; nothing is chosen then.
    void carica();
    // Fills it anew if the parties are others than those shown; what is chosen and what hangs below them stays.
    void rileggi();
    [[nodiscard]] std::optional<NodoPerMese> scelto() const;
    // Hangs the months below the party, or marks those that hang there; a party that is not in the tree has none.
    void mostraMesi(std::int32_t idSoggetto, const MesiConDocumenti& mesi);
    // The tree beside a list of what the chosen node holds, the line above the list.
    [[nodiscard]] Layout layout(Layout elenco);

private:
    [[nodiscard]] NodoPerMese nodo(int posizione) const;
    [[nodiscard]] bool mostra(Recordset& soggetti) const;
    void riempi(Recordset& soggetti);
    void racconta(int posizione);
    void scegli(int posizione);
    Connection& cn_;
    RegoleAlbero regole_;
};

}  // namespace bravona
