#include "platform/files/FileAccanto.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <system_error>

namespace bravona {

namespace {

namespace fs = std::filesystem;

constexpr mode_t permessiNuovoFile = 0666;  // less what the user's mask takes away
constexpr mode_t permessiRiservati = 0600;
constexpr std::string_view fine = ".nuovo";

// ".DBBVEURO_Backup.bk.", cut where the whole name would be too long for a folder.
std::string inizioDelNome(const fs::path& bersaglio)
{
    constexpr std::size_t massimo = 200;
    std::string nome = bersaglio.filename().string();
    if (nome.size() > massimo) {
        std::size_t fino = massimo;
        while (fino > 0 && (static_cast<unsigned char>(nome[fino]) & 0xC0U) == 0x80U) {
            --fino;  // not within a character
        }
        nome.resize(fino);
    }
    return "." + nome + ".";
}

// Between beginning and end stand the writer's process and a number: "812-1".
bool eResto(std::string_view nome, std::string_view inizio)
{
    if (!nome.starts_with(inizio) || !nome.ends_with(fine) || nome.size() <= inizio.size() + fine.size()) {
        return false;
    }
    const std::string_view mezzo = nome.substr(inizio.size(), nome.size() - inizio.size() - fine.size());
    return std::ranges::count(mezzo, '-') == 1 && mezzo.front() != '-' && mezzo.back() != '-' &&
           std::ranges::all_of(mezzo, [](char c) { return c == '-' || (c >= '0' && c <= '9'); });
}

bool bloccatoDaAltri(int fd)
{
    return ::flock(fd, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

bool ancoraA(const fs::path& percorso, int fd)
{
    struct stat file {};
    struct stat nome {};
    return ::fstat(fd, &file) == 0 && ::lstat(percorso.c_str(), &nome) == 0 && file.st_ino == nome.st_ino &&
           S_ISREG(nome.st_mode);
}

// A leftover is nobody's when its lock can be had. Where a file system knows no locks, none goes.
void togliSeDiNessuno(const fs::path& resto)
{
    const int fd = ::open(resto.c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (fd >= 0 && ::flock(fd, LOCK_EX | LOCK_NB) == 0 && ancoraA(resto, fd)) {
        ::unlink(resto.c_str());
    }
    if (fd >= 0) {
        ::close(fd);
    }
}

void togliResti(const fs::path& cartella, std::string_view inizio)
{
    std::error_code ec;
    for (fs::directory_iterator voce(cartella.empty() ? fs::path(".") : cartella, ec);
         !ec && voce != fs::directory_iterator(); voce.increment(ec)) {
        if (eResto(voce->path().filename().string(), inizio)) {
            togliSeDiNessuno(voce->path());
        }
    }
}

}  // namespace

FileAccanto::FileAccanto(const fs::path& bersaglio, bool soloDelProprietario)
{
    const fs::path cartella = bersaglio.parent_path();
    const std::string inizio = inizioDelNome(bersaglio);
    togliResti(cartella, inizio);
    constexpr int tentativi = 100;
    for (int numero = 1; numero <= tentativi; ++numero) {
        const std::string nome = std::to_string(::getpid()) + "-" + std::to_string(numero);
        percorso_ = (cartella / (inizio + nome + std::string(fine))).string();
        if (apri(soloDelProprietario)) {
            return;
        }
    }
    codice_ = EEXIST;
}

// False for a name that is taken.
bool FileAccanto::apri(bool soloDelProprietario)
{
    fd_ = ::open(percorso_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                 soloDelProprietario ? permessiRiservati : permessiNuovoFile);
    if (fd_ < 0) {
        codice_ = errno == EEXIST ? 0 : errno;
        return codice_ != 0;
    }
    // Another writer may have taken it for a leftover before the lock was there: it is his to remove then.
    if (bloccatoDaAltri(fd_) || ::access(percorso_.c_str(), F_OK) != 0) {
        ::close(fd_);
        fd_ = -1;
        return false;
    }
    guardia_ = ::fcntl(fd_, F_DUPFD_CLOEXEC, 0);
    daTogliere_ = true;
    return true;
}

FileAccanto::~FileAccanto()
{
    if (daTogliere_) {
        ::unlink(percorso_.c_str());
    }
    for (const int fd : {fd_, guardia_}) {
        if (fd >= 0) {
            ::close(fd);
        }
    }
}

int FileAccanto::chiudi()
{
    const int esito = ::close(fd_);
    fd_ = -1;
    return esito != 0 && errno != EINTR ? errno : 0;
}

int FileAccanto::alPostoDi(const std::string& bersaglio)
{
    if (::rename(percorso_.c_str(), bersaglio.c_str()) != 0) {
        return errno;
    }
    daTogliere_ = false;
    return 0;
}

}  // namespace bravona
