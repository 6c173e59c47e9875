#include "support/PictureHeader.h"

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string_view>

namespace bravona {

std::optional<std::pair<int, int>> readPictureSize(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    const auto byte = [&](std::size_t at) { return static_cast<int>(static_cast<std::uint8_t>(bytes[at])); };
    const auto little = [&](std::size_t at) { return byte(at) + 256 * byte(at + 1); };
    const auto big = [&](std::size_t at) { return 256 * byte(at) + byte(at + 1); };
    const std::string_view view(bytes);
    if (bytes.size() >= 10 && (view.starts_with("GIF87a") || view.starts_with("GIF89a"))) {
        return std::pair(little(6), little(8));
    }
    if (bytes.size() >= 24 && view.starts_with("\x89PNG\r\n\x1a\n")) {
        return std::pair(big(18), big(22));
    }
    if (bytes.size() >= 26 && view.starts_with("BM")) {
        return std::pair(little(18), little(22));
    }
    if (bytes.size() >= 4 && view.starts_with("\xff\xd8")) {
        for (std::size_t at = 2; at + 9 < bytes.size() && byte(at) == 0xFF;) {
            const int marker = byte(at + 1);
            if (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC) {
                return std::pair(big(at + 7), big(at + 5));
            }
            at += 2 + static_cast<std::size_t>(big(at + 2));
        }
    }
    return std::nullopt;
}

}  // namespace bravona
