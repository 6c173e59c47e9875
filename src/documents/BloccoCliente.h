#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "documents/EditorRighe.h"
#include "platform/windowing/Fields.h"
#include "session/Sessione.h"

namespace bravona {

// Where a customer goes when he is found: notes and exemption belong to other parts of the screen.
struct CampiCliente {
    TextBox& txtEsenzioneIVA;
    Label& lblEsenteIva;
    TextBox& txtNoteGeneriche;
};

// The customer on a document screen: his fields, his terms and the goods' destination. Shared by the document screens.
class BloccoCliente {
public:
    // `chiamante` is the key by which the destination picker knows the screen; `titolo` that of the screen's boxes.
    BloccoCliente(Sessione& sessione, EditorRighe& righe, CampiCliente campi, std::string titolo,
                  std::string chiamante);

    Frame fraCliente{"Cliente"};
    std::array<TextBox, 7> txtCliente{TextBox{40}, TextBox{40}, TextBox{40}, TextBox{40},
                                      TextBox{40}, TextBox{16}, TextBox{20}};
    std::array<TextBox, 3> txtScontoAssociato{TextBox{4}, TextBox{4}, TextBox{4}};
    TextBox txtListinoAssociato{4};
    Button cmdDestinazioneMerce{"..."};
    Button cmdClear{"X"};

    std::int32_t IDCliente = 0;  // 0: none
    bool bolClienteEsenteIva = false;
    std::string ModalitaPagamento1;     // name of the payment method
    std::string ModalitaPagamentoCod1;  // its key as text

    // Loads a customer, found by the typed name unless a key above 0 is given. With `soloTestata` the row discounts,
    // the exemption, the notes and the price list stay as they are. The key found is handed back.
    void ImpostaCliente(bool soloTestata, std::int32_t& id);
    void impostaDestinazione(std::int32_t id, const std::string& nome);
    [[nodiscard]] std::array<std::string, 3> scontiAssociati() const;
    // What was typed but not searched gives way to the name of the document's customer.
    void mostraNome();

    void registra(const std::function<void(const std::string&, Control&, int)>& aggiungi);
    [[nodiscard]] Layout layout();

private:
    void nessunCliente();
    Sessione& sessione_;
    EditorRighe& righe_;
    CampiCliente campi_;
    std::string titolo_;
    std::string chiamante_;
    std::string nomeCliente_;
};

}  // namespace bravona
