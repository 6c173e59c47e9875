#include "support/ArchivioTemporaneo.h"

#include <array>
#include <atomic>
#include <charconv>
#include <cstdlib>
#include <system_error>

#include <unistd.h>

#include "schema/Schema.h"

namespace bravona {
namespace {

namespace fs = std::filesystem;

// Making an archive derives a key and takes a while: it is made once and copied.
const std::string& modello()
{
    static const CartellaTemporanea cartella;
    static const std::string file = [] {
        std::string percorso = cartella.file("modello.mdb");
        Connection cn;
        cn.create(percorso, passwordArchivio);
        creaSchema(cn);
        semiMinimi(cn);
        return percorso;
    }();
    return file;
}

std::string importoComeTesto(Currency importo)
{
    constexpr int decimali = 4;
    const std::int64_t n = importo.tenThousandths();
    std::string cifre = std::to_string(n < 0 ? -n : n);
    cifre.insert(0, cifre.size() <= decimali ? decimali + 1 - cifre.size() : 0, '0');
    cifre.insert(cifre.size() - decimali, ".");
    return (n < 0 ? "-" : "") + cifre;
}

}  // namespace

CartellaTemporanea::CartellaTemporanea()
{
    static std::atomic<int> quante = 0;
    cartella_ = fs::temp_directory_path() /
                ("bravona-" + std::to_string(::getpid()) + "-" + std::to_string(quante.fetch_add(1)));
    fs::create_directories(cartella_);
}

CartellaTemporanea::~CartellaTemporanea()
{
    std::error_code ignorato;
    fs::remove_all(cartella_, ignorato);
}

std::string CartellaTemporanea::file(std::string_view nome) const
{
    return (cartella_ / nome).string();
}

ArchivioTemporaneo::ArchivioTemporaneo()
{
    fs::copy_file(modello(), percorso());
    cn.open(percorso(), passwordArchivio);
}

std::vector<std::string> ArchivioTemporaneo::righe(std::string_view istruzione)
{
    std::vector<std::string> tutte;
    for (Recordset rs = cn.open(istruzione); !rs.eof(); rs.moveNext()) {
        tutte.push_back(rigaComeTesto(rs));
    }
    return tutte;
}

std::string ArchivioTemporaneo::valore(std::string_view istruzione)
{
    return comeTesto(cn.open(istruzione)[0].value());
}

std::string comeTesto(const Value& valore)
{
    struct Testo {
        std::string operator()(std::monostate) const { return "Null"; }
        std::string operator()(bool v) const { return v ? "True" : "False"; }
        std::string operator()(std::int64_t v) const { return std::to_string(v); }
        std::string operator()(double v) const
        {
            std::array<char, 32> cifre{};
            return {cifre.data(), std::to_chars(cifre.data(), cifre.data() + cifre.size(), v).ptr};
        }
        std::string operator()(Currency v) const { return importoComeTesto(v); }
        std::string operator()(Date v) const { return v.text(); }
        std::string operator()(const std::string& v) const { return v; }
    };
    return std::visit(Testo{}, valore.variant());
}

std::string rigaComeTesto(Recordset& rs)
{
    std::string riga;
    for (std::size_t i = 0; i < rs.columns().size(); ++i) {
        if (rs.columns()[i].type != FieldType::chapter) {
            riga += (i > 0 ? "|" : "") + comeTesto(rs[i].value());
        }
    }
    return riga;
}

}  // namespace bravona
