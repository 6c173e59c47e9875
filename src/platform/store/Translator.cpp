#include "platform/store/Translator.h"

#include "platform/store/Parser.h"
#include "platform/store/StatementWriter.h"

namespace bravona {

std::string engineName(std::string_view name)
{
    std::string result;
    result.reserve(name.size() + 2);
    result += '"';
    for (const char c : name) {
        result += c;
        if (c == '"') {
            result += c;
        }
    }
    result += '"';
    return result;
}

Translation translate(const Tokens& tokens, Catalogue& catalogue, const TranslateOptions& options)
{
    Statement statement = parse(tokens);
    Translation out;
    out.kind = statement.kind;
    out.sql.reserve(tokens.statement.size() * 2);
    StatementWriter writer(tokens, catalogue, out);
    switch (statement.kind) {
    case StatementKind::select:
        writer.select(*statement.select, options);
        break;
    case StatementKind::update:
        writer.update(statement);
        break;
    case StatementKind::remove:
        writer.remove(statement);
        break;
    case StatementKind::insert:
        writer.insert(statement);
        break;
    }
    return out;
}

}  // namespace bravona
