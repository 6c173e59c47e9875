#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "schema/Schema.h"

// crea_archivio FILE [--bare]: makes an archive as it is delivered, or the smallest one that the program starts with.
int main(int argc, char** argv)
{
    std::string file;
    bool minimo = false;
    bool valido = true;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argomento(argv[i]);
        if (argomento == "--bare") {
            minimo = true;
        } else if (file.empty() && !argomento.starts_with("--")) {
            file = argomento;
        } else {
            valido = false;
        }
    }
    if (file.empty() || !valido) {
        std::fputs("usage: crea_archivio FILE [--bare]\n", stderr);
        return 2;
    }
    try {
        bravona::Connection cn;
        cn.create(file, bravona::passwordArchivio);
        bravona::creaSchema(cn);
        minimo ? bravona::semiMinimi(cn) : bravona::semiConsegna(cn);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "crea_archivio: %s\n", e.what());
        return 1;
    }
    return 0;
}
