#include "masterdata/clsCliente.h"

namespace bravona {

namespace {

constexpr const char* titoloAnagrafica = "Anagrafica Clienti";
std::string riga(std::int32_t id)
{
    return "SELECT * FROM CLienti WHERE IDcliente = " + std::to_string(id);
}

DatiCliente leggi(Recordset record)
{
    DatiCliente dati;
    dati.IDCliente = record["IDCliente"].asLong();
    dati.Cliente = record["Cliente"].text();
    dati.ClienteSecondaRiga = record["ClienteSecondaRiga"].text();
    dati.Indirizzo = record["Indirizzo"].text();
    dati.Citta = record["Citta"].text();
    dati.Provincia = record["Provincia"].text();
    dati.Cap = record["Cap"].text();
    dati.Telefono = record["Telefono"].text();
    dati.TelefonoCellulare = record["TelefonoCellulare"].text();
    dati.Fax = record["Fax"].text();
    dati.PostaElettronica = record["PostaElettronica"].text();
    dati.PartitaIva = record["PartitaIva"].text();
    dati.CodiceFiscale = record["CodiceFiscale"].text();
    dati.Banca = record["Banca"].text();
    dati.Tipo = record["Tipo"].text();
    dati.ABI = record["ABI"].text();
    dati.CAB = record["CAB"].text();
    dati.IDpagamento = record["IDpagamento"].longOr(0);
    dati.IDListino = record["IDListino"].longOr(0);
    dati.ScontoMaggiorazione1 = record["ScontoMaggiorazione1"].longOr(0);
    dati.ScontoMaggiorazione2 = record["ScontoMaggiorazione2"].longOr(0);
    dati.ScontoMaggiorazione3 = record["ScontoMaggiorazione3"].longOr(0);
    dati.Stato = record["Stato"].text();
    dati.DescrizioneEsenzioneIVA = record["DescrizioneEsenzioneIVA"].text();
    dati.EstremiEsenzioneIVA = record["EstremiEsenzioneIVA"].text();
    dati.EsenteIva = !record["EsenteIva"].isNull() && record["EsenteIva"].asBool();
    dati.NoteGeneriche = record["NoteGeneriche"].text();
    dati.VisualizzaNoteSuDocumenti =
        !record["VisualizzaNoteSuDocumenti"].isNull() && record["VisualizzaNoteSuDocumenti"].asBool();
    return dati;
}

}  // namespace

Esito clsCliente::RichiamaCliente(std::int32_t id)
{
    return protetto("RichiamaCliente", [&] { static_cast<DatiCliente&>(*this) = leggi(DataBase->open(riga(id))); });
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

Esito clsCliente::RegistraCliente(const Seguito& seguito)
{
    return inserisci("RegistraCliente", "Clienti", "IDCliente", IDCliente,
                     {titoloAnagrafica,
                      "Impossibile registrare il cliente in quanto è gia presente un cliente con la "
                      "stessa denominazione",
                      "Inserire almeno la denominazione del cliente!"},
                     seguito);
}

Esito clsCliente::ModificaCliente(std::int32_t id)
{
    return modifica("ModificaCliente", riga(id));
}

Esito clsCliente::EliminaCliente(std::int32_t id)
{
    return elimina("EliminaCliente", "DELETE * FROM CLienti WHERE IDcliente = " + std::to_string(id));
}

}  // namespace bravona
