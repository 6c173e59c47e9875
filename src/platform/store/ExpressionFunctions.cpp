#include "platform/store/ExpressionFunctions.h"

#include <array>

#include "platform/store/Tokenizer.h"

namespace bravona {
namespace {

constexpr std::array functions = {
    ExpressionFunction{"Max", FunctionId::max, 1, FieldType::longInt, "MAX"},
    ExpressionFunction{"Min", FunctionId::min, 1, FieldType::longInt, "MIN"},
    ExpressionFunction{"Sum", FunctionId::sum, 1, FieldType::longInt, "SUM"},
    ExpressionFunction{"Count", FunctionId::count, 1, FieldType::longInt, "COUNT"},
    ExpressionFunction{"Month", FunctionId::month, 1, FieldType::longInt, "bv_month"},
    ExpressionFunction{"Year", FunctionId::year, 1, FieldType::longInt, "bv_year"},
    ExpressionFunction{"Format", FunctionId::format, 2, FieldType::text, "bv_format"},
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
