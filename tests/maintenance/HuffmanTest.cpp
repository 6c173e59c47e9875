#include "maintenance/RiferimentoHuffman.h"
#include "maintenance/clsHuffman.h"
#include "platform/values/Errore.h"
#include "support/Fallimento.h"
#include "support/Sha256.h"
#include "support/Vettori.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <fstream>
#include <random>
#include <stdexcept>

namespace bravona {
namespace {

Bytes daCifre(const std::string& cifre)
{
    Bytes dati;
    for (std::size_t i = 0; i < cifre.size(); i += 2) {
        dati.push_back(static_cast<std::uint8_t>(std::stoi(cifre.substr(i, 2), nullptr, 16)));
    }
    return dati;
}

void aggiungi(Bytes& dati, const nlohmann::json& parte)
{
    const std::string specie = parte.at("kind");
    if (specie == "repeat") {
        const Bytes pezzo = daCifre(parte.at("hex"));
        for (int i = 0; i < parte.at("times"); ++i) {
            dati.insert(dati.end(), pezzo.begin(), pezzo.end());
        }
    } else if (specie == "runs") {
        for (const auto& serie : parte.at("runs")) {
            dati.insert(dati.end(), serie.at(1).get<std::size_t>(), serie.at(0).get<std::uint8_t>());
        }
    } else if (specie == "count") {
        for (int i = 0; i < parte.at("length"); ++i) {
            dati.push_back(static_cast<std::uint8_t>(i % parte.at("modulo").get<int>()));
        }
    } else if (specie == "random") {
        std::uint64_t x = parte.at("seed");
        const std::uint64_t basso = parte.at("low");
        const std::uint64_t ampiezza = parte.at("span");
        const auto tiro = [&x, ampiezza] {
            x = x * 6364136223846793005U + 1442695040888963407U;
            return (x >> 33) % ampiezza;
        };
        for (int i = 0; i < parte.at("length"); ++i) {
            const std::uint64_t primo = tiro();
            const std::uint64_t valore = parte.at("shape") == "product" ? primo * tiro() / ampiezza : primo;
            dati.push_back(static_cast<std::uint8_t>(basso + valore));
        }
    } else {
        throw std::runtime_error("unknown kind of input: " + specie);
    }
}

Bytes ingressoDi(const nlohmann::json& caso)
{
    Bytes dati = daCifre(caso.value("input_hex", std::string()));
    for (const auto& parte : caso.value("recipe", nlohmann::json::array())) {
        aggiungi(dati, parte);
    }
    return dati;
}

struct Codec {
    Files file;
    clsHuffman huffman{file};
    std::vector<std::int16_t> progressi;

    Codec()
    {
        huffman.Progress = [this](std::int16_t percento) { progressi.push_back(percento); };
    }
};

TEST(HuffmanTest, VectorsInBothDirections)
{
    for (const auto& caso : casi("huffman.json")) {
        SCOPED_TRACE(caso.at("name").get<std::string>());
        const Bytes originale = ingressoDi(caso);
        ASSERT_EQ(originale.size(), caso.at("length").get<std::size_t>());
        ASSERT_EQ(sha256(originale), caso.at("input_sha256").get<std::string>());

        Codec codec;
        Bytes dati = originale;
        codec.huffman.EncodeByte(dati);
        EXPECT_EQ(dati.size(), caso.at("encoded_length").get<std::size_t>());
        EXPECT_EQ(sha256(dati), caso.at("encoded_sha256").get<std::string>());
        EXPECT_EQ(std::string(dati.begin(), dati.begin() + 3), caso.at("form").get<std::string>());
        if (caso.contains("encoded_hex")) {
            EXPECT_EQ(dati, daCifre(caso.at("encoded_hex")));
        }
        EXPECT_EQ(codec.progressi, caso.at("progress").get<std::vector<std::int16_t>>());

        const auto atteso = riferimento::decodifica(dati);
        ASSERT_TRUE(atteso);
        codec.progressi.clear();
        codec.huffman.DecodeByte(dati);
        EXPECT_EQ(dati, originale);
        EXPECT_EQ(codec.progressi, atteso->progressi);
    }
}

// Material of many shapes, long enough for every loop: blocks, pairs, tails, codes beyond the tables.
TEST(HuffmanTest, AgreesWithTheBitByBitReference)
{
    std::mt19937_64 caso(7);
    const std::size_t lunghezze[] = {2, 3, 63, 64, 65, 1000, 8191, 8193, 70001, 262145};
    for (const std::size_t lunghezza : lunghezze) {
        for (int forma = 0; forma < 6; ++forma) {
            SCOPED_TRACE(std::to_string(lunghezza) + " bytes of shape " + std::to_string(forma));
            Bytes originale(lunghezza);
            for (std::size_t i = 0; i < lunghezza; ++i) {
                const std::uint64_t tiro = caso();
                const auto quanti = static_cast<std::uint8_t>(std::countr_zero(tiro | std::uint64_t{1} << 40));
                const std::uint8_t scelte[] = {
                    static_cast<std::uint8_t>(tiro),                               // codes of 8 bits, or nearly
                    static_cast<std::uint8_t>(tiro % 7 * (tiro >> 8) % 90),        // like a text
                    quanti,                                                        // one code longer than the other
                    static_cast<std::uint8_t>(tiro % 4096 == 0 ? tiro >> 16 : 0),  // nearly all the same
                    static_cast<std::uint8_t>(i),                                  // all in equal number
                    static_cast<std::uint8_t>(quanti * 5 + (tiro >> 60)),
                };
                originale[i] = scelte[forma];
            }
            const riferimento::Esito atteso = riferimento::codifica(originale);
            Codec codec;
            Bytes dati = originale;
            codec.huffman.EncodeByte(dati);
            ASSERT_TRUE(dati == atteso.dati);
            EXPECT_EQ(codec.progressi, atteso.progressi);

            // What follows the data is passed over.
            dati.insert(dati.end(), lunghezza % 5, 0xA5);
            const auto indietro = riferimento::decodifica(dati);
            codec.progressi.clear();
            codec.huffman.DecodeByte(dati);
            if (dati.size() == lunghezza) {
                ASSERT_TRUE(dati == originale);
                EXPECT_EQ(codec.progressi, indietro->progressi);
            } else {
                EXPECT_EQ(atteso.dati[2], '0');  // the stored form has no end of its own
            }
        }
    }
}

TEST(HuffmanTest, TheFirstBytesOfALargerArrayAreCoded)
{
    Codec codec;
    Bytes dati = {'a', 'b', 'b', 'b', 'x', 'y'};
    Bytes parte = {'a', 'b', 'b', 'b'};
    codec.huffman.EncodeByte(dati, 4);
    codec.huffman.EncodeByte(parte);
    EXPECT_EQ(dati, parte);
    dati.push_back(0xFF);
    codec.huffman.DecodeByte(dati, parte.size());
    EXPECT_EQ(dati, (Bytes{'a', 'b', 'b', 'b'}));
}

TEST(HuffmanTest, LengthsBeyondTheFormatAreRefusedUntouched)
{
    Codec codec;
    Bytes dati = {'a', 'b'};
    EXPECT_EQ(numeroDelFallimento([&] { return codec.huffman.EncodeByte(dati, std::size_t{1} << 31), 0; }),
              errori::codec);
    EXPECT_EQ(numeroDelFallimento([&] { return codec.huffman.DecodeByte(dati, std::size_t{1} << 32), 0; }),
              errori::codec);
    EXPECT_EQ(numeroDelFallimento([&] { return codec.huffman.EncodeByte(dati, 3), 0; }), errori::indiceFuoriIntervallo);
    EXPECT_EQ(dati, (Bytes{'a', 'b'}));
    EXPECT_TRUE(codec.progressi.empty());
}

TEST(HuffmanTest, AnEventThatThrowsLeavesTheDataAlone)
{
    Codec codec;
    const Bytes originale = {'a', 'b', 'c', 'a'};
    codec.huffman.Progress = [](std::int16_t percento) {
        if (percento == 100) {
            throw std::runtime_error("enough");
        }
    };
    Bytes dati = originale;
    EXPECT_THROW(codec.huffman.EncodeByte(dati), std::runtime_error);
    EXPECT_EQ(dati, originale);
    const Bytes codificati = riferimento::codifica(originale).dati;
    dati = codificati;
    EXPECT_THROW(codec.huffman.DecodeByte(dati), std::runtime_error);
    EXPECT_EQ(dati, codificati);
}

TEST(HuffmanTest, TextsGoThroughTheWesternCodePage)
{
    Codec codec;
    EXPECT_EQ(codec.huffman.EncodeString(""), "HE0\r");
    EXPECT_EQ(codec.huffman.EncodeString("€"), "HE0\r€");
    const std::string testo = "Perché 1.234,50 € più IVA — “così” è";
    const std::string codificato = codec.huffman.EncodeString(testo);
    EXPECT_NE(codificato, testo);
    EXPECT_EQ(codec.huffman.DecodeString(codificato), testo);
    EXPECT_EQ(codec.huffman.DecodeString(codec.huffman.EncodeString("αa\U0001F600")), "?a?");
    EXPECT_EQ(numeroDelFallimento([&] { return codec.huffman.DecodeString("HE7\r"); }), errori::codec);
}

// Bytes of the process that are in memory now, and the most since the last call of `azzeraMassimo`.
std::size_t memoria(const std::string& campo)
{
    std::ifstream stato("/proc/self/status");
    std::string parola;
    while (stato >> parola) {
        if (parola == campo) {
            std::size_t kibi = 0;
            stato >> kibi;
            return kibi * 1024;
        }
    }
    return 0;
}

bool azzeraMassimo()
{
    std::ofstream riferimenti("/proc/self/clear_refs");
    riferimenti << "5" << std::flush;
    return riferimenti.good();
}

TEST(HuffmanTest, NeedsTheSourceTheResultAndLessThanOneMebibyte)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer's own memory cannot be told apart";
#endif
    constexpr std::size_t mebi = std::size_t{1} << 20;
    std::mt19937_64 caso(3);
    for (const unsigned ampiezza : {60U, 256U}) {
        Bytes dati(65536);
        for (std::uint8_t& byte : dati) {
            byte = static_cast<std::uint8_t>(caso() % ampiezza);
        }
        while (dati.size() < 8 * mebi) {
            dati.resize(2 * dati.size());
            std::copy_n(dati.begin(), dati.size() / 2, dati.begin() + static_cast<std::ptrdiff_t>(dati.size() / 2));
        }
        Codec codec;
        for (const bool codifica : {true, false}) {
            const std::size_t prima = memoria("VmRSS:");
            if (!azzeraMassimo()) {
                GTEST_SKIP() << "the system does not let the peak be reset";
            }
            codifica ? codec.huffman.EncodeByte(dati) : codec.huffman.DecodeByte(dati);
            EXPECT_LE(memoria("VmHWM:"), prima + dati.size() + mebi);
        }
    }
}

}  // namespace
}  // namespace bravona
