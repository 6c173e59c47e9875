#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "session/Sessione.h"

namespace bravona {

// A pick-list of records: fill it, show it modally, then read the choice, the record's key or ricerca::annullata, in
// the session.
class ListaDiScelta : public Form {
public:
    ListView lwSelect;
    std::array<Button, 2> Command1{Button("&Ok"), Button("&Annulla")};

    void Riempi(std::vector<ListColumn> colonne, std::vector<ListRow> righe);

    void onLoad() override;
    bool onQueryUnload(CloseCause cause) override;

protected:
    // `risposta` is where the session keeps this list's choice.
    ListaDiScelta(Sessione& sessione, const std::string& nome, const std::string& titolo, std::int32_t& risposta);

    void Ok();

private:
    void Annulla();
    void congeda();

    Sessione& sessione_;
    std::int32_t& risposta_;
};

}  // namespace bravona
