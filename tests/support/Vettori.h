#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace bravona {

/// The cases of a file of tests/vectors; those of one routine, if it is given. Throws when there are none.
std::vector<nlohmann::json> casi(const std::string& file, std::string_view routine = {});

}  // namespace bravona
