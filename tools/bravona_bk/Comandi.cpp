#include "bravona_bk/Comandi.h"

#include "maintenance/AlberoDecodifica.h"
#include "maintenance/FormatoHuffman.h"
#include "maintenance/clsHuffman.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <stdexcept>

namespace bravona {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view estensione = ".bk";

// Whatever stands in a name.
std::string inUnaRiga(std::string testo)
{
    std::ranges::replace_if(
        testo, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return testo;
}

// The target's name, made from the source's when it is not given.
std::string bersaglio(std::span<const std::string> argomenti, const Files& file)
{
    const std::string& sorgente = argomenti[1];
    std::string nome;
    if (argomenti.size() == 3) {
        nome = argomenti[2];
    } else if (argomenti[0] == "encode") {
        nome = sorgente + std::string(estensione);
    } else if (sorgente.size() > estensione.size() && sorgente.ends_with(estensione)) {
        nome = sorgente.substr(0, sorgente.size() - estensione.size());
    } else {
        throw std::runtime_error("il nome non finisce in .bk: indicare il file di destinazione");
    }
    std::error_code ec;
    if (fs::equivalent(Files::native(sorgente), Files::native(nome), ec)) {
        throw std::runtime_error("sorgente e destinazione sono lo stesso file");
    }
    if (argomenti.size() == 2 && file.exists(nome)) {
        throw std::runtime_error(nome + " esiste gia': indicarlo come destinazione per sostituirlo");
    }
    return nome;
}

void trasforma(std::span<const std::string> argomenti, Files& file, std::ostream& uscita)
{
    const std::string destinazione = bersaglio(argomenti, file);
    const clsHuffman huffman(file);
    const clsHuffman::Esito esito = argomenti[0] == "encode" ? huffman.EncodeFile(argomenti[1], destinazione)
                                                             : huffman.DecodeFile(argomenti[1], destinazione);
    uscita << inUnaRiga(destinazione) << ": " << esito.letti << " -> " << esito.scritti << " byte\n" << std::flush;
    if (!uscita) {
        throw std::runtime_error(destinazione + " e' scritto, ma non si puo' scrivere sull'uscita");
    }
}

void descrivi(const std::string& nome, Files& file, std::ostream& uscita)
{
    if (file.size(nome) > huffman::lunghezzaCodificataMassima) {
        huffman::rifiuta("Il file e' troppo lungo per un backup");
    }
    Bytes dati = file.read(nome);
    const std::size_t byte = dati.size();
    const huffman::Testata testata = huffman::leggiTestata(dati);
    std::string codici;
    if (testata.forma == huffman::Forma::compressa && testata.lunghezza > 0) {
        const huffman::AlberoDecodifica albero(dati, static_cast<std::size_t>(testata.valori));
        codici = "valori distinti: " + std::to_string(testata.valori) + ", codici da " +
                 std::to_string(albero.codiceMinimo()) + " a " + std::to_string(albero.codiceMassimo()) + " bit\n" +
                 "checksum: " + std::to_string(testata.somma) + "\n";
    } else if (testata.forma == huffman::Forma::compressa) {
        huffman::rifiuta("Il file di backup non contiene dati");
    }
    clsHuffman(file).DecodeByte(dati);
    uscita << "forma: " << (codici.empty() ? "HE0 (non compressa)" : "HE3 (compressa)") << "\n"
           << "file: " << byte << " byte\n"
           << "originale: " << dati.size() << " byte\n"
           << codici << (codici.empty() ? "contenuto: senza checksum\n" : "contenuto: integro\n") << std::flush;
    if (!uscita) {
        throw std::runtime_error("non si puo' scrivere sull'uscita");
    }
}

}  // namespace

int bravonaBk(std::span<const std::string> argomenti, std::ostream& uscita, std::ostream& errori)
{
    const std::string comando = argomenti.empty() ? std::string() : argomenti[0];
    const bool trasformazione = comando == "encode" || comando == "decode";
    const std::size_t massimo = trasformazione ? 3 : 2;
    if ((!trasformazione && comando != "info") || argomenti.size() < 2 || argomenti.size() > massimo) {
        errori << "uso: bravona_bk encode|decode FILE [TO] | info FILE\n";
        return 1;
    }
    try {
        Files file;
        if (trasformazione) {
            trasforma(argomenti, file, uscita);
        } else {
            descrivi(argomenti[1], file, uscita);
        }
        return 0;
    } catch (const std::exception& e) {
        errori << inUnaRiga("bravona_bk: " + argomenti[1] + ": " + e.what()) << "\n";
        return 1;
    }
}

}  // namespace bravona
