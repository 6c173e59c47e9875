#pragma once

#include <filesystem>
#include <string>

#include "maintenance/modArchivio.h"
#include "schema/Schema.h"
#include "support/ConArchivio.h"

namespace bravona {

// A session on the database of the program's folder, and a backup of it with another customer: "Rossi" is in the
// database, "Bianchi" in the backup.
class ArchivioComeFile : public ConArchivio {
protected:
    ArchivioComeFile()
    {
        sessione.PercorsoArchivio = archivio();
        esegui("INSERT INTO Clienti (IDCliente, Cliente, Tipo) VALUES (7, 'Bianchi', 'C')");
        std::filesystem::create_directories(cartella.path() / "salvati");
        SalvaArchivio(sessione, huffman, backup());
        esegui("UPDATE Clienti SET Cliente = 'Rossi'");
    }

    [[nodiscard]] std::string archivio() const { return cartella.archive().string(); }
    [[nodiscard]] std::string backup() const { return in("salvati/DBBVEURO_Backup.bk"); }
    [[nodiscard]] std::string in(const std::string& nome) const { return (cartella.path() / nome).string(); }
    [[nodiscard]] static bool giornaleAccanto(const std::string& file)
    {
        return std::filesystem::exists(file + "-journal");
    }
    // The customer that a file holds, after all of it was read.
    [[nodiscard]] static std::string clienteIn(const std::string& file)
    {
        Connection::verify(file, passwordArchivio);
        Connection cn;
        cn.open(file, passwordArchivio);
        return cn.open("SELECT Cliente FROM Clienti WHERE IDCliente = 7")["Cliente"].text();
    }
    // The original of a backup, as a file.
    [[nodiscard]] std::string originaleDi(const std::string& bk)
    {
        std::string file = in("originale.mdb");
        huffman.DecodeFile(bk, file);
        return file;
    }

    clsHuffman huffman{files};
};

}  // namespace bravona
