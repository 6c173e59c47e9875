#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/store/Recordset.h"

namespace bravona {

enum class OpenMode {
    readOnly,   // static
    updatable,  // changes sent by `update`
    batch       // changes kept until `updateBatch`
};

// What an archive is held for, as a file.
enum class Hold {
    toCopy,    // others may go on reading it
    toReplace  // nobody else has to do with it
};

// The one door to the archive: a password-protected file of the engine. Statements are written in the program's own
// dialect and translated; one statement a call. Failures are Errore:
//   3021 no current row      3022 duplicate key        3200 related rows exist   3315 required text empty
//   3061 unknown column      3078 unknown table        3079 a column that several tables have
//   3075 not understood      3464 types that do not go together; all five with their place in the statement
//   3360 understood, but nested deeper than the engine goes
//   6 out of range           11 division by zero       13 a text that is no number or date
//   3031 wrong password or no archive                  3049 damaged              3044 no such path, or moved
//   3051 cannot be opened    61 no room                3027 cannot be changed    3218 in use by another program
//   3043 the disk failed     3035 any other failure of the engine
class Connection {
public:
    Connection();
    ~Connection();  // closes; an open transaction is rolled back
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Opens an existing archive. A journal left by a kill is rolled back here. Errore 3044 missing, 3031 wrong password
    // or not an archive (the engine cannot tell them apart), 3051 a directory or unreadable file.
    void open(const std::string& path, std::string_view password);
    // Makes a new, empty file (no tables). Errore when it exists.
    void create(const std::string& path, std::string_view password);
    // --- an archive as a file; it must not be open in this program. `whileWorking` is called every so often during
    // long work; it runs no statement and throws nothing.
    using Working = std::function<void()>;
    // Opens an archive in order to copy or replace it: what a kill has left is rolled back, and no other program
    // changes it until `close`. What is to be replaced has no journal beside it then; what is to be copied may lie on a
    // disk that takes no writing. Errore as `open`, and 3218 when another program is changing it.
    void hold(const std::string& path, std::string_view password, Hold purpose);
    // The system lets the archive go when this program has read the file by other means: holds it again, to be
    // replaced. Errore 3218 also when another program has changed it meanwhile.
    void holdAgain();
    // Rewrites an archive without the room that deleted rows have left, all or nothing. Errore as `open`.
    static void compact(const std::string& path, std::string_view password, const Working& whileWorking = {});
    // Reads all of it. Errore as `open`, and 3049 when anything in it is damaged.
    static void verify(const std::string& path, std::string_view password, const Working& whileWorking = {});
    // Removes a journal beside a path where no archive is, or none that could be opened: it must not be played into a
    // file that comes there.
    static void discardJournal(const std::string& path);

    void close();
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] const std::string& path() const;
    // Rows written since it was opened: who has read something sees by it whether that may have changed.
    [[nodiscard]] std::int64_t changes() const;

    // Runs a statement that returns no rows; the number of rows touched.
    std::int64_t execute(std::string_view statement);
    // A SELECT, a "SHAPE {…} APPEND ({…} RELATE a TO b) AS Child", or the name of a table (opened updatable unless
    // readOnly is asked: no rows are read until one is asked for, in key order).
    Recordset open(std::string_view statement, OpenMode mode = OpenMode::readOnly);
    Recordset openTable(std::string_view table, OpenMode mode = OpenMode::updatable);

    // The engine's words for a statement of the dialect, to look at.
    std::string translated(std::string_view statement);

    // Keys that the table's counter gives from now on are above this one. Writes nothing where they are anyway.
    void countAbove(std::string_view table, std::int32_t key);

    // Transactions do not nest: Errore 3246 to begin inside one, 3034 to commit or roll back without one.
    void begin();
    void commit();
    void rollback();
    [[nodiscard]] bool inTransaction() const;

    // Called before each write (one record sent or one statement executed) with the table's name; may throw, and runs
    // no statement itself. For tests.
    void setWriteHook(std::function<void(const std::string& table)> hook);

    // Engine statements as they are: for the schema and the tools only.
    void executeNative(std::string_view sql);

    struct Impl;
    Impl& impl();

private:
    std::shared_ptr<Impl> impl_;  // sets that are still open see when it goes
};

// Rolls back when its scope ends without `commit`.
class Transaction {
public:
    explicit Transaction(Connection& connection) : connection_(connection) { connection_.begin(); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    Connection& connection_;
    bool open_ = true;
};

}  // namespace bravona
