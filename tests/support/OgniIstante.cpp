#include "support/OgniIstante.h"

#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "schema/Schema.h"
#include "support/ScritturaUccisa.h"

namespace bravona {

namespace fs = std::filesystem;

namespace {

fs::path giornale(const fs::path& file)
{
    return file.string() + "-journal";
}

void copia(const fs::path& da, const fs::path& a)
{
    fs::copy_file(da, a, fs::copy_options::overwrite_existing);
    fs::remove(giornale(a));
    if (fs::exists(giornale(da)))
        fs::copy_file(giornale(da), giornale(a));
}

// Whether it was killed.
bool ucciso(int istante, ScritturaUccisa::Modo modo, const std::function<void()>& azione)
{
    const pid_t figlio = ::fork();
    if (figlio == 0) {
        ScritturaUccisa::arma(istante, modo);
        try {
            azione();
            ::_exit(0);
        } catch (...) {
            ::_exit(1);
        }
    }
    int esito = 0;
    if (::waitpid(figlio, &esito, 0) != figlio || (!WIFSIGNALED(esito) && WEXITSTATUS(esito) != 0))
        throw std::runtime_error("the action failed");
    return WIFSIGNALED(esito);
}

}  // namespace

void adOgniIstante(const fs::path& archivio, const std::function<void()>& azione,
                   const std::function<void(Connection& rimasto, int istante)>& guarda)
{
    const fs::path prima = archivio.string() + ".prima";
    const fs::path dopo = archivio.string() + ".dopo";
    copia(archivio, prima);
    for (const auto modo : {ScritturaUccisa::Modo::prima, ScritturaUccisa::Modo::mezza}) {
        for (int istante = 1;; ++istante) {
            const bool morto = ucciso(istante, modo, azione);
            copia(archivio, dopo);
            copia(prima, archivio);
            Connection cn;
            cn.open(dopo.string(), passwordArchivio);
            guarda(cn, istante);
            if (!morto)
                break;
        }
    }
}

}  // namespace bravona
