#include "platform/store/Engine.h"

#include <array>
#include <charconv>
#include <utility>

namespace bravona {
namespace {

constexpr int waitForOthers = 2000;  // milliseconds

// The cipher's parameters, by name: the versions of the engine differ in what they take when nothing is said. A version
// that does not know a name passes over it, and means the same by it.
constexpr std::array cipherParameters = {
    "PRAGMA cipher = 'aes-256-cbc'",
    "PRAGMA cipher_page_size = 4096",
    "PRAGMA kdf_iter = 64000",
    "PRAGMA cipher_use_hmac = ON",
    "PRAGMA cipher_hmac_algorithm = HMAC_SHA1",
    "PRAGMA cipher_kdf_algorithm = PBKDF2_HMAC_SHA1",
    "PRAGMA cipher_plaintext_header_size = 0",
};

struct Numbered {
    std::uint32_t number = 0;
    std::string_view text;
};

// "3315|text", at the beginning or behind the engine's own words and ": ".
Numbered findNumbered(std::string_view message)
{
    const std::size_t bar = message.find('|');
    if (bar == std::string_view::npos) {
        return {};
    }
    std::size_t start = message.substr(0, bar).rfind(": ");
    start = start == std::string_view::npos ? 0 : start + 2;
    Numbered n;
    const auto [end, error] = std::from_chars(message.data() + start, message.data() + bar, n.number);
    if (error != std::errc{} || end != message.data() + bar) {
        return {};
    }
    n.text = message.substr(bar + 1);
    return n;
}

std::string behindColon(std::string_view message)
{
    const std::size_t colon = message.find(": ");
    return std::string(colon == std::string_view::npos ? message : message.substr(colon + 2));
}

}  // namespace

std::string numberedFailure(std::uint32_t number, std::string_view text)
{
    return std::to_string(number) + "|" + std::string(text);
}

Errore engineError(int code, std::string_view message)
{
    if (const Numbered n = findNumbered(message); n.number != 0) {
        return Errore(n.number, std::string(n.text));
    }
    switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return Errore(errori::chiaveDuplicata, "Valore duplicato: " + behindColon(message) + " non ammette doppioni.");
    case SQLITE_CONSTRAINT_NOTNULL:
        return Errore(3314, "Manca un valore in " + behindColon(message) + ".");
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return Errore(errori::recordCorrelati, "Esistono record correlati.");
    default:
        break;
    }
    if (code == SQLITE_READONLY_DBMOVED) {
        return Errore(3044, "Il file dell'archivio è stato spostato o sostituito: riavviare Bravona.");
    }
    switch (code & 0xFF) {
    case SQLITE_NOTADB:
        return Errore(3031, "La password non è valida, o il file non è un archivio di Bravona.");
    case SQLITE_CORRUPT:
        return Errore(3049, "L'archivio è danneggiato.");
    case SQLITE_FULL:
        return Errore(errori::discoPieno, "Il disco è pieno.");
    case SQLITE_READONLY:
        return Errore(3027, "L'archivio è in sola lettura.");
    case SQLITE_CANTOPEN:
        return Errore(3051, "Impossibile aprire il file dell'archivio.");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return Errore(3218, "L'archivio è in uso da un altro programma.");
    case SQLITE_NOMEM:
        return Errore(7, "Memoria esaurita.");
    case SQLITE_IOERR:
        return Errore(3043, "Errore di lettura o scrittura sul disco.");
    default:
        break;
    }
    if (message == "integer overflow") {
        return Errore(errori::numeroTroppoGrande, "Overflow");
    }
    return Errore(3035, std::string(message));
}

Errore engineError(sqlite3* db)
{
    return engineError(sqlite3_extended_errcode(db), sqlite3_errmsg(db));
}

// --- EngineStatement

EngineStatement::EngineStatement(sqlite3* db, std::string_view sql)
{
    const int code = sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &stmt_, nullptr);
    if (code == SQLITE_ERROR && std::string_view(sqlite3_errmsg(db)) == "parser stack overflow") {
        throw Errore(3360, "Istruzione troppo annidata.");
    }
    if (code == SQLITE_ERROR) {
        throw Errore(3075, "Istruzione non valida: " + std::string(sqlite3_errmsg(db)));
    }
    if (code != SQLITE_OK) {
        throw engineError(db);
    }
}

EngineStatement::~EngineStatement()
{
    sqlite3_finalize(stmt_);
}

EngineStatement::EngineStatement(EngineStatement&& other) noexcept : stmt_(std::exchange(other.stmt_, nullptr)) {}

EngineStatement& EngineStatement::operator=(EngineStatement&& other) noexcept
{
    std::swap(stmt_, other.stmt_);
    return *this;
}

void EngineStatement::check(int code) const
{
    if (code != SQLITE_OK) {
        throw engineError(sqlite3_db_handle(stmt_));
    }
}

void EngineStatement::bindText(int place, std::string_view text)
{
    // An empty view may have no address, which the engine would take for Null.
    check(
        sqlite3_bind_text(stmt_, place, text.empty() ? "" : text.data(), static_cast<int>(text.size()), SQLITE_STATIC));
}

void EngineStatement::bindBlob(int place, const void* bytes, int size)
{
    check(sqlite3_bind_blob(stmt_, place, bytes, size, SQLITE_TRANSIENT));
}

bool EngineStatement::step()
{
    const int code = sqlite3_step(stmt_);
    if (code == SQLITE_ROW) {
        return true;
    }
    if (code == SQLITE_DONE) {
        return false;
    }
    const Errore failure = engineError(sqlite3_db_handle(stmt_));
    sqlite3_reset(stmt_);
    throw failure;
}

void EngineStatement::reset() noexcept
{
    sqlite3_reset(stmt_);
}

// --- Engine

void Engine::open(const std::string& path, std::string_view password, bool make)
{
    close();
    const int flags = SQLITE_OPEN_READWRITE | (make ? SQLITE_OPEN_CREATE : 0);
    const int code = sqlite3_open_v2(path.c_str(), &db_, flags, nullptr);
    if (code != SQLITE_OK) {
        const Errore failure = engineError(code, db_ != nullptr ? sqlite3_errmsg(db_) : "memoria");
        close();
        throw failure;
    }
    sqlite3_extended_result_codes(db_, 1);
    sqlite3_busy_timeout(db_, waitForOthers);
    if (sqlite3_key(db_, password.data(), static_cast<int>(password.size())) != SQLITE_OK) {
        throw engineError(db_);
    }
    for (const char* parameter : cipherParameters) {
        run(parameter);
    }
    // One whole file at rest, everything on the disk when a transaction is done, nothing readable beside it.
    run("PRAGMA temp_store = MEMORY");
    run("PRAGMA synchronous = FULL");
    run("PRAGMA recursive_triggers = OFF");
}

void Engine::close() noexcept
{
    sqlite3_close_v2(db_);
    db_ = nullptr;
}

void Engine::run(const std::string& sql)
{
    char* message = nullptr;
    const int code = sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &message);
    if (code == SQLITE_OK) {
        return;
    }
    const std::string text = message != nullptr ? message : "";
    sqlite3_free(message);
    throw engineError(sqlite3_extended_errcode(db_), text);
}

void Engine::whileWorking(const std::function<void()>& callback) noexcept
{
    constexpr int steps = 20'000;  // of the engine's machine, some milliseconds
    if (!callback) {
        sqlite3_progress_handler(db_, 0, nullptr, nullptr);
        return;
    }
    sqlite3_progress_handler(
        db_, steps,
        [](void* called) {
            (*static_cast<const std::function<void()>*>(called))();
            return 0;
        },
        const_cast<std::function<void()>*>(&callback));
}

std::int64_t Engine::number(const std::string& sql)
{
    EngineStatement s(db_, sql);
    return s.step() ? sqlite3_column_int64(s.get(), 0) : 0;
}

}  // namespace bravona
