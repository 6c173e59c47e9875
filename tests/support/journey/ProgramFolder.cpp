#include "support/journey/ProgramFolder.h"

#include <array>
#include <cstdlib>
#include <stdexcept>

#include "platform/files/Files.h"
#include "platform/store/Connection.h"
#include "schema/Schema.h"

namespace bravona {

namespace {

namespace fs = std::filesystem;

fs::path temporaryFolder()
{
    std::string pattern = (fs::temp_directory_path() / "bravona-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder can be made");
    }
    return pattern;
}

// Archives made once, to be copied; they go when the process ends.
class Templates {
public:
    ~Templates()
    {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    const fs::path& get(Delivery delivery)
    {
        if (folder_.empty()) {
            folder_ = temporaryFolder();
        }
        fs::path& made = made_[delivery == Delivery::bare ? 0 : 1];
        if (made.empty()) {
            const fs::path path = folder_ / (delivery == Delivery::bare ? "bare.mdb" : "delivered.mdb");
            Connection cn;
            cn.create(path.string(), passwordArchivio);
            creaSchema(cn);
            if (delivery == Delivery::bare) {
                semiMinimi(cn);
            } else {
                semiConsegna(cn);
            }
            cn.close();
            made = path;
        }
        return made;
    }

private:
    fs::path folder_;
    std::array<fs::path, 2> made_;
};

}  // namespace

ProgramFolder::ProgramFolder(const fs::path& keptAt) : path_(keptAt), kept_(!keptAt.empty())
{
    if (!kept_) {
        path_ = temporaryFolder();
    }
    fs::create_directories(path_);
    path_ = fs::canonical(path_);
}

ProgramFolder::~ProgramFolder()
{
    if (!kept_) {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
}

void ProgramFolder::fill(Delivery delivery)
{
    static Templates templates;
    for (const auto& entry : fs::directory_iterator(path_)) {
        fs::remove_all(entry.path());
    }
    fs::create_directories(path_ / "Database");
    fs::copy_file(templates.get(delivery), archive());
    fs::create_symlink(fs::path("Database") / "DBBVEURO.mdb", path_ / "dbbveuro.mdb");
}

fs::path ProgramFolder::resolve(const std::string& path) const
{
    const fs::path native = Files::native(path);
    return native.is_absolute() ? native : path_ / native;
}

}  // namespace bravona
