#include "bravona_bk/Comandi.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    const std::vector<std::string> argomenti(argv + 1, argv + argc);
    return bravona::bravonaBk(argomenti, std::cout, std::cerr);
}
