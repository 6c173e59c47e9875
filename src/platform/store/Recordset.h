#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/values/Value.h"

namespace bravona {

class Connection;
class Recordset;

enum class FieldType { counter, longInt, integer, dbl, currency, date, text, yesNo, chapter };

// One column of the current row of a record set, by name (case folded) or position. Lives no longer than the set.
class Field {
public:
    [[nodiscard]] const std::string& name() const;
    [[nodiscard]] FieldType type() const;
    // Errore 3021 without a current row.
    [[nodiscard]] const Value& value() const;
    // Converted to the column's type by Italian settings: Errore 13 for what cannot be read, 6 out of range. An empty
    // text stores Null in a numeric or date column. On a row of a stored set nothing is sent before `update`.
    void set(const Value& value);
    Field& operator=(const Value& value)
    {
        set(value);
        return *this;
    }
    Field& operator=(const Field&) = delete;

    [[nodiscard]] bool isNull() const { return value().isNull(); }
    // Null gives the empty text.
    [[nodiscard]] std::string text() const { return value().text(); }
    // Errore 94 for Null.
    [[nodiscard]] std::int32_t asLong() const { return value().toLong(); }
    [[nodiscard]] double asDouble() const { return value().toDouble(); }
    [[nodiscard]] Currency asCurrency() const { return value().toCurrency(); }
    [[nodiscard]] Date asDate() const { return value().toDate(); }
    [[nodiscard]] bool asBool() const { return value().toBool(); }
    [[nodiscard]] std::int32_t longOr(std::int32_t fallback) const { return value().longOr(fallback); }
    [[nodiscard]] double doubleOr(double fallback) const { return value().doubleOr(fallback); }
    [[nodiscard]] Currency currencyOr(Currency fallback) const { return value().currencyOr(fallback); }

private:
    friend class Recordset;
    Field(Recordset& set, std::size_t column) : set_(&set), column_(column) {}
    Recordset* set_;
    std::size_t column_;
};

struct ColumnInfo {
    std::string name;  // as the query delivers it: bare, or Table.Column where a join has the name twice
    FieldType type = FieldType::text;
    std::string table;  // base table and column, empty for an expression
    std::string column;
};

// A set that no statement fills. Its columns hold text; longer text is cut to the declared length.
struct DeclaredColumn {
    std::string name;
    std::size_t length = 255;
};
struct DeclaredChapter;
struct DeclaredSet {
    std::vector<DeclaredColumn> columns;
    std::vector<DeclaredChapter> chapters;  // columns behind all others
};
// Child rows, under each row of the parent a set of their own; what they are related by they take from it.
struct DeclaredChapter {
    std::string name, parentColumn, childColumn;
    DeclaredSet rows;
};

// A client-side, static record set: rows in memory, movement, and, when opened updatable, changes sent row by row
// (`update`) or in one batch (`updateBatch`). A table opened by name to add rows reads none of them until a row is
// asked for. Movable, not copyable. Every failure is an Errore with the store's number.
class Recordset {
public:
    Recordset();  // closed
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    // A disconnected set, empty, to which the program adds rows. Errore 3450 for a relation over an unknown column.
    static Recordset declare(const DeclaredSet& declared);

    [[nodiscard]] bool isOpen() const;
    void close();

    [[nodiscard]] std::size_t recordCount() const;
    [[nodiscard]] const std::vector<ColumnInfo>& columns() const;
    [[nodiscard]] bool hasColumn(std::string_view name) const;

    // --- movement: the first row is current after opening; beyond either end there is none. Leaving a row, also for a
    // new one, sends what was changed in it, as `update` does.
    [[nodiscard]] bool eof() const;
    [[nodiscard]] bool bof() const;
    void moveFirst();  // Errore 3021 on an empty set
    void moveLast();
    void moveNext();  // Errore 3021 when already at the end
    void movePrevious();
    void moveTo(std::size_t row);                // from 0; Errore 9 out of range
    [[nodiscard]] std::size_t position() const;  // of the current row, from 0

    // Errore 3265 for an unknown name, 9 for a position out of range.
    Field operator[](std::string_view name);
    Field operator[](std::size_t position);
    Field operator[](const char* name) { return (*this)[std::string_view(name)]; }
    // What stands in any row, from 0, its unsent changes as well; the current row stays. Errore 9 out of range.
    [[nodiscard]] Value valueAt(std::size_t row, std::size_t column) const;
    [[nodiscard]] std::string textAt(std::size_t row, std::size_t column) const;  // the same as `Field::text` tells it
    Field operator[](int position) { return (*this)[static_cast<std::size_t>(position)]; }

    // The child rows of the current row (a chapter column), as a set of its own whose first row is current. The same
    // rows each time: rows added to the chapter of a declared set stay with their parent.
    Recordset& chapter(std::string_view name);

    // --- changes
    void addNew();        // a new current row, not sent
    void update();        // sends the current row: an INSERT or an UPDATE; a counter can be read back afterwards
    void cancelUpdate();  // forgets what was not sent; a new row goes
    void remove();        // deletes the current row; the next one becomes current
    void updateBatch();   // sends every row changed, added or removed since opening, in order, all or nothing
    [[nodiscard]] bool isEdited() const;  // the current row has unsent changes
    // Batch sets keep changes until `updateBatch`; told at opening.
    [[nodiscard]] bool isBatch() const;
    [[nodiscard]] bool isUpdatable() const;

    struct State;

private:
    friend class Field;
    friend class Connection;
    explicit Recordset(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};

}  // namespace bravona
