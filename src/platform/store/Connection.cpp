#include "platform/store/Connection.h"

#include <filesystem>

#include "platform/files/Files.h"
#include "platform/store/ConnectionImpl.h"
#include "platform/store/Functions.h"
#include "platform/store/RecordsetState.h"
#include "platform/text/Text.h"

namespace bravona {
namespace {

namespace fs = std::filesystem;

// The order of texts that the archive was last indexed under, as a number: of the collation's version.
std::int32_t collationMark()
{
    std::uint32_t h = 2166136261U;
    for (const char c : collationVersion()) {
        h = (h ^ static_cast<unsigned char>(c)) * 16777619U;
    }
    return static_cast<std::int32_t>(h | 1U);  // never 0, which a fresh file has
}

// The file itself, where the path is a link: its journal must stand beside it. A file that is missing has its place.
std::string realPath(const std::string& path)
{
    std::error_code failure;
    const fs::path real = fs::canonical(path, failure);
    return failure ? Files::behindLinks(path) : real.string();
}

void checkArchiveFile(const std::string& path)
{
    std::error_code failure;
    const fs::file_status status = fs::status(path, failure);
    if (status.type() == fs::file_type::not_found) {
        throw Errore(3044, "Il file \"" + path + "\" non esiste.");
    }
    if (status.type() != fs::file_type::regular) {
        throw Errore(3051, "Impossibile aprire il file \"" + path + "\".");
    }
    // The engine would take an empty file for a new archive.
    if (fs::file_size(path, failure) == 0 && !failure) {
        throw Errore(3031, "Il file \"" + path + "\" non è un archivio di Bravona.");
    }
}

}  // namespace

Connection::Connection() : impl_(std::make_shared<Impl>())
{
    impl_->self = impl_;
}

Connection::~Connection()
{
    close();
}

void Connection::open(const std::string& path, std::string_view password)
{
    close();
    checkArchiveFile(path);
    try {
        impl_->engine.open(realPath(path), password, false);
        registerFunctions(impl_->engine.get());
        // The first read proves the password and plays back what a kill has left.
        impl_->engine.number("SELECT COUNT(*) FROM sqlite_master");
        impl_->engine.number("PRAGMA journal_mode = DELETE");
        if (impl_->engine.number("PRAGMA user_version") != collationMark()) {
            impl_->allOrNothing([this] {
                impl_->engine.run("REINDEX");
                impl_->engine.run("PRAGMA user_version = " + std::to_string(collationMark()));
            });
        }
        impl_->loadCatalogue();
    } catch (...) {
        close();
        throw;
    }
    impl_->path = path;
}

void Connection::create(const std::string& path, std::string_view password)
{
    close();
    std::error_code failure;
    if (fs::exists(fs::symlink_status(path, failure))) {
        throw Errore(3204, "Il file \"" + path + "\" esiste già.");
    }
    try {
        impl_->engine.open(path, password, true);
        registerFunctions(impl_->engine.get());
        impl_->engine.run("PRAGMA user_version = " + std::to_string(collationMark()));
        impl_->loadCatalogue();
    } catch (...) {
        close();
        throw;
    }
    impl_->path = path;
}

void Connection::hold(const std::string& path, std::string_view password, Hold purpose)
{
    open(path, password);
    try {
        impl_->take(purpose);
        impl_->heldVersion = impl_->engine.number("PRAGMA data_version");
    } catch (...) {
        close();
        throw;
    }
}

void Connection::holdAgain()
{
    rollback();
    impl_->take(Hold::toReplace);
    if (impl_->engine.number("PRAGMA data_version") != impl_->heldVersion) {
        throw Errore(3218, "L'archivio è stato cambiato da un altro programma.");
    }
}

void Connection::compact(const std::string& path, std::string_view password, const Working& whileWorking)
{
    Connection whole;
    whole.open(path, password);
    whole.impl_->engine.whileWorking(whileWorking);
    whole.impl_->engine.run("VACUUM");
}

void Connection::verify(const std::string& path, std::string_view password, const Working& whileWorking)
{
    Connection whole;
    whole.open(path, password);
    whole.impl_->engine.whileWorking(whileWorking);
    EngineStatement check(whole.impl_->engine.get(), "PRAGMA quick_check(1)");
    const Running running(check);
    const bool told = check.step();
    const auto* answer = told ? reinterpret_cast<const char*>(sqlite3_column_text(check.get(), 0)) : nullptr;
    if (answer == nullptr || std::string_view(answer) != "ok") {
        throw engineError(SQLITE_CORRUPT, {});
    }
}

void Connection::discardJournal(const std::string& path)
{
    std::error_code failure;
    const std::string journal = realPath(path) + "-journal";
    fs::remove(journal, failure);
    if (failure) {
        throw Errore(errori::permessoNegato, "Permesso negato: " + journal);
    }
}

void Connection::close()
{
    impl_->forgetStatements();
    impl_->catalogue.reset({}, {});
    impl_->engine.close();
    ++impl_->generation;
    impl_->inTransaction = false;
    impl_->path.clear();
}

bool Connection::isOpen() const
{
    return impl_->engine.get() != nullptr;
}

std::int64_t Connection::changes() const
{
    return isOpen() ? sqlite3_total_changes(impl_->engine.get()) : 0;
}

const std::string& Connection::path() const
{
    return impl_->path;
}

std::int64_t Connection::execute(std::string_view statement)
{
    return impl_->execute(statement);
}

Recordset Connection::open(std::string_view statement, OpenMode mode)
{
    return Recordset(impl_->open(statement, mode));
}

Recordset Connection::openTable(std::string_view table, OpenMode mode)
{
    return Recordset(impl_->openTable(impl_->table(table), mode));
}

void Connection::countAbove(std::string_view table, std::int32_t key)
{
    impl_->needOpen();
    const std::string name = impl_->table(table).name;
    // The engine keeps the highest key of each table that ever gave one.
    EngineStatement highest(impl_->engine.get(), "SELECT seq FROM sqlite_sequence WHERE name = ?");
    highest.bindText(1, name);
    const bool counted = highest.step();
    if (counted && sqlite3_column_int64(highest.get(), 0) >= key) {
        return;
    }
    highest.reset();
    impl_->beforeWrite(name);
    EngineStatement change(impl_->engine.get(), counted ? "UPDATE sqlite_sequence SET seq = ? WHERE name = ?"
                                                        : "INSERT INTO sqlite_sequence (seq, name) VALUES (?, ?)");
    change.bindWhole(1, key);
    change.bindText(2, name);
    change.step();
}

std::string Connection::translated(std::string_view statement)
{
    return impl_->translation(statement, {}).sql;
}

void Connection::begin()
{
    impl_->needOpen();
    if (impl_->inTransaction) {
        throw Errore(3246, "Una transazione è già aperta.");
    }
    impl_->engine.run("BEGIN IMMEDIATE");
    impl_->inTransaction = true;
}

void Connection::commit()
{
    if (!impl_->inTransaction) {
        throw Errore(3034, "Nessuna transazione è aperta.");
    }
    // A failed commit leaves the transaction open, to be rolled back.
    impl_->engine.run("COMMIT");
    impl_->inTransaction = false;
}

void Connection::rollback()
{
    if (!impl_->inTransaction) {
        throw Errore(3034, "Nessuna transazione è aperta.");
    }
    impl_->inTransaction = false;
    // After some failures the engine has rolled back by itself.
    if (sqlite3_get_autocommit(impl_->engine.get()) == 0) {
        impl_->engine.run("ROLLBACK");
    }
}

bool Connection::inTransaction() const
{
    return impl_->inTransaction;
}

void Connection::setWriteHook(std::function<void(const std::string& table)> hook)
{
    impl_->hook = std::move(hook);
}

void Connection::executeNative(std::string_view sql)
{
    impl_->needOpen();
    impl_->engine.run(std::string(sql));
    impl_->loadCatalogue();
}

Connection::Impl& Connection::impl()
{
    return *impl_;
}

Transaction::~Transaction()
{
    if (open_ && connection_.inTransaction()) {
        try {
            connection_.rollback();
        } catch (const Errore&) {
            // The failure that ends the scope is the one to tell.
        }
    }
}

void Transaction::commit()
{
    connection_.commit();
    open_ = false;
}

}  // namespace bravona
