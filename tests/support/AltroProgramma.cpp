#include "support/AltroProgramma.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <vector>

#include "platform/store/Connection.h"
#include "platform/store/ConnectionImpl.h"
#include "schema/Schema.h"

namespace bravona {

namespace {

std::uint32_t fai(Connection& cn, char che, const std::string& istruzione)
{
    try {
        if (che == 'e') {
            cn.execute(istruzione);
        } else {
            cn.open(istruzione);
        }
        return 0;
    } catch (const Errore& errore) {
        return errore.numero();
    }
}

void rispondi(int a, std::uint32_t numero)
{
    if (::write(a, &numero, sizeof numero) != sizeof numero) {
        ::_exit(1);
    }
}

[[noreturn]] void servi(const std::string& archivio, int da, int a) noexcept
{
    Connection cn;
    cn.open(archivio, passwordArchivio);
    cn.impl().engine.number("PRAGMA busy_timeout = 0");
    rispondi(a, 0);
    std::vector<char> domanda(4096);
    for (;;) {
        const ssize_t letti = ::read(da, domanda.data(), domanda.size());
        if (letti <= 0) {
            ::_exit(0);
        }
        rispondi(a, fai(cn, domanda[0], {domanda.data() + 1, static_cast<std::size_t>(letti - 1)}));
    }
}

}  // namespace

AltroProgramma::AltroProgramma(const std::string& archivio)
{
    std::array<int, 2> domande{};
    std::array<int, 2> risposte{};
    if (::pipe(domande.data()) != 0 || ::pipe(risposte.data()) != 0) {
        throw std::runtime_error("no pipes");
    }
    processo_ = ::fork();
    if (processo_ == 0) {
        ::close(domande[1]);
        ::close(risposte[0]);
        servi(archivio, domande[0], risposte[1]);
    }
    ::close(domande[0]);
    ::close(risposte[1]);
    a_ = domande[1];
    da_ = risposte[0];
    static_cast<void>(attendi());  // until it has the archive open
}

AltroProgramma::~AltroProgramma()
{
    ::close(a_);
    ::close(da_);
    ::waitpid(processo_, nullptr, 0);
}

std::uint32_t AltroProgramma::attendi() const
{
    std::uint32_t numero = 0;
    if (::read(da_, &numero, sizeof numero) != sizeof numero) {
        throw std::runtime_error("the other program is gone");
    }
    return numero;
}

std::uint32_t AltroProgramma::chiedi(char che, const std::string& istruzione) const
{
    const std::string domanda = che + istruzione;
    if (::write(a_, domanda.data(), domanda.size()) != static_cast<ssize_t>(domanda.size())) {
        throw std::runtime_error("the other program is gone");
    }
    return attendi();
}

}  // namespace bravona
