#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "platform/files/Files.h"
#include "platform/text/Text.h"
#include "platform/values/Errore.h"
#include "platform/windowing/Parts.h"

namespace bravona {

namespace {

namespace fs = std::filesystem;

struct Content {
    std::vector<std::string> folders;
    std::vector<std::string> files;
};

// Errore 71 for a place that is not there, 70 for one that may not be read. Hidden entries are left out.
Content readFolder(const std::string& path)
{
    std::error_code failure;
    if (!fs::is_directory(path, failure)) {
        throw Errore(errori::unitaNonPronta, "Unità non pronta: " + path);
    }
    fs::directory_iterator entries(path, failure);
    if (failure) {
        throw Errore(failure == std::errc::permission_denied ? errori::permessoNegato : errori::unitaNonPronta,
                     "Cartella non leggibile: " + path);
    }
    Content content;
    for (; entries != fs::directory_iterator(); entries.increment(failure)) {
        const std::string name = entries->path().filename().string();
        if (name.starts_with('.')) {
            continue;
        }
        std::error_code ignored;
        (entries->is_directory(ignored) ? content.folders : content.files).push_back(name);
        if (failure) {
            break;
        }
    }
    const auto byName = [](const std::string& a, const std::string& b) { return compareFolded(a, b) < 0; };
    std::sort(content.folders.begin(), content.folders.end(), byName);
    std::sort(content.files.begin(), content.files.end(), byName);
    return content;
}

std::string tidy(const std::string& path)
{
    std::string whole = fs::path(Files::native(path)).lexically_normal().string();
    while (whole.size() > 1 && whole.ends_with('/')) {
        whole.pop_back();
    }
    return whole;
}

// "*.bk" or "*.gif;*.jpg", case folded; "*" and "?" stand for any text and any character.
bool matches(std::string_view name, std::string_view pattern)
{
    if (pattern.empty()) {
        return name.empty();
    }
    if (pattern.front() == '*') {
        return matches(name, pattern.substr(1)) || (!name.empty() && matches(name.substr(1), pattern));
    }
    return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
           matches(name.substr(1), pattern.substr(1));
}

bool matchesAny(const std::string& name, const std::string& patterns)
{
    const std::string folded = lower(name);
    for (const std::string& pattern : split(patterns, ';')) {
        if (matches(folded, lower(trim(pattern)))) {
            return true;
        }
    }
    return false;
}

}  // namespace

void DriveList::refresh()
{
    drives_.clear();
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        drives_.push_back(tidy(home));
    }
    drives_.emplace_back("/");
    std::vector<std::string> roots{"/media", "/mnt"};
    if (const char* user = std::getenv("USER"); user != nullptr && *user != '\0') {
        roots.push_back(std::string("/media/") + user);
        roots.push_back(std::string("/run/media/") + user);
    }
    for (const std::string& root : roots) {
        std::error_code failure;
        for (fs::directory_iterator entries(root, failure); !failure && entries != fs::directory_iterator();
             entries.increment(failure)) {
            std::error_code ignored;
            if (entries->is_directory(ignored)) {
                drives_.push_back(entries->path().string());
            }
        }
    }
    notify(Aspect::items);
}

void DriveList::setDrive(const std::string& drive)
{
    const std::string place = tidy(drive);
    if (place == drive_) {
        return;
    }
    std::error_code failure;
    if (std::find(drives_.begin(), drives_.end(), place) == drives_.end() && !fs::is_directory(place, failure)) {
        throw Errore(errori::unitaNonPronta, "Unità non pronta: " + drive);
    }
    drive_ = place;
    notify(Aspect::selection);
    if (onChange) {
        onChange();
    }
}

void DriveList::userChoose(const std::string& drive)
{
    if (tidy(drive) != drive_) {
        setDrive(drive);
    } else if (onChange) {
        onChange();
    }
}

void DirList::setPath(const std::string& path)
{
    const std::string place = tidy(path);
    Content content = readFolder(place);
    const bool differs = place != path_;
    path_ = place;
    folders_ = std::move(content.folders);
    folders_.insert(folders_.begin(), "..");
    notify(Aspect::items);
    if (differs && onChange) {
        onChange();
    }
}

void DirList::userChoose(const std::string& path)
{
    const bool differs = tidy(path) != path_;
    setPath(path);  // read again in any case
    if (!differs && onChange) {
        onChange();
    }
}

void FileList::setPath(const std::string& path)
{
    const std::string place = tidy(path);
    Content content = readFolder(place);
    path_ = place;
    files_.clear();
    index_ = -1;
    for (std::string& file : content.files) {
        if (matchesAny(file, pattern)) {
            files_.push_back(std::move(file));
        }
    }
    notify(Aspect::items);
}

void FileList::setListIndex(int index)
{
    if (index < -1 || index >= static_cast<int>(files_.size())) {
        throw Errore(errori::indiceFuoriIntervallo, "Indice non compreso nell'intervallo");
    }
    if (index == index_) {
        return;
    }
    index_ = index;
    notify(Aspect::selection);
    if (onClick) {
        onClick();
    }
}

std::string FileList::fileName() const
{
    return index_ < 0 ? std::string() : files_[static_cast<std::size_t>(index_)];
}

}  // namespace bravona
