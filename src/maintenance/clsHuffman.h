#pragma once

#include "platform/files/Files.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace bravona {

// Packs a whole file into a backup (`.bk`) and unpacks it again; the format is in docs/bk-format.md. Nothing is kept
// between calls. Every operation has its effect whole or throws and leaves its argument, or the destination, as it was.
// Besides the bytes given and the result, an operation takes less than 1 MiB.
//
// A failure of the codec is Errore 0x80040000 with the operation as its origin; those of the files come as they are.
class clsHuffman {
public:
    explicit clsHuffman(Files& file);

    // Receives whole percent values, each above the last one of the same call. May throw: the operation is then given
    // up.
    std::function<void(std::int16_t percento)> Progress;

    // What a file operation read and what it left at the destination, in bytes.
    struct Esito {
        std::uint64_t letti = 0;
        std::uint64_t scritti = 0;
    };

    // Replaces `dati` by the coded form of its first `lunghezza` bytes. Throws when there are more than 2,147,483,647
    // of them, and Errore 9 when `dati` holds fewer.
    void EncodeByte(Bytes& dati, std::size_t lunghezza) const;
    void EncodeByte(Bytes& dati) const { EncodeByte(dati, dati.size()); }

    // Replaces `dati` by the original of its first `lunghezza` bytes, whatever they are: what is no coded form, or a
    // damaged one, throws. A form whose stored length is 0 is left as it is.
    void DecodeByte(Bytes& dati, std::size_t lunghezza) const;
    void DecodeByte(Bytes& dati) const { DecodeByte(dati, dati.size()); }

    // From file to file, the destination replaced at the end in one step. An empty original is refused with Errore 9:
    // no archive is empty. Nothing is read of a source that is too long for the format; one that is too large for the
    // memory there is gives Errore 7. Only its owner
    // may read the destination; what was there is kept under the names of `precedenti`, as Replacing tells.
    Esito EncodeFile(const std::string& sorgente, const std::string& destinazione,
                     const std::vector<std::string>& precedenti = {}) const;
    Esito DecodeFile(const std::string& sorgente, const std::string& destinazione) const;

    // On the bytes of a text in the Western code page (1252), back to a text character by character. A character
    // outside the page counts as "?".
    [[nodiscard]] std::string EncodeString(std::string_view testo) const;
    [[nodiscard]] std::string DecodeString(std::string_view testo) const;

private:
    [[nodiscard]] Bytes leggi(const std::string& sorgente, std::uint64_t massimo, const char* origine,
                              const char* mancante) const;

    Files& file_;
};

}  // namespace bravona
