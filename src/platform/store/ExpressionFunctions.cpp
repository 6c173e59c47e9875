#include "platform/store/ExpressionFunctions.h"

#include <array>

#include "platform/store/Tokenizer.h"

namespace bravona {
namespace {

constexpr std::array functions = {
    ExpressionFunction{"Max", FunctionId::max, 1, 1, FieldType::longInt, "MAX"},
    ExpressionFunction{"Min", FunctionId::min, 1, 1, FieldType::longInt, "MIN"},
    ExpressionFunction{"Sum", FunctionId::sum, 1, 1, FieldType::longInt, "SUM"},
    ExpressionFunction{"Avg", FunctionId::avg, 1, 1, FieldType::dbl, "AVG"},
    ExpressionFunction{"Count", FunctionId::count, 1, 1, FieldType::longInt, "COUNT"},
    ExpressionFunction{"Month", FunctionId::month, 1, 1, FieldType::longInt, "bv_month"},
    ExpressionFunction{"Year", FunctionId::year, 1, 1, FieldType::longInt, "bv_year"},
    ExpressionFunction{"Day", FunctionId::day, 1, 1, FieldType::longInt, "bv_day"},
    ExpressionFunction{"Format", FunctionId::format, 2, 2, FieldType::text, "bv_format"},
    ExpressionFunction{"Abs", FunctionId::abs, 1, 1, FieldType::longInt, "abs"},
    ExpressionFunction{"IIf", FunctionId::iif, 3, 3, FieldType::longInt, ""},
    ExpressionFunction{"Len", FunctionId::len, 1, 1, FieldType::longInt, "length"},
    ExpressionFunction{"UCase", FunctionId::upper, 1, 1, FieldType::text, "bv_upper"},
    ExpressionFunction{"LCase", FunctionId::lower, 1, 1, FieldType::text, "bv_lower"},
    ExpressionFunction{"Trim", FunctionId::trim, 1, 1, FieldType::text, "bv_trim"},
    ExpressionFunction{"Left", FunctionId::left, 2, 2, FieldType::text, "bv_left"},
    ExpressionFunction{"Right", FunctionId::right, 2, 2, FieldType::text, "bv_right"},
    ExpressionFunction{"Mid", FunctionId::mid, 2, 3, FieldType::text, "bv_mid"},
};

}  // namespace

const ExpressionFunction* findExpressionFunction(std::string_view name)
{
    for (const ExpressionFunction& f : functions) {
        if (sameName(f.name, name)) {
            return &f;
        }
    }
    return nullptr;
}

}  // namespace bravona
