#include "masterdata/modPagamenti.h"

#include <algorithm>
#include <array>

namespace bravona {

namespace {

template <class Lista>
void carica(Sessione& sessione, Lista& lista)
{
    Recordset record = sessione.cn.open("SELECT * FROM ModalitaPagamento ORDER BY IDModalitaPagamento");
    for (; !record.eof(); record.moveNext()) {
        lista.addItem(record["ModalitaPagamento"].text(), record["IDmodalitaPagamento"].asLong());
    }
}

std::string nome(Recordset record)
{
    return record.eof() ? std::string() : record["ModalitaPagamento"].text();
}

}  // namespace

void CaricaListaPagamenti(Sessione& sessione, ListBox& lista)
{
    carica(sessione, lista);
}

void CaricaListaPagamenti(Sessione& sessione, ComboBox& lista)
{
    carica(sessione, lista);
}

std::string NomePagamento(Sessione& sessione, std::int32_t id)
{
    return nome(sessione.cn.open("SELECT * FROM ModalitaPagamento WHERE IDModalitaPagamento =" + std::to_string(id)));
}

std::string DescrizioneModalitaPagamento(Sessione& sessione, std::int32_t id)
{
    if (id == 0) {
        return {};
    }
    return nome(sessione.cn.open("SELECT ModalitaPagamento FROM ModalitaPagamento WHERE IDModalitaPagamento= " +
                                 std::to_string(id)));
}

bool ModalitaPagamentoUtilizzata(Sessione& sessione, std::int32_t id)
{
    constexpr std::array usi{"Clienti WHERE IDpagamento=", "Fatture WHERE IDmodalitaPagamento=",
                             "Bolle WHERE IDmodalitaPagamento=", "Proforma WHERE IDmodalitaPagamento="};
    return std::ranges::any_of(usi, [&](const char* uso) {
        return sessione.cn.open("SELECT TOP 1 IDCliente FROM " + (uso + std::to_string(id))).recordCount() > 0;
    });
}

}  // namespace bravona
