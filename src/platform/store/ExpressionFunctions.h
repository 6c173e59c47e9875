#pragma once

#include <cstdint>
#include <string_view>

#include "platform/store/Recordset.h"

namespace bravona {

enum class FunctionId : std::uint8_t { max, min, sum, count, month, year, format };

// A function of the dialect.
struct ExpressionFunction {
    std::string_view name;
    FunctionId id;
    std::size_t arguments;
    FieldType result;         // where it does not follow from the arguments
    std::string_view engine;  // how the engine calls it
};

const ExpressionFunction* findExpressionFunction(std::string_view name);

}  // namespace bravona
