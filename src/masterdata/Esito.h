#pragma once

#include <optional>

#include "platform/windowing/Desktop.h"

namespace bravona {

// What became of an operation of a data class, which tells nobody: whoever asked for it shows the box.
struct [[nodiscard]] Esito {
    bool riuscito = true;
    std::optional<MessageBox> messaggio;  // of a failure; none: there is nothing to tell

    // Shows what there is to tell; whether the operation succeeded.
    [[nodiscard]] bool riferisci(Desktop& desktop) const
    {
        if (messaggio) {
            desktop.messageBox(*messaggio);
        }
        return riuscito;
    }
};

}  // namespace bravona
