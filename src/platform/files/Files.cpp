#include "platform/files/Files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "platform/files/FileAccanto.h"
#include "platform/values/Errore.h"

namespace bravona {

namespace {

namespace fs = std::filesystem;

constexpr mode_t soloPermessi = 07777;
constexpr mode_t soloProprietario = 0700;
constexpr std::size_t blocco = std::size_t{1} << 18;
constexpr std::size_t pezzo = std::size_t{1} << 22;  // between two calls of `betweenPieces`

[[noreturn]] void fallito(std::uint32_t numero, const std::string& path)
{
    const char* descrizione = "Errore di accesso al percorso";
    switch (numero) {
    case errori::fileMancante:
        descrizione = "File non trovato";
        break;
    case errori::discoPieno:
        descrizione = "Spazio su disco esaurito";
        break;
    case errori::permessoNegato:
        descrizione = "Permesso negato";
        break;
    case errori::unitaNonPronta:
        descrizione = "Unità non pronta";
        break;
    default:
        break;
    }
    throw Errore(numero, std::string(descrizione) + ": " + path);
}

std::uint32_t numeroDi(int codice)
{
    switch (codice) {
    case ENOENT:
    case ENOTDIR:
        return errori::fileMancante;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return errori::discoPieno;
    case EACCES:
    case EPERM:
    case EROFS:
        return errori::permessoNegato;
    case EIO:
    case ENXIO:
    case ENODEV:
    case ENOMEDIUM:
        return errori::unitaNonPronta;
    default:
        return errori::erroreDiPercorso;
    }
}

[[noreturn]] void fallitoPerCodice(int codice, const std::string& path)
{
    fallito(numeroDi(codice), path);
}

// A descriptor that closes with its scope.
class Descrittore {
public:
    explicit Descrittore(int fd) : fd_(fd) {}
    Descrittore(const Descrittore&) = delete;
    Descrittore& operator=(const Descrittore&) = delete;
    ~Descrittore()
    {
        if (fd_ >= 0) {
            ::close(fd_);
        }
    }
    [[nodiscard]] int operator*() const { return fd_; }

private:
    int fd_;
};

void scrivi(int fd, const std::uint8_t* dati, std::size_t quanti, const std::string& path)
{
    while (quanti > 0) {
        const ssize_t n = ::write(fd, dati, quanti);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            fallitoPerCodice(errno, path);
        }
        dati += n;
        quanti -= static_cast<std::size_t>(n);
    }
}

// As many bytes as there are up to the end, 0 at the end.
std::size_t leggi(int fd, std::uint8_t* dati, std::size_t quanti, const std::string& path)
{
    for (;;) {
        const ssize_t n = ::read(fd, dati, quanti);
        if (n >= 0) {
            return static_cast<std::size_t>(n);
        }
        if (errno != EINTR) {
            fallitoPerCodice(errno, path);
        }
    }
}

struct stat stato(const std::string& path)
{
    struct stat s {};
    if (::stat(path.c_str(), &s) != 0) {
        fallitoPerCodice(errno, path);
    }
    if (!S_ISREG(s.st_mode)) {
        fallito(errori::erroreDiPercorso, path);
    }
    return s;
}

// Opens a regular file. The check comes first: opening a pipe would wait for its other end.
int apriLettura(const std::string& path)
{
    stato(path);
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        if (errno == EACCES || errno == EPERM) {
            fallito(errori::erroreDiPercorso, path);
        }
        fallitoPerCodice(errno, path);
    }
    return fd;
}

void consolidaCartella(const fs::path& file)
{
    const fs::path cartella = file.has_parent_path() ? file.parent_path() : fs::path(".");
    const Descrittore fd(::open(cartella.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // A folder that may be written to but not read cannot be flushed, nor can some file systems.
    if (*fd < 0 || ::fsync(*fd) == 0 || errno == EINVAL || errno == ENOTSUP) {
        return;
    }
    fallitoPerCodice(errno, cartella.string());
}

// A folder that is gone went with its drive, pulled out meanwhile.
[[noreturn]] void nonApribile(int codice, const fs::path& file)
{
    std::error_code ec;
    const fs::path cartella = file.parent_path();
    if (codice == ENOENT && !cartella.empty() && !fs::exists(cartella, ec)) {
        fallito(errori::unitaNonPronta, cartella.string());
    }
    fallitoPerCodice(codice, file.string());
}

// The bytes count for more: a file system without permissions, or one that keeps them to another person, takes them as
// they come.
void tieniPermessi(int fd, mode_t vecchi, const std::string& path)
{
    struct stat nuovo {};
    if (::fstat(fd, &nuovo) == 0 && (nuovo.st_mode & soloPermessi) == (vecchi & soloPermessi)) {
        return;
    }
    if (::fchmod(fd, vecchi & soloPermessi) != 0 && errno != EPERM && errno != ENOTSUP) {
        fallitoPerCodice(errno, path);
    }
}

// A second name for the bytes, where the file system has such; a copy of them otherwise.
void secondoNome(Files& files, const std::string& file, const std::string& nome, bool ownerOnly)
{
    if (::link(file.c_str(), nome.c_str()) != 0) {
        files.copy(file, nome, {.ownerOnly = ownerOnly, .earlier = {}});
    }
    if (ownerOnly) {
        Files::makeOwnerOnly(nome);
    }
}

// At every instant the bytes of `file` stand under its own name.
void tieniPrecedente(Files& files, const std::string& file, const Replacing& how)
{
    for (std::size_t i = how.earlier.size(); i-- > 0;) {
        const std::string nome = Files::native(how.earlier[i]);
        if (!files.exists(nome)) {
            continue;
        }
        if (i + 1 < how.earlier.size()) {
            files.rename(nome, how.earlier[i + 1]);
        } else {
            files.remove(nome);
        }
    }
    if (!how.earlier.empty()) {
        secondoNome(files, file, Files::native(how.earlier.front()), how.ownerOnly);
    }
}

fs::path inFondoAiLink(fs::path path)
{
    constexpr int massimo = 40;
    std::error_code ec;
    for (int i = 0; i < massimo; ++i) {
        if (!fs::is_symlink(fs::symlink_status(path, ec))) {
            return path;
        }
        const fs::path meta = fs::read_symlink(path, ec);
        if (ec) {
            fallitoPerCodice(ec.value(), path.string());
        }
        path = path.parent_path() / meta;  // an absolute one stays as it is
    }
    fallitoPerCodice(ELOOP, path.string());
}

std::string assoluto(const fs::path& path)
{
    std::error_code ec;
    const fs::path tutto = fs::absolute(path, ec);
    return (ec ? path : tutto).lexically_normal().string();
}

}  // namespace

std::string Files::native(std::string_view path)
{
    std::string s(path);
    for (char& c : s) {
        if (c == '\\' || c == '/') {
            c = static_cast<char>(fs::path::preferred_separator);
        }
    }
    return s;
}

std::string Files::behindLinks(const std::string& path)
{
    return inFondoAiLink(native(path)).string();
}

bool Files::exists(const std::string& path) const
{
    std::error_code ec;
    return fs::is_regular_file(native(path), ec);
}

bool Files::folderExists(const std::string& path) const
{
    std::error_code ec;
    return fs::is_directory(native(path), ec);
}

std::uint64_t Files::size(const std::string& path) const
{
    return static_cast<std::uint64_t>(stato(native(path)).st_size);
}

Bytes Files::read(const std::string& path) const
{
    const std::string file = native(path);
    const Descrittore fd(apriLettura(file));
    // The file may grow or shrink meanwhile: what counts is the end that reading finds. The byte in excess lets it be
    // found without growing.
    const std::size_t atteso = static_cast<std::size_t>(stato(file).st_size) + 1;
    Bytes bytes = roomFor(atteso);
    bytes.resize(atteso);
    std::size_t letti = 0;
    for (;;) {
        if (letti == bytes.size()) {
            bytes.resize(letti + blocco);
        }
        const std::size_t n = leggi(*fd, bytes.data() + letti, std::min(pezzo, bytes.size() - letti), file);
        if (n == 0) {
            break;
        }
        letti += n;
        if (betweenPieces) {
            betweenPieces();
        }
    }
    bytes.resize(letti);
    return bytes;
}

void Files::replaceWith(const std::string& path, const Replacing& how, const std::function<void(int)>& write)
{
    const fs::path richiesto = native(path);
    const fs::path bersaglio = inFondoAiLink(richiesto);
    struct stat vecchio {};
    const bool esiste = ::stat(bersaglio.c_str(), &vecchio) == 0;
    if (esiste && !S_ISREG(vecchio.st_mode)) {
        fallito(errori::erroreDiPercorso, bersaglio.string());
    }

    FileAccanto accanto(bersaglio, how.ownerOnly);
    if (accanto.codice() != 0) {
        nonApribile(accanto.codice(), bersaglio);
    }
    if (esiste) {
        tieniPermessi(accanto.fd(), how.ownerOnly ? vecchio.st_mode & soloProprietario : vecchio.st_mode,
                      bersaglio.string());
    }
    write(accanto.fd());
    if (::fsync(accanto.fd()) != 0) {
        fallitoPerCodice(errno, bersaglio.string());
    }
    if (const int codice = accanto.chiudi(); codice != 0) {
        fallitoPerCodice(codice, bersaglio.string());
    }
    checkFault(richiesto.string());
    checkFault(bersaglio.string());
    if (esiste) {
        tieniPrecedente(*this, bersaglio.string(), how);
    }
    if (const int codice = accanto.alPostoDi(bersaglio.string()); codice != 0) {
        std::error_code ignorato;
        if (esiste && !how.earlier.empty() && fs::equivalent(native(how.earlier.front()), bersaglio, ignorato)) {
            fs::remove(native(how.earlier.front()), ignorato);  // a name that nothing needs now
        }
        fallitoPerCodice(codice, bersaglio.string());
    }
    consolidaCartella(bersaglio);
}

// On a slow disk the bytes would otherwise all wait for the last flush, with the windows standing still.
void Files::writeAll(int fd, const std::uint8_t* bytes, std::size_t count, const std::string& path) const
{
    while (betweenPieces && count > pezzo) {
        scrivi(fd, bytes, pezzo, path);
        if (::fdatasync(fd) != 0) {
            fallitoPerCodice(errno, path);
        }
        bytes += pezzo;
        count -= pezzo;
        betweenPieces();
    }
    scrivi(fd, bytes, count, path);
}

void Files::replace(const std::string& path, const Bytes& bytes, const Replacing& how)
{
    replaceWith(path, how, [&](int fd) { writeAll(fd, bytes.data(), bytes.size(), path); });
}

bool Files::makeOwnerOnly(const std::string& path)
{
    const std::string file = native(path);
    struct stat s {};
    if (::stat(file.c_str(), &s) != 0) {
        return false;
    }
    const mode_t permessi = s.st_mode & soloPermessi;
    return (permessi & soloProprietario) == permessi || ::chmod(file.c_str(), permessi & soloProprietario) == 0;
}

void Files::copy(const std::string& from, const std::string& to, const Replacing& how)
{
    const std::string origine = native(from);
    const Descrittore lettura(apriLettura(origine));
    replaceWith(to, how, [&](int scrittura) {
        Bytes letti(blocco);
        std::size_t daConsolidare = 0;
        while (const std::size_t n = leggi(*lettura, letti.data(), letti.size(), origine)) {
            scrivi(scrittura, letti.data(), n, to);
            daConsolidare += n;
            if (betweenPieces && daConsolidare >= pezzo) {
                if (::fdatasync(scrittura) != 0) {
                    fallitoPerCodice(errno, to);
                }
                daConsolidare = 0;
                betweenPieces();
            }
        }
    });
}

void Files::rename(const std::string& from, const std::string& to)
{
    const std::string vecchio = native(from);
    const std::string nuovo = native(to);
    checkFault(nuovo);
    if (::rename(vecchio.c_str(), nuovo.c_str()) != 0) {
        if (errno != EXDEV) {
            fallitoPerCodice(errno, errno == ENOENT ? vecchio : nuovo);
        }
        // On another disk: copied whole before the old one goes.
        copy(vecchio, nuovo);
        remove(vecchio);
        return;
    }
    consolidaCartella(nuovo);
    consolidaCartella(vecchio);
}

void Files::remove(const std::string& path)
{
    const std::string file = native(path);
    checkFault(file);
    struct stat s {};
    if (::lstat(file.c_str(), &s) != 0) {
        fallitoPerCodice(errno, file);
    }
    if (S_ISDIR(s.st_mode)) {
        fallito(errori::erroreDiPercorso, file);
    }
    if (::unlink(file.c_str()) != 0) {
        fallitoPerCodice(errno, file);
    }
    consolidaCartella(file);
}

void Files::makeFolder(const std::string& path)
{
    const std::string cartella = native(path);
    checkFault(cartella);
    std::error_code ec;
    fs::create_directories(cartella, ec);
    if (!ec && fs::is_directory(cartella, ec)) {
        return;
    }
    // A file in the way, on whatever level, is a wrong path and no missing file.
    if (!ec || ec.value() == ENOTDIR) {
        fallito(errori::erroreDiPercorso, cartella);
    }
    fallitoPerCodice(ec.value(), cartella);
}

void Files::failNextWrite(const std::string& path, std::uint32_t numero)
{
    faults_[assoluto(native(path))] = numero;
}

void Files::checkFault(const std::string& path)
{
    if (faults_.empty()) {
        return;
    }
    const auto guasto = faults_.extract(assoluto(path));
    if (guasto) {
        fallito(guasto.mapped(), path);
    }
}

}  // namespace bravona
