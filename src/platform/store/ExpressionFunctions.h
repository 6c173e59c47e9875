#pragma once

#include <cstdint>
#include <string_view>

#include "platform/store/Recordset.h"

namespace bravona {

enum class FunctionId : std::uint8_t {
    max,
    min,
    sum,
    avg,
    count,
    month,
    year,
    day,
    format,
    abs,
    iif,
    len,
    upper,
    lower,
    trim,
    left,
    right,
    mid
};

// A function of the dialect.
struct ExpressionFunction {
    std::string_view name;
    FunctionId id;
    std::size_t least;  // arguments
    std::size_t most;
    FieldType result;         // where it does not follow from the arguments
    std::string_view engine;  // how the engine calls it
};

const ExpressionFunction* findExpressionFunction(std::string_view name);

}  // namespace bravona
