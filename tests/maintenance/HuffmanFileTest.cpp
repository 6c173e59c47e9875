#include "bravona_bk/Comandi.h"
#include "maintenance/clsHuffman.h"
#include "platform/values/Errore.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <new>
#include <sstream>

namespace bravona {
namespace {

namespace fs = std::filesystem;

class HuffmanFileTest : public testing::Test {
protected:
    HuffmanFileTest()
    {
        std::string modello = (fs::temp_directory_path() / "bravona-bk-XXXXXX").string();
        cartella_ = ::mkdtemp(modello.data());
    }
    ~HuffmanFileTest() override
    {
        std::error_code ec;
        fs::remove_all(cartella_, ec);
    }

    [[nodiscard]] std::string in(const std::string& nome) const { return (cartella_ / nome).string(); }
    void scrivi(const std::string& nome, std::string_view testo)
    {
        file_.replace(in(nome), {testo.begin(), testo.end()});
    }
    [[nodiscard]] std::string leggi(const std::string& nome) const
    {
        const Bytes dati = file_.read(in(nome));
        return {dati.begin(), dati.end()};
    }
    [[nodiscard]] std::size_t quantiFile() const
    {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(cartella_), fs::directory_iterator()));
    }

    template <typename Azione>
    std::string fallimento(Azione&& azione)
    {
        try {
            azione();
        } catch (const Errore& e) {
            return std::to_string(e.numero()) + " " + e.origine() + " " + e.descrizione();
        }
        return {};
    }

    int comando(const std::vector<std::string>& argomenti)
    {
        uscita_.str({});
        errori_.str({});
        return bravonaBk(argomenti, uscita_, errori_);
    }

    fs::path cartella_;
    Files file_;
    clsHuffman huffman_{file_};
    std::ostringstream uscita_;
    std::ostringstream errori_;
};

TEST_F(HuffmanFileTest, FromFileToFileAndBack)
{
    const std::string testo = "Fattura n. 12 del 3 marzo, fattura n. 13 del 4 marzo";
    scrivi("archivio", testo);
    scrivi("copia.bk", "an older backup");
    const auto salvato = huffman_.EncodeFile(in("archivio"), in("copia.bk"));
    EXPECT_EQ(salvato.letti, testo.size());
    EXPECT_EQ(salvato.scritti, leggi("copia.bk").size());
    const auto ripreso = huffman_.DecodeFile(in("copia.bk"), in("ripreso"));
    EXPECT_EQ(ripreso.letti, salvato.scritti);
    EXPECT_EQ(leggi("ripreso"), testo);
    EXPECT_EQ(leggi("archivio"), testo);
}

TEST_F(HuffmanFileTest, AFailureLeavesTheDestinationAsItWas)
{
    scrivi("vuoto", "");
    scrivi("pieno", "abbb");
    scrivi("nulla.bk", "HE0\r");
    scrivi("senza.bk", std::string("HE3\r\0\0\0\0\0\0\0", 11));
    scrivi("rotto.bk", "HE9\r");
    scrivi("meta", "as it was");
    const std::size_t prima = quantiFile();
    const std::string meta = in("meta");
    EXPECT_EQ(fallimento([&] { huffman_.EncodeFile(in("assente"), meta); }),
              "2147745792 clsHuffman.EncodeFile() Sorgente Data base non esiste");
    EXPECT_EQ(fallimento([&] { huffman_.DecodeFile(in("assente"), meta); }),
              "2147745792 clsHuffman.DecodeFile() Sorgente Data base non esiste ");
    EXPECT_EQ(fallimento([&] { huffman_.EncodeFile(in("vuoto"), meta); }).substr(0, 2), "9 ");
    EXPECT_EQ(fallimento([&] { huffman_.DecodeFile(in("nulla.bk"), meta); }).substr(0, 2), "9 ");
    EXPECT_EQ(fallimento([&] { huffman_.DecodeFile(in("senza.bk"), meta); }).substr(0, 11), "2147745792 ");
    EXPECT_EQ(fallimento([&] { huffman_.DecodeFile(in("rotto.bk"), meta); }).substr(0, 11), "2147745792 ");
    file_.failNextWrite(meta, errori::unitaNonPronta);
    EXPECT_EQ(fallimento([&] { huffman_.EncodeFile(in("pieno"), meta); }).substr(0, 3), "71 ");
    EXPECT_EQ(leggi("meta"), "as it was");
    EXPECT_EQ(quantiFile(), prima);
}

// A sparse file of 2 GiB is neither read nor allocated.
TEST_F(HuffmanFileTest, ASourceTooLongForTheFormatIsNotRead)
{
    scrivi("enorme", "x");
    fs::resize_file(in("enorme"), std::uintmax_t{1} << 31);
    EXPECT_EQ(fallimento([&] { huffman_.EncodeFile(in("enorme"), in("meta")); }),
              "2147745792 clsHuffman.EncodeFile() Il file e' troppo lungo per un backup");
    fs::resize_file(in("enorme"), std::uintmax_t{1} << 32);
    EXPECT_EQ(fallimento([&] { huffman_.DecodeFile(in("enorme"), in("meta")); }),
              "2147745792 clsHuffman.DecodeFile() Il file e' troppo lungo per un backup");
    EXPECT_EQ(comando({"info", in("enorme")}), 1);
    EXPECT_EQ(quantiFile(), 1U);
}

TEST_F(HuffmanFileTest, TheCommandPacksDescribesAndUnpacks)
{
    scrivi("archivio", "abbbbbbb");
    EXPECT_EQ(comando({"encode", in("archivio")}), 0);
    EXPECT_EQ(comando({"info", in("archivio.bk")}), 0);
    EXPECT_EQ(uscita_.str(),
              "forma: HE3 (compressa)\nfile: 17 byte\noriginale: 8 byte\nvalori distinti: 2, codici da 1 a "
              "1 bit\nchecksum: 3\ncontenuto: integro\n");
    EXPECT_EQ(comando({"decode", in("archivio.bk"), in("ripreso")}), 0);
    EXPECT_EQ(leggi("ripreso"), "abbbbbbb");
    EXPECT_EQ(errori_.str(), "");
}

TEST_F(HuffmanFileTest, TheCommandFailsInOneLineAndTouchesNothing)
{
    scrivi("archivio", "the archive in use");
    scrivi("archivio.bk", "HE3\rdamaged");
    scrivi("altro", "x");
    const std::vector<std::string> prove[] = {
        {},
        {"encode"},
        {"pack", in("archivio")},
        {"info", in("archivio.bk"), in("altro")},
        {"encode", in("archivio"), in("a"), in("b")},
        {"encode", in("assente"), in("altro")},
        {"encode", in("archivio"), in("archivio")},
        {"encode", in("archivio")},
        {"encode", in("archivio"), in("nessuna/cartella")},
        {"decode", in("archivio.bk")},
        {"decode", in("archivio.bk"), in("altro")},
        {"decode", in("altro")},
        {"info", in("archivio.bk")},
        {"info", in("assente")},
        {"info", cartella_.string()},
        {"info", in("due\nrighe\r\x1B[31m")},
        {"encode", in("due\nrighe"), in("altro")},
    };
    for (const auto& argomenti : prove) {
        EXPECT_EQ(comando(argomenti), 1);
        const std::string riga = errori_.str();
        EXPECT_TRUE(!riga.empty() && riga.find('\n') == riga.size() - 1) << riga;
        EXPECT_EQ(riga.find_first_of("\r\x1B"), std::string::npos) << riga;
        EXPECT_EQ(uscita_.str(), "");
    }
    EXPECT_EQ(leggi("archivio"), "the archive in use");
    EXPECT_EQ(leggi("archivio.bk"), "HE3\rdamaged");
    EXPECT_EQ(leggi("altro"), "x");
    EXPECT_EQ(quantiFile(), 3U);
}

TEST_F(HuffmanFileTest, AnAnswerThatCannotBeWrittenIsNoSuccess)
{
    scrivi("archivio", "abbbbbbb");
    std::ostream chiusa(nullptr);
    EXPECT_EQ(bravonaBk(std::vector<std::string>{"encode", in("archivio")}, chiusa, errori_), 1);
    EXPECT_NE(errori_.str().find("archivio.bk e' scritto"), std::string::npos) << errori_.str();
    EXPECT_EQ(leggi("archivio.bk").size(), 17U);
    chiusa.clear();
    EXPECT_EQ(bravonaBk(std::vector<std::string>{"info", in("archivio.bk")}, chiusa, errori_), 1);
    EXPECT_EQ(std::ranges::count(errori_.str(), '\n'), 2);
}

TEST_F(HuffmanFileTest, TooLittleMemoryIsAFailureLikeAnyOther)
{
    scrivi("archivio", std::string(5000, 'a') + std::string(5000, 'b'));
    scrivi("copia.bk", "an older backup");
    huffman_.Progress = [](std::int16_t) { throw std::bad_alloc(); };
    EXPECT_EQ(fallimento([&] { huffman_.EncodeFile(in("archivio"), in("copia.bk")); }),
              "7 clsHuffman.EncodeFile() Memoria esaurita.");
    EXPECT_EQ(leggi("copia.bk"), "an older backup");
    EXPECT_EQ(comando({"encode", in("archivio"), in("copia.bk")}), 0);
    EXPECT_EQ(fallimento([&] { huffman_.DecodeFile(in("copia.bk"), in("ripreso")); }),
              "7 clsHuffman.DecodeFile() Memoria esaurita.");
}

}  // namespace
}  // namespace bravona
