#include "masterdata/clsCliente.h"

namespace bravona {

namespace {

constexpr const char* titoloAnagrafica = "Anagrafica Clienti";
std::string riga(std::int32_t id)
{
    return "SELECT * FROM CLienti WHERE IDcliente = " + std::to_string(id);
}

}  // namespace

bool clsCliente::RichiamaCliente(std::int32_t id)
{
    return protetto("RichiamaCliente", [&] {
        Recordset record = DataBase->open(riga(id));
        IDCliente = record["IDCliente"].asLong();
        Cliente = record["Cliente"].text();
        ClienteSecondaRiga = record["ClienteSecondaRiga"].text();
        Indirizzo = record["Indirizzo"].text();
        Citta = record["Citta"].text();
        Provincia = record["Provincia"].text();
        Cap = record["Cap"].text();
        Telefono = record["Telefono"].text();
        TelefonoCellulare = record["TelefonoCellulare"].text();
        Fax = record["Fax"].text();
        PostaElettronica = record["PostaElettronica"].text();
        PartitaIva = record["PartitaIva"].text();
        CodiceFiscale = record["CodiceFiscale"].text();
        Banca = record["Banca"].text();
        Tipo = record["Tipo"].text();
        ABI = record["ABI"].text();
        CAB = record["CAB"].text();
        IDpagamento = record["IDpagamento"].longOr(0);
        IDListino = record["IDListino"].longOr(0);
        ScontoMaggiorazione1 = record["ScontoMaggiorazione1"].longOr(0);
        ScontoMaggiorazione2 = record["ScontoMaggiorazione2"].longOr(0);
        ScontoMaggiorazione3 = record["ScontoMaggiorazione3"].longOr(0);
        Stato = record["Stato"].text();
        DescrizioneEsenzioneIVA = record["DescrizioneEsenzioneIVA"].text();
        EstremiEsenzioneIVA = record["EstremiEsenzioneIVA"].text();
        EsenteIva = !record["EsenteIva"].isNull() && record["EsenteIva"].asBool();
        NoteGeneriche = record["NoteGeneriche"].text();
        VisualizzaNoteSuDocumenti =
            !record["VisualizzaNoteSuDocumenti"].isNull() && record["VisualizzaNoteSuDocumenti"].asBool();
        Listino.clear();
    });
}

void clsCliente::scrivi(Recordset& record) const
{
    record["Cliente"] = Cliente;
    record["ClienteSecondaRiga"] = ClienteSecondaRiga;
    record["Indirizzo"] = Indirizzo;
    record["Citta"] = Citta;
    record["Provincia"] = Provincia;
    record["Cap"] = Cap;
    record["Telefono"] = Telefono;
    record["TelefonoCellulare"] = TelefonoCellulare;
    record["Fax"] = Fax;
    record["PostaElettronica"] = PostaElettronica;
    record["PartitaIva"] = PartitaIva;
    record["CodiceFiscale"] = CodiceFiscale;
    record["Banca"] = Banca;
    record["Tipo"] = Tipo;
    record["ABI"] = ABI;
    record["CAB"] = CAB;
    record["IDpagamento"] = int{IDpagamento};
    record["IDListino"] = int{IDListino};
    record["ScontoMaggiorazione1"] = int{ScontoMaggiorazione1};
    record["ScontoMaggiorazione2"] = int{ScontoMaggiorazione2};
    record["ScontoMaggiorazione3"] = int{ScontoMaggiorazione3};
    record["Stato"] = Stato;
    record["DescrizioneEsenzioneIVA"] = DescrizioneEsenzioneIVA;
    record["EstremiEsenzioneIVA"] = EstremiEsenzioneIVA;
    record["EsenteIva"] = EsenteIva;
    record["NoteGeneriche"] = NoteGeneriche;
    record["VisualizzaNoteSuDocumenti"] = VisualizzaNoteSuDocumenti;
}

bool clsCliente::RegistraCliente(const Seguito& seguito)
{
    return inserisci("RegistraCliente", "Clienti", "IDCliente", IDCliente,
                     {titoloAnagrafica,
                      "Impossibile registrare il cliente in quanto è gia presente un cliente con la "
                      "stessa denominazione",
                      "Inserire almeno la denominazione del cliente!"},
                     seguito);
}

bool clsCliente::ModificaCliente(std::int32_t id)
{
    return modifica("ModificaCliente", riga(id));
}

bool clsCliente::EliminaCliente(std::int32_t id)
{
    return elimina("EliminaCliente", "DELETE * FROM CLienti WHERE IDcliente = " + std::to_string(id));
}

}  // namespace bravona
