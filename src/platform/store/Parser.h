#pragma once

#include "platform/store/Ast.h"
#include "platform/store/Tokenizer.h"

namespace bravona {

// Understands the statements of the program's dialect: one statement, then at most a semicolon. Throws Errore 3075,
// with the place, for anything else. The result refers to the characters of the statement.
Statement parse(const Tokens& tokens);

}  // namespace bravona
