#pragma once

#include <span>
#include <string_view>

namespace bravona {

struct Capoluogo {
    std::string_view comune;
    std::string_view provincia;
    std::string_view cap;
};

// The provincial capitals, each with the postcode of its centre.
std::span<const Capoluogo> capoluoghi();

}  // namespace bravona
