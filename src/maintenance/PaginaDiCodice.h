#pragma once

#include "platform/files/Bytes.h"

#include <string>
#include <string_view>

namespace bravona {

// A text as bytes of the Western code page (1252), and back. Each of the 256 bytes has a character, so that bytes come
// back as they were; a character outside the page becomes "?".
Bytes inPaginaDiCodice(std::string_view testo);
std::string daPaginaDiCodice(const Bytes& byte);

}  // namespace bravona
