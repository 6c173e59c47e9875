#include "platform/files/Files.h"

#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <filesystem>

#include "platform/values/Errore.h"
#include "support/Fallimento.h"
#include "support/MorteAllIstante.h"

namespace bravona {
namespace {

namespace fs = std::filesystem;

Bytes byte(std::string_view testo)
{
    return {testo.begin(), testo.end()};
}

// From here on the system answers this process that permissions are not its to change.
bool rifiutaIPermessi()
{
    sock_filter regole[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_fchmod, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog programma{static_cast<unsigned short>(std::size(regole)), regole};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &programma) == 0;
}

class FilesTest : public testing::Test {
protected:
    FilesTest()
    {
        std::string modello = (fs::temp_directory_path() / "bravona-files-XXXXXX").string();
        cartella_ = ::mkdtemp(modello.data());
    }
    ~FilesTest() override
    {
        std::error_code ec;
        fs::remove_all(cartella_, ec);
    }

    [[nodiscard]] std::string in(const std::string& nome) const { return (cartella_ / nome).string(); }

    // Names of all that lies in the folder.
    [[nodiscard]] std::vector<std::string> contenuto() const
    {
        std::vector<std::string> nomi;
        for (const auto& voce : fs::directory_iterator(cartella_)) {
            nomi.push_back(voce.path().filename().string());
        }
        std::sort(nomi.begin(), nomi.end());
        return nomi;
    }

    fs::path cartella_;
    Files files_;
};

TEST_F(FilesTest, WhatIsWrittenIsReadAndNothingLiesBeside)
{
    Bytes tutti;
    for (int i = 0; i < 1'000'000; ++i) {
        tutti.push_back(static_cast<std::uint8_t>(i * 7 >> 3));
    }
    files_.replace(in("a"), tutti);
    EXPECT_EQ(files_.read(in("a")), tutti);
    EXPECT_EQ(files_.size(in("a")), tutti.size());
    files_.copy(in("a"), in("b"));
    EXPECT_EQ(files_.read(in("b")), tutti);
    files_.replace(in("a"), {});
    EXPECT_EQ(files_.read(in("a")), Bytes());
    EXPECT_EQ(contenuto(), (std::vector<std::string>{"a", "b"}));
}

TEST_F(FilesTest, ReplacingFollowsLinksAlsoToWhatIsNotThereYet)
{
    files_.makeFolder(in("Database"));
    fs::create_symlink("Database/VERO.mdb", in("archivio.mdb"));
    fs::create_symlink("archivio.mdb", in("altro.mdb"));
    files_.replace(in("altro.mdb"), byte("uno"));
    EXPECT_EQ(files_.read(in("Database\\VERO.mdb")), byte("uno"));
    files_.replace(in("archivio.mdb"), byte("due"));
    EXPECT_EQ(files_.read(in("Database/VERO.mdb")), byte("due"));
    EXPECT_TRUE(fs::is_symlink(in("archivio.mdb")));
    EXPECT_TRUE(fs::is_symlink(in("altro.mdb")));

    fs::create_symlink("giro2", in("giro1"));
    fs::create_symlink("giro1", in("giro2"));
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.replace(in("giro1"), {});
                  return 0;
              }),
              errori::erroreDiPercorso);
}

TEST_F(FilesTest, PermissionsOfTheTargetAreKept)
{
    files_.replace(in("a"), byte("uno"));
    fs::permissions(in("a"), fs::perms(0640));
    files_.replace(in("a"), byte("due"));
    EXPECT_EQ(fs::status(in("a")).permissions(), fs::perms(0640));
}

TEST_F(FilesTest, WhatIsOwnerOnlyIsSoWhateverTheMaskAndWhatWasThere)
{
    const mode_t maschera = ::umask(0);
    files_.replace(in("nuovo"), byte("uno"), {.ownerOnly = true, .earlier = {}});
    files_.replace(in("vecchio"), byte("uno"));
    fs::permissions(in("vecchio"), fs::perms(0644));
    files_.copy(in("nuovo"), in("vecchio"), {.ownerOnly = true, .earlier = {in("vecchio.1")}});
    ::umask(maschera);
    for (const char* nome : {"nuovo", "vecchio", "vecchio.1"}) {
        EXPECT_EQ(fs::status(in(nome)).permissions(), fs::perms(0600)) << nome;
    }
}

TEST_F(FilesTest, EarlierBytesMoveOnAndTheOldestGo)
{
    for (const char* testo : {"a", "b", "c", "d"}) {
        files_.replace(in("x"), byte(testo), {.ownerOnly = false, .earlier = {in("x.1"), in("x.2")}});
    }
    EXPECT_EQ(files_.read(in("x")), byte("d"));
    EXPECT_EQ(files_.read(in("x.1")), byte("c"));
    EXPECT_EQ(files_.read(in("x.2")), byte("b"));
    files_.failNextWrite(in("x"), errori::discoPieno);
    EXPECT_ANY_THROW(files_.replace(in("x"), byte("e"), {.ownerOnly = false, .earlier = {in("x.1"), in("x.2")}}));
    EXPECT_EQ(files_.read(in("x.1")), byte("c"));
    EXPECT_EQ(contenuto(), (std::vector<std::string>{"x", "x.1", "x.2"}));
}

TEST_F(FilesTest, AKilledReplacementLeavesNoObstacle)
{
    const Bytes prima(1000, 'a');
    const Bytes dopo(2000, 'b');
    bool resti = false;
    for (int istante = 1;; ++istante) {
        files_.replace(in("a"), prima);
        if (!uccidiAllIstante(istante, [&] { files_.replace(in("a"), dopo); })) {
            break;
        }
        const Bytes letti = files_.read(in("a"));
        EXPECT_TRUE(letti == prima || letti == dopo) << istante;
        resti = resti || contenuto().size() > 1;
        files_.replace(in("a"), dopo);
        EXPECT_EQ(contenuto(), std::vector<std::string>{"a"}) << istante;
    }
    EXPECT_TRUE(resti) << "nothing was to be cleared";
}

TEST_F(FilesTest, TwoWritersOfOneTargetDoNotMeet)
{
    const Bytes grande(10'000'000, 'g');
    const Bytes altri(1000, 'a');
    Files secondo;
    int volte = 0;
    files_.replace(in("a"), byte("uno"));
    files_.betweenPieces = [&] {
        ++volte;
        secondo.replace(in("a"), altri);
        EXPECT_EQ(secondo.read(in("a")), altri);
    };
    files_.replace(in("a"), grande);
    files_.betweenPieces = {};
    EXPECT_GT(volte, 1);
    EXPECT_EQ(files_.read(in("a")), grande);
    EXPECT_EQ(contenuto(), std::vector<std::string>{"a"});
}

TEST_F(FilesTest, FilesOfSimilarNamesAreThePersonsOwn)
{
    const std::vector<std::string> suoi{".a..nuovo", ".a.1-.nuovo", ".a.12.nuovo", ".a.nuovo", ".a.x-1.nuovo", "a"};
    for (const std::string& nome : suoi) {
        files_.replace(in(nome), byte("suo"));
    }
    files_.replace(in("a"), byte("due"));
    EXPECT_EQ(contenuto(), suoi);
    files_.copy(in(".a.nuovo"), in("a"));
    EXPECT_EQ(contenuto(), suoi);
    // The longest name there is still has room for the one beside it.
    files_.replace(in(std::string(255, 'x')), byte("uno"));
    files_.replace(in(std::string(255, 'x')), byte("due"));
    EXPECT_EQ(files_.read(in(std::string(255, 'x'))), byte("due"));
}

// A stick mounted for everybody: the files are another's, and their permissions cannot be changed.
TEST_F(FilesTest, PermissionsThatCannotBeKeptAreNoReasonToRefuse)
{
    files_.replace(in("a"), byte("uno"));
    fs::permissions(in("a"), fs::perms(0600));
    const pid_t processo = ::fork();
    if (processo == 0) {
        bool fatto = rifiutaIPermessi();
        try {
            files_.replace(in("a"), byte("due"));
        } catch (...) {
            fatto = false;
        }
        ::_exit(fatto ? 0 : 1);
    }
    int stato = 0;
    ASSERT_EQ(::waitpid(processo, &stato, 0), processo);
    EXPECT_EQ(stato, 0);
    EXPECT_EQ(files_.read(in("a")), byte("due"));
}

TEST_F(FilesTest, FaultsStrikeOnceAndLeaveTheOldBytes)
{
    files_.replace(in("a"), byte("uno"));
    fs::create_symlink("a", in("link"));
    const auto sostituisci = [&](const std::string& nome) {
        return numeroDelFallimento([&] {
            files_.replace(in(nome), byte("due"));
            return 0;
        });
    };
    files_.failNextWrite(in("a"), errori::discoPieno);
    EXPECT_EQ(sostituisci("b"), 0U) << "another file is not struck";
    EXPECT_EQ(sostituisci("link"), errori::discoPieno) << "the file behind the link is";
    EXPECT_EQ(files_.read(in("a")), byte("uno"));
    EXPECT_EQ(contenuto(), (std::vector<std::string>{"a", "b", "link"}));
    files_.failNextWrite(in("sub\\..\\link"), errori::permessoNegato);
    EXPECT_EQ(sostituisci("link"), errori::permessoNegato);
    EXPECT_EQ(sostituisci("link"), 0U);
    EXPECT_EQ(files_.read(in("a")), byte("due"));

    files_.failNextWrite(in("c"), errori::unitaNonPronta);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.rename(in("a"), in("c"));
                  return 0;
              }),
              errori::unitaNonPronta);
    EXPECT_TRUE(files_.exists(in("a")));
    files_.failNextWrite(in("a"), errori::permessoNegato);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.remove(in("a"));
                  return 0;
              }),
              errori::permessoNegato);
    EXPECT_TRUE(files_.exists(in("a")));
}

TEST_F(FilesTest, FailuresHaveTheirNumbers)
{
    files_.replace(in("file"), byte("uno"));
    files_.makeFolder(in("cartella"));
    const auto lettura = [&](const std::string& nome) {
        return numeroDelFallimento([&] { return files_.read(in(nome)); });
    };
    const auto scrittura = [&](const std::string& nome) {
        return numeroDelFallimento([&] {
            files_.replace(in(nome), byte("x"));
            return 0;
        });
    };
    EXPECT_EQ(lettura("manca"), errori::fileMancante);
    EXPECT_EQ(lettura("manca/file"), errori::fileMancante);
    EXPECT_EQ(lettura("file/sotto"), errori::fileMancante);
    EXPECT_EQ(lettura("cartella"), errori::erroreDiPercorso);
    EXPECT_EQ(scrittura("manca/file"), errori::unitaNonPronta) << "the drive may have been pulled out";
    EXPECT_EQ(scrittura("cartella"), errori::erroreDiPercorso);
    EXPECT_EQ(scrittura(std::string(300, 'x')), errori::erroreDiPercorso);
    EXPECT_EQ(numeroDelFallimento([&] { return files_.size(in("manca")); }), errori::fileMancante);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.remove(in("manca"));
                  return 0;
              }),
              errori::fileMancante);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.remove(in("cartella"));
                  return 0;
              }),
              errori::erroreDiPercorso);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.copy(in("manca"), in("b"));
                  return 0;
              }),
              errori::fileMancante);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.rename(in("manca"), in("b"));
                  return 0;
              }),
              errori::fileMancante);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.makeFolder(in("file/sotto"));
                  return 0;
              }),
              errori::erroreDiPercorso);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.makeFolder(in("file"));
                  return 0;
              }),
              errori::erroreDiPercorso);
    files_.makeFolder(in("cartella\\a\\b"));
    files_.makeFolder(in("cartella/a/b"));
    EXPECT_TRUE(files_.folderExists(in("cartella\\a\\b")));
    EXPECT_FALSE(files_.exists(in("cartella")));
    EXPECT_FALSE(files_.folderExists(in("file")));
    EXPECT_EQ(contenuto(), (std::vector<std::string>{"cartella", "file"}));

    // The description says which file.
    try {
        static_cast<void>(files_.read(in("manca")));
    } catch (const Errore& e) {
        EXPECT_NE(e.descrizione().find(in("manca")), std::string::npos) << e.descrizione();
    }
}

TEST_F(FilesTest, APipeIsRefusedAndNotWaitedFor)
{
    ASSERT_EQ(::mkfifo(in("coda").c_str(), 0600), 0);
    EXPECT_EQ(numeroDelFallimento([&] { return files_.read(in("coda")); }), errori::erroreDiPercorso);
    EXPECT_EQ(numeroDelFallimento([&] {
                  files_.replace(in("coda"), {});
                  return 0;
              }),
              errori::erroreDiPercorso);
}

TEST_F(FilesTest, WithoutPermissionNothingChanges)
{
    files_.makeFolder(in("chiusa"));
    files_.replace(in("chiusa/a"), byte("uno"));
    files_.replace(in("segreto"), byte("uno"));
    fs::permissions(in("chiusa"), fs::perms(0555));
    fs::permissions(in("segreto"), fs::perms(0));
    // The administrator may do everything: as one, the test goes on as nobody.
    const bool amministratore = ::geteuid() == 0;
    if (amministratore) {
        fs::permissions(cartella_, fs::perms(0755));
        constexpr uid_t nessuno = 65534;
        ASSERT_EQ(::seteuid(nessuno), 0);
    }
    const auto scrittura = numeroDelFallimento([&] {
        files_.replace(in("chiusa/a"), byte("due"));
        return 0;
    });
    const auto lettura = numeroDelFallimento([&] { return files_.read(in("segreto")); });
    const auto rimozione = numeroDelFallimento([&] {
        files_.remove(in("chiusa/a"));
        return 0;
    });
    const auto letto = files_.read(in("chiusa/a"));
    if (amministratore) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    fs::permissions(in("chiusa"), fs::perms(0755));
    EXPECT_EQ(scrittura, errori::permessoNegato);
    EXPECT_EQ(lettura, errori::erroreDiPercorso);
    EXPECT_EQ(rimozione, errori::permessoNegato);
    EXPECT_EQ(letto, byte("uno"));
}

// A real write that fails half-way, by the limit on the size of files.
TEST_F(FilesTest, NoRoomLeavesTheOldBytesAndNothingBeside)
{
    files_.replace(in("a"), byte("uno"));
    rlimit prima{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &prima), 0);
    const auto segnale = std::signal(SIGXFSZ, SIG_IGN);
    rlimit stretto = prima;
    stretto.rlim_cur = 4096;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &stretto), 0);
    const auto numero = numeroDelFallimento([&] {
        files_.replace(in("a"), Bytes(100'000));
        return 0;
    });
    ::setrlimit(RLIMIT_FSIZE, &prima);
    std::signal(SIGXFSZ, segnale);
    EXPECT_EQ(numero, errori::discoPieno);
    EXPECT_EQ(files_.read(in("a")), byte("uno"));
    EXPECT_EQ(contenuto(), std::vector<std::string>{"a"});
}

TEST_F(FilesTest, RenamingReplacesAndRemovingForgets)
{
    files_.replace(in("a"), byte("uno"));
    files_.replace(in("b"), byte("due"));
    files_.rename(in("a"), in("b"));
    EXPECT_EQ(files_.read(in("b")), byte("uno"));
    files_.remove(in("b"));
    EXPECT_EQ(contenuto(), std::vector<std::string>());
}

}  // namespace
}  // namespace bravona
