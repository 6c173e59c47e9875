#include "support/OgniIstante.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>

#include "schema/Schema.h"
#include "support/ScritturaUccisa.h"

namespace bravona {

namespace {

namespace fs = std::filesystem;

fs::path giornale(const fs::path& file)
{
    return file.string() + "-journal";
}

void copiaConGiornale(const fs::path& da, const fs::path& a)
{
    fs::copy_file(da, a, fs::copy_options::overwrite_existing);
    fs::remove(giornale(a));
    if (fs::exists(giornale(da))) {
        fs::copy_file(giornale(da), giornale(a));
    }
}

// False when the action came to its end.
bool ucciso(int istante, ScritturaUccisa::Modo modo, const std::function<void()>& azione)
{
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        ScritturaUccisa::arma(istante, modo);
        azione();
        ::_exit(0);
    }
    int esito = 0;
    EXPECT_EQ(::waitpid(figlio, &esito, 0), figlio);
    if (!WIFSIGNALED(esito)) {
        EXPECT_EQ(WEXITSTATUS(esito), 0);
        return false;
    }
    return true;
}

}  // namespace

int uccidiAOgniIstante(ProgrammaDiProva& programma, const std::function<void()>& azione,
                       const std::function<void(Connection&)>& guarda)
{
    const fs::path archivio = programma.archivio();
    const fs::path prima = programma.cartella() / "prima.mdb";
    const fs::path dopo = programma.cartella() / "dopo.mdb";
    fs::copy_file(archivio, prima);
    int uccisioni = 0;
    for (const auto modo : {ScritturaUccisa::Modo::prima, ScritturaUccisa::Modo::mezza}) {
        bool ancora = true;
        for (int istante = 1; ancora; ++istante) {
            ancora = ucciso(istante, modo, azione);
            uccisioni += ancora ? 1 : 0;
            copiaConGiornale(archivio, dopo);
            fs::copy_file(prima, archivio, fs::copy_options::overwrite_existing);
            fs::remove(giornale(archivio));
            Connection cn;
            cn.open(dopo.string(), passwordArchivio);
            guarda(cn);
        }
    }
    return uccisioni;
}

}  // namespace bravona
