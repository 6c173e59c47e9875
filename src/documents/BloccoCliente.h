#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "documents/CampiRiga.h"
#include "platform/windowing/ControlGroup.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Layout.h"
#include "platform/windowing/Parts.h"
#include "session/Sessione.h"

namespace bravona {

// What a customer brings to the other parts of the screen.
struct ClienteDelDocumento {
    CondizioniCliente condizioni;
    std::string esenzione;  // wording, empty when he pays VAT
    std::string note;       // for the document
    bool conNote = false;   // they go onto it
};

// The customer on a document screen: his fields, his terms and the goods' destination. Shared by the document screens.
class BloccoCliente final : public ControlGroup {
public:
    // `chiamante` is the key by which the destination picker knows the screen; `titolo` that of the screen's boxes.
    BloccoCliente(Sessione& sessione, std::string titolo, std::string chiamante);

    Frame fraCliente{"Cliente"};
    std::array<TextBox, 7> txtCliente{TextBox{40}, TextBox{40}, TextBox{40}, TextBox{40},
                                      TextBox{40}, TextBox{16}, TextBox{20}};
    std::array<TextBox, 3> txtScontoAssociato{TextBox{4}, TextBox{4}, TextBox{4}};
    TextBox txtListinoAssociato{4};
    Button cmdDestinazioneMerce{"..."};
    Button cmdClear{"X"};
    Label lblPagamento;  // how he pays

    std::int32_t IDCliente = 0;              // 0: none
    std::int32_t IDDestinazione = 0;         // 0: his own address
    std::string ModalitaPagamento1;          // name of the payment method
    std::int32_t ModalitaPagamentoCod1 = 0;  // its key, 0: none
    std::int32_t IDListinoOriginale = 0;     // his price list, 0: none

    // A customer was chosen by the person, or there is none (then all is empty).
    std::function<void(const ClienteDelDocumento&)> clienteScelto;

    // Loads a customer, found by the typed name unless a key above 0 is given. One that cannot be read, or whose
    // payment method cannot, is none. With `soloTestata` only who and where he is and how he pays. The key found is
    // handed back.
    void ImpostaCliente(bool soloTestata, std::int32_t& id);
    void impostaPagamento(std::int32_t id, const std::string& descrizione);
    void impostaDestinazione(std::int32_t id, const std::string& nome);
    // False, after having told it and put the focus there: another name stands over the customer's, not searched for.
    [[nodiscard]] bool nomeConfermato();
    void nessunCliente();  // all is empty
    void mostraCondizioni(const CondizioniCliente& condizioni);
    [[nodiscard]] Layout layout();

private:
    void nessunRecord();
    void cerca(KeyEvent& evento);
    void mostraPagamento();
    void scegliDestinazione();
    Sessione& sessione_;
    std::string titolo_;
    std::string chiamante_;
    std::string nomeCliente_;
};

}  // namespace bravona
