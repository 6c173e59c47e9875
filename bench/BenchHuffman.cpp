#include "maintenance/AlberoDecodifica.h"
#include "maintenance/FormatoHuffman.h"
#include "maintenance/clsHuffman.h"

#include <benchmark/benchmark.h>
#include <zlib.h>

#include <link.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

// The codec against zlib and against a plain copy of the bytes, on 64 MiB of text, of program libraries and of an
// encrypted archive. All contenders of a material take turns in the same run, and the best time of each counts.
namespace bravona {

namespace {

constexpr std::size_t quantita = std::size_t{64} * 1024 * 1024;
constexpr int giri = 7;

// Prose and figures of a firm's papers: words by falling frequency, capitals, numbers, accented letters, line breaks.
Bytes testo()
{
    constexpr std::array parole = {
        "di",       "e",         "la",        "il",      "che",      "per",      "del",       "in",      "una",
        "con",      "fattura",   "cliente",   "merce",   "è",        "dei",      "pagamento", "non",     "al",
        "articolo", "prezzo",    "sconto",    "iva",     "totale",   "giorni",   "banca",     "destino", "causale",
        "vendita",  "trasporto", "quantità",  "colli",   "aspetto",  "porto",    "franco",    "vettore", "scadenza",
        "bonifico", "ricevuta",  "magazzino", "carico",  "numero",   "data",     "codice",    "listino", "esente",
        "aliquota", "bottiglia", "vite",      "zincata", "quaderno", "xilofono", "kit",       "jolly",   "wafer",
    };
    std::mt19937_64 caso(1);
    std::string scritto;
    scritto.reserve(quantita + 64);
    bool maiuscola = true;
    while (scritto.size() < quantita) {
        const auto tiro = caso();
        if (tiro % 11 == 0) {
            scritto += std::to_string(caso() % 100000) + "," + std::to_string(10 + caso() % 90);
        } else {
            const double quota = static_cast<double>(tiro >> 11) / static_cast<double>(std::uint64_t{1} << 53);
            std::string parola = parole[static_cast<std::size_t>(quota * quota * static_cast<double>(parole.size()))];
            if (maiuscola && parola[0] >= 'a') {
                parola[0] = static_cast<char>(parola[0] - 'a' + 'A');
            }
            scritto += parola;
        }
        maiuscola = tiro % 13 == 0;
        scritto += maiuscola ? (tiro % 3 == 0 ? ".\n" : ". ") : (tiro % 17 == 0 ? ", " : " ");
    }
    return Bytes(scritto.begin(), scritto.begin() + quantita);
}

// The shared libraries that stand beside those of this program, none of them for more than an eighth of the whole.
Bytes libreria()
{
    std::filesystem::path cartella;
    dl_iterate_phdr(
        [](dl_phdr_info* modulo, std::size_t, void* dove) {
            const std::string nome = modulo->dlpi_name;
            if (nome.find("libz.so") != std::string::npos) {
                *static_cast<std::filesystem::path*>(dove) = std::filesystem::path(nome).parent_path();
            }
            return 0;
        },
        &cartella);
    std::vector<std::filesystem::path> file;
    for (const auto& voce : std::filesystem::directory_iterator(cartella)) {
        if (voce.is_regular_file() && !voce.is_symlink() &&
            voce.path().filename().string().find(".so") != std::string::npos) {
            file.push_back(voce.path());
        }
    }
    std::ranges::sort(file);
    Bytes dati;
    while (dati.size() < quantita && !file.empty()) {
        for (const auto& nome : file) {
            std::ifstream ingresso(nome, std::ios::binary);
            Bytes tutto{std::istreambuf_iterator<char>(ingresso), {}};
            const std::size_t presi = std::min({tutto.size(), quantita / 8, quantita - dati.size()});
            dati.insert(dati.end(), tutto.begin(), tutto.begin() + static_cast<std::ptrdiff_t>(presi));
            if (dati.size() == quantita) {
                break;
            }
        }
    }
    return dati;
}

Bytes cifrato()
{
    Bytes dati(quantita);
    std::mt19937_64 caso(2);
    for (std::size_t i = 0; i < dati.size(); i += 8) {
        const std::uint64_t otto = caso();
        std::memcpy(dati.data() + i, &otto, 8);
    }
    return dati;
}

void controlla(bool buono, const char* che)
{
    if (!buono) {
        throw std::runtime_error(che);
    }
}

std::size_t deflate(const Bytes& dati, Bytes& uscita)
{
    z_stream flusso{};
    controlla(deflateInit2(&flusso, Z_DEFAULT_COMPRESSION, Z_DEFLATED, MAX_WBITS, MAX_MEM_LEVEL, Z_HUFFMAN_ONLY) ==
                  Z_OK,
              "deflateInit2");
    uscita.resize(deflateBound(&flusso, dati.size()));
    flusso.next_in = const_cast<Bytef*>(dati.data());
    flusso.avail_in = static_cast<uInt>(dati.size());
    flusso.next_out = uscita.data();
    flusso.avail_out = static_cast<uInt>(uscita.size());
    controlla(::deflate(&flusso, Z_FINISH) == Z_STREAM_END, "deflate");
    deflateEnd(&flusso);
    return flusso.total_out;
}

void inflate(const Bytes& dati, Bytes& uscita)
{
    z_stream flusso{};
    controlla(inflateInit(&flusso) == Z_OK, "inflateInit");
    flusso.next_in = const_cast<Bytef*>(dati.data());
    flusso.avail_in = static_cast<uInt>(dati.size());
    flusso.next_out = uscita.data();
    flusso.avail_out = static_cast<uInt>(uscita.size());
    controlla(::inflate(&flusso, Z_FINISH) == Z_STREAM_END, "inflate");
    inflateEnd(&flusso);
}

// The tree, one bit at a time.
void aBitABit(const Bytes& dati, Bytes& uscita)
{
    const huffman::Testata testata = huffman::leggiTestata(dati);
    const huffman::AlberoDecodifica albero(dati, static_cast<std::size_t>(testata.valori));
    std::size_t scritti = 0;
    std::int16_t nodo = huffman::AlberoDecodifica::radice;
    for (std::size_t i = albero.inizioDati(); i < dati.size() && scritti < uscita.size(); ++i) {
        for (int bit = 0; bit < 8 && scritti < uscita.size(); ++bit) {
            nodo = albero.figlio(nodo, dati[i] >> bit & 1);
            if (albero.valore(nodo) >= 0) {
                uscita[scritti++] = static_cast<std::uint8_t>(albero.valore(nodo));
                nodo = huffman::AlberoDecodifica::radice;
            }
        }
    }
}

// Seconds of processor time of this thread: a busy machine disturbs them least.
double tempoProcessore()
{
    timespec tempo{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &tempo);
    return static_cast<double>(tempo.tv_sec) + static_cast<double>(tempo.tv_nsec) / 1e9;
}

struct Concorrente {
    std::function<void()> prepara;
    std::function<void()> corre;
    double secondi = std::numeric_limits<double>::max();
};

void confronta(benchmark::State& stato, const std::function<Bytes()>& materiale)
{
    const Bytes originale = materiale();
    Files file;
    clsHuffman muto(file);
    clsHuffman conProgresso(file);
    std::int16_t visto = 0;
    conProgresso.Progress = [&visto](std::int16_t percento) { visto = percento; };

    Bytes codificato = originale;
    muto.EncodeByte(codificato);
    Bytes compresso;
    deflate(originale, compresso);
    Bytes lavoro;
    Bytes uscita(originale.size());
    // Always in memory of the same kind, whose release is part of every operation.
    const auto copiaDi = [&lavoro](const Bytes& dati) {
        lavoro = roomFor(dati.size());
        lavoro.insert(lavoro.end(), dati.begin(), dati.end());
    };
    const auto daOriginale = [&] { copiaDi(originale); };
    const auto daCodificato = [&] { copiaDi(codificato); };
    const auto niente = [] {};

    Concorrente copia{niente, [&] { std::memcpy(uscita.data(), originale.data(), originale.size()); }};
    Concorrente codifica{daOriginale, [&] { muto.EncodeByte(lavoro); }};
    Concorrente codificaP{daOriginale, [&] { conProgresso.EncodeByte(lavoro); }};
    Concorrente comprime{niente, [&] { deflate(originale, compresso); }};
    Concorrente decodifica{daCodificato, [&] { muto.DecodeByte(lavoro); }};
    Concorrente decodificaP{daCodificato, [&] { conProgresso.DecodeByte(lavoro); }};
    Concorrente espande{niente, [&] { inflate(compresso, uscita); }};
    Concorrente cammina{niente, [&] { aBitABit(codificato, uscita); }};

    for (auto _ : stato) {
        for (int giro = 0; giro < giri; ++giro) {
            for (Concorrente* concorrente :
                 {&copia, &codifica, &codificaP, &comprime, &decodifica, &decodificaP, &espande, &cammina}) {
                concorrente->prepara();
                const double inizio = tempoProcessore();
                concorrente->corre();
                concorrente->secondi = std::min(concorrente->secondi, tempoProcessore() - inizio);
                benchmark::ClobberMemory();
            }
        }
    }
    controlla(uscita == originale, "the walk of the tree differs");
    controlla(visto == 100, "no progress");

    const double byte = static_cast<double>(originale.size());
    stato.counters["size%"] = 100 * static_cast<double>(codificato.size()) / byte;
    stato.counters["enc_MB/s"] = byte / codifica.secondi / 1e6;
    stato.counters["enc_x_deflate"] = comprime.secondi / codifica.secondi;
    stato.counters["enc_copies"] = codifica.secondi / copia.secondi;
    stato.counters["enc_progress%"] = 100 * (codificaP.secondi / codifica.secondi - 1);
    stato.counters["dec_MB/s"] = byte / decodifica.secondi / 1e6;
    stato.counters["dec_x_inflate"] = espande.secondi / decodifica.secondi;
    stato.counters["dec_x_bitwise"] = cammina.secondi / decodifica.secondi;
    stato.counters["dec_copies"] = decodifica.secondi / copia.secondi;
    stato.counters["dec_progress%"] = 100 * (decodificaP.secondi / decodifica.secondi - 1);
    stato.counters["copy_MB/s"] = byte / copia.secondi / 1e6;
}

BENCHMARK_CAPTURE(confronta, text, testo)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(confronta, library, libreria)->Iterations(1)->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(confronta, encrypted, cifrato)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace

}  // namespace bravona
