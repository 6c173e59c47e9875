#include <charconv>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>

#include "platform/store/Connection.h"
#include "platform/values/Errore.h"
#include "popola_archivio/Popolatore.h"
#include "schema/Schema.h"

namespace {

template <class Numero>
std::optional<Numero> numero(const char* testo)
{
    Numero n{};
    const char* fine = testo + std::strlen(testo);
    const auto [dove, esito] = std::from_chars(testo, fine, n);
    if (esito != std::errc{} || dove != fine)
        return std::nullopt;
    return n;
}

}  // namespace

int main(int argc, char** argv)
{
    constexpr int documentiMassimi = 1'000'000;
    const auto documenti = argc > 2 ? numero<int>(argv[1]) : std::nullopt;
    const auto seme = argc > 2 ? numero<std::uint64_t>(argv[2]) : std::nullopt;
    if (!documenti || !seme || *documenti < 1 || *documenti > documentiMassimi || argc > 4) {
        std::fputs("usage: popola_archivio SIZE SEED [FILE]\n"
                   "Makes a delivered archive and fills it with SIZE documents, the same for the same SEED.\n"
                   "FILE defaults to dbbveuro.mdb; it must not exist.\n",
                   stderr);
        return 2;
    }
    const char* file = argc > 3 ? argv[3] : "dbbveuro.mdb";
    try {
        bravona::Connection cn;
        cn.create(file, bravona::passwordArchivio);
        bravona::creaSchema(cn);
        bravona::semiConsegna(cn);
        bravona::popolaArchivio(cn, *documenti, *seme);
    } catch (const bravona::Errore& errore) {
        std::fprintf(stderr, "popola_archivio: %s: %u - %s\n", file, errore.numero(), errore.what());
        return 1;
    }
    return 0;
}
