#pragma once

#include "platform/files/Bytes.h"

#include <string>

namespace bravona {

/// Lower case hexadecimal digits.
std::string sha256(const Bytes& dati);

}  // namespace bravona
