// Whatever text comes as a statement is run or refused with an Errore, and what the translator lets through the engine
// understands. Seeds: the statements of tests/platform/store/istruzioni.txt, one a file:
//   awk '/^= /{ print substr($0, 3) > ("seeds/" ++n) }' tests/platform/store/istruzioni.txt
//   build/fuzz/bin/fuzz_translator seeds -dict=fuzz/fuzz_translator.dict

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "platform/store/ConnectionImpl.h"
#include "platform/values/Errore.h"
#include "schema/Schema.h"

namespace {

bravona::Connection& archive()
{
    static bravona::Connection cn;
    if (!cn.isOpen()) {
        cn.create(":memory:", bravona::passwordArchivio);
        bravona::creaSchema(cn);
        bravona::semiMinimi(cn);
    }
    return cn;
}

template <typename Action>
bool understood(Action action)
{
    try {
        action();
    } catch (const bravona::Errore&) {
        return false;
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t longest = 2000;
    const std::string_view statement(reinterpret_cast<const char*>(data), size);
    if (size > longest) {
        return 0;
    }
    bravona::Connection& cn = archive();
    std::string sql;
    if (understood([&] { sql = cn.translated(statement); })) {
        try {
            bravona::EngineStatement prepared(cn.impl().engine.get(), sql);
        } catch (const bravona::Errore& e) {
            constexpr std::uint32_t nestedTooDeeply = 3360;
            if (e.numero() == nestedTooDeeply) {
                return 0;
            }
            std::fprintf(stderr, "%s\n%.*s\n%s\n", e.what(), static_cast<int>(size), statement.data(), sql.c_str());
            std::abort();
        }
    }
    cn.begin();
    understood([&] { cn.execute(statement); });
    understood([&] { cn.open(statement); });
    understood([&] { cn.open(statement, bravona::OpenMode::updatable); });
    cn.rollback();
    return 0;
}
