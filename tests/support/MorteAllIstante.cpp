#include "support/MorteAllIstante.h"

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>
#include <string>

namespace bravona {

namespace {

bool cambiaUnFile(unsigned long chiamata)
{
    switch (chiamata) {
    case SYS_write:
    case SYS_pwrite64:
    case SYS_writev:
    case SYS_ftruncate:
    case SYS_fsync:
    case SYS_fdatasync:
    case SYS_renameat:
    case SYS_renameat2:
    case SYS_unlinkat:
    case SYS_fchmod:
    case SYS_sendfile:
    case SYS_copy_file_range:
#ifdef SYS_rename
    case SYS_rename:
    case SYS_unlink:
#endif
        return true;
    default:
        return false;
    }
}

[[noreturn]] void figlio(const std::function<void()>& azione)
{
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
        ::_exit(2);
    }
    std::raise(SIGSTOP);
    try {
        azione();
    } catch (...) {
        ::_exit(1);
    }
    ::_exit(0);
}

int attendi(pid_t processo)
{
    int stato = 0;
    if (::waitpid(processo, &stato, 0) != processo) {
        throw std::runtime_error("the watched process is lost");
    }
    return stato;
}

void finito(int stato)
{
    if (!WIFEXITED(stato) || WEXITSTATUS(stato) != 0) {
        throw std::runtime_error("the action failed, status " + std::to_string(stato));
    }
}

// Instants seen, the one at which it was killed among them.
struct Osservato {
    int istanti = 0;
    bool ucciso = false;
};

// Until `muore` says so of an instant, or to the end.
Osservato osserva(const std::function<void()>& azione, const std::function<bool(int istante)>& muore)
{
    const pid_t processo = ::fork();
    if (processo == 0) {
        figlio(azione);
    }
    int stato = attendi(processo);
    if (!WIFSTOPPED(stato)) {
        finito(stato);
    }
    ::ptrace(PTRACE_SETOPTIONS, processo, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    Osservato osservato;
    for (long segnale = 0;;) {
        ::ptrace(PTRACE_SYSCALL, processo, nullptr, segnale);
        stato = attendi(processo);
        if (!WIFSTOPPED(stato)) {
            finito(stato);
            return osservato;
        }
        const int motivo = WSTOPSIG(stato);
        segnale = motivo == (SIGTRAP | 0x80) ? 0 : motivo;
        if (segnale != 0) {
            continue;
        }
        __ptrace_syscall_info chiamata{};
        const bool letta = ::ptrace(PTRACE_GET_SYSCALL_INFO, processo, sizeof chiamata, &chiamata) > 0;
        const bool istante = letta && chiamata.op == PTRACE_SYSCALL_INFO_ENTRY && cambiaUnFile(chiamata.entry.nr);
        if (!letta || (istante && muore(++osservato.istanti))) {
            ::kill(processo, SIGKILL);
            attendi(processo);
            if (!letta) {
                throw std::runtime_error("system calls cannot be watched here");
            }
            osservato.ucciso = true;
            return osservato;
        }
    }
}

}  // namespace

bool uccidiAllIstante(int istante, const std::function<void()>& azione)
{
    return osserva(azione, [istante](int n) { return n == istante; }).ucciso;
}

int istantiDi(const std::function<void()>& azione, const std::function<void(int istante)>& guarda)
{
    return osserva(azione,
                   [&guarda](int n) {
                       if (guarda) {
                           guarda(n);
                       }
                       return false;
                   })
        .istanti;
}

}  // namespace bravona
