#include "support/DocumentoDiProva.h"

namespace bravona {

namespace {

std::string allungato(const std::string& testo, bool lungo)
{
    std::string risultato = testo;
    while (lungo && risultato.size() < 240) {
        risultato += ' ' + testo;
    }
    return risultato;
}

std::vector<std::pair<std::string, std::string>> valori(const DocumentoDiProva& d, int riga)
{
    const auto testo = [&](const char* breve) { return allungato(breve, d.lunghi); };
    const auto importo = [&](const char* breve) { return std::string(d.milioni ? "123456789,12" : breve); };
    std::vector<std::pair<std::string, std::string>> v{
        {"NumeroDocumento", "127"},
        {"DataDocumento", "15/01/2004"},
        {"ModalitaPagamento", testo("Ricevuta bancaria 30/60 gg.")},
        {"SpedizioneAMezzo", testo("Mittente")},
        {"Porto", testo("Franco")},
        {"ColliAspetto", testo("Scatole")},
        {"CausaleTrasporto", testo("VENDITA")},
        {"Peso", importo("124,5")},
        {"ColliNumero", d.milioni ? "123456" : "12"},
        {"TotaleIvaEsclusa", importo("2134,5")},
        {"ImportoTotaleIva", importo("426,9")},
        {"TotaleDocumento", importo("2561,4")},
        {"DataF", "15/01/2004"},
        {"Cliente", testo("Ferramenta Rossi & Figli")},
        {"ClienteSecondaRiga", testo("di Rossi Mario")},
        {"Clienti.Indirizzo", testo("Via Po, 1")},
        {"Banca", testo("Banca di Novara")},
        {"PartitaIva", testo("01234567890")},
        {"CodiceFiscale", testo("RSSMRA60A01L219X")},
        {"AliquotaIva", "20"},
        {"CodiceArticolo", testo(("A" + std::to_string(riga)).c_str())},
        {"Descrizione", testo("Vite zincata")},
        {"UnitaMisura", testo("Pz")},
        {"Quantita", importo("10")},
        {"PrezzoUnitario", importo("3,25")},
        {"Sconto1", d.lunghi ? "100" : "10"},
        {"Sconto2", d.lunghi ? "100" : "0"},
        {"Sconto3", d.lunghi ? "100" : "0"},
        {"CodiceIva", testo("A")},
        {"TotaleRiga", importo("32,5")},
    };
    for (int i = 1; i <= 5; ++i) {
        const std::string n = std::to_string(i);
        const bool usata = i <= d.aliquote;
        v.emplace_back("CodiceIva" + n, usata ? testo("A") : "");
        v.emplace_back("Descrizioneiva" + n, usata ? testo("Ordinaria") : "");
        v.emplace_back("AliquotaIva" + n, usata ? "20" : "0");
        v.emplace_back("ImponibileIva" + n, usata ? importo("2134,5") : "0");
        v.emplace_back("ImportoIva" + n, usata ? importo("426,9") : "0");
    }
    return v;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> DocumentoDiProva::colonne() const
{
    return valori(*this, 0);
}

Recordset DocumentoDiProva::apri() const
{
    DeclaredSet forma;
    for (const auto& [nome, valore] : colonne()) {
        forma.columns.push_back({nome});
    }
    Recordset documento = Recordset::declare(forma);
    for (int i = 0; i < righe; ++i) {
        documento.addNew();
        for (const auto& [nome, valore] : valori(*this, i)) {
            documento[nome] = valore;
        }
        for (const auto& [nome, valore] : altri) {
            documento[nome] = valore;
        }
        documento.update();
    }
    if (righe > 0) {
        documento.moveFirst();
    }
    return documento;
}

Pages pagineDi(const Report& report, int righePerPagina, const DocumentoDiProva& documento)
{
    const auto testo = [&](const char* breve) { return allungato(breve, documento.lunghi); };
    DatiDitta ditta;
    ditta.RagioneSocialeRiga1 = testo("Colorificio Bianchi S.r.l.");
    ditta.RagioneSocialeRiga2 = testo("Vernici e ferramenta");
    ditta.Indirizzo = testo("Corso Francia, 214");
    ditta.Citta = testo("10146 Torino");
    ditta.Provincia = testo("TO");
    ditta.Telefono = testo("011 7701234");
    ditta.Fax = testo("011 7701235");
    ditta.PartitaIva = testo("07654321001");
    Recordset origine = documento.apri();
    Recordset stampa = CostruisciRecordsetStampa(
        origine, ditta, "127", "1", {testo("10100 Torino (TO)"), testo("Via Roma, 2"), testo("10015 Ivrea (TO)")},
        static_cast<std::int16_t>(righePerPagina));
    return componi(report, stampa, *Date::parse("15/01/2004"));
}

}  // namespace bravona
