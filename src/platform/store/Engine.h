#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include <sqlcipher/sqlite3.h>

#include "platform/values/Errore.h"

namespace bravona {

// The engine's handle and its statements, by scope; its failures as Errore.

// A failure that the engine hands on as a text: "3315|what is wrong". Constraints, triggers and functions use it.
std::string numberedFailure(std::uint32_t number, std::string_view text);

// The failure that the engine reports last.
[[nodiscard]] Errore engineError(sqlite3* db);
[[nodiscard]] Errore engineError(int code, std::string_view message);

class EngineStatement {
public:
    EngineStatement() = default;
    // Throws Errore 3075 for what the engine does not understand.
    EngineStatement(sqlite3* db, std::string_view sql);
    ~EngineStatement();
    EngineStatement(EngineStatement&& other) noexcept;
    EngineStatement& operator=(EngineStatement&& other) noexcept;
    EngineStatement(const EngineStatement&) = delete;
    EngineStatement& operator=(const EngineStatement&) = delete;

    [[nodiscard]] sqlite3_stmt* get() const { return stmt_; }
    // Places from 1. Texts are not copied: they must live until the statement has run.
    void bindNull(int place) { check(sqlite3_bind_null(stmt_, place)); }
    void bindWhole(int place, std::int64_t value) { check(sqlite3_bind_int64(stmt_, place, value)); }
    void bindReal(int place, double value) { check(sqlite3_bind_double(stmt_, place, value)); }
    void bindText(int place, std::string_view text);
    void bindBlob(int place, const void* bytes, int size);  // copied

    // True for a row, false at the end. A failure resets the statement.
    bool step();
    void reset() noexcept;

private:
    void check(int code) const;
    sqlite3_stmt* stmt_ = nullptr;
};

// Resets a statement when its scope ends, however it ends.
class Running {
public:
    explicit Running(EngineStatement& statement) : statement_(statement) {}
    ~Running() { statement_.reset(); }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

private:
    EngineStatement& statement_;
};

class Engine {
public:
    Engine() = default;
    ~Engine() { close(); }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    // Opens or makes a file under the password, with the cipher's parameters of the archive.
    void open(const std::string& path, std::string_view password, bool make);
    void close() noexcept;

    [[nodiscard]] sqlite3* get() const { return db_; }
    void run(const std::string& sql);
    std::int64_t number(const std::string& sql);  // of one row and column
    // Called every so often while a statement runs; outlives them.
    void whileWorking(const std::function<void()>& callback) noexcept;
    [[nodiscard]] std::int64_t touched() const { return sqlite3_changes(db_); }

private:
    sqlite3* db_ = nullptr;
};

}  // namespace bravona
