#include <filesystem>
#include <fstream>

#include "platform/text/Text.h"
#include "support/journey/JourneyRunner.h"

// The steps that set up the world around the program and the person's answers.

namespace bravona {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t failureOfTheStore = 3035;

long long number(const Word& word)
{
    return *parseWhole(word.text);
}

void writeFile(const fs::path& path, const std::string& bytes)
{
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << bytes;
    if (!file.flush()) {
        throw Impossible("the file cannot be written: " + path.string());
    }
}

}  // namespace

void JourneyRunner::folder(const Step& step)
{
    if (session_->started()) {
        throw Impossible("the program has been started already");
    }
    session_->folder.fill(step.words[1].text == "bare" ? Delivery::bare : Delivery::delivered);
}

void JourneyRunner::today(const Step& step)
{
    session_->clock.set(*Date::parse(step.words[1].text));
}

void JourneyRunner::setting(const Step& step)
{
    session_->settings.save(step.words[1].text, step.words[2].text, step.words[3].text);
}

void JourneyRunner::year(const Step& step)
{
    session_->withArchive(
        [&](Connection& cn) { cn.execute("INSERT INTO Archivi (AnnoArchivio) VALUES (" + step.words[1].text + ")"); });
    session_->settings.save("Impostazioni", "Anno Riferimento", step.words[1].text);
}

void JourneyRunner::sql(const Step& step)
{
    session_->withArchive([&](Connection& cn) { cn.execute(step.words[1].text); });
}

void JourneyRunner::copy(const Step& step)
{
    const fs::path to = session_->folder.resolve(step.words[2].text);
    fs::create_directories(to.parent_path());
    fs::copy_file(session_->folder.resolve(step.words[1].text), to, fs::copy_options::overwrite_existing);
}

void JourneyRunner::write(const Step& step)
{
    writeFile(session_->folder.resolve(step.words[1].text), step.words[2].text);
}

void JourneyRunner::bytes(const Step& step)
{
    std::string content;
    const std::string digits = step.words.size() > 2 ? step.words[2].text : std::string();
    for (std::size_t at = 0; at + 1 < digits.size(); at += 2) {
        content += static_cast<char>(std::stoi(digits.substr(at, 2), nullptr, 16));
    }
    writeFile(session_->folder.resolve(step.words[1].text), content);
}

void JourneyRunner::start(const Step&)
{
    session_->start();
}

void JourneyRunner::answer(const Step& step)
{
    const std::string name = lower(step.words[1].text);
    session_->transcript.answers.push_back(name == "ok"       ? MsgAnswer::ok
                                           : name == "cancel" ? MsgAnswer::cancel
                                           : name == "yes"    ? MsgAnswer::yes
                                                              : MsgAnswer::no);
}

void JourneyRunner::file(const Step& step)
{
    const std::string& path = step.words[1].text;
    session_->transcript.files.push_back(path.empty() ? path : session_->folder.resolve(path).string());
}

void JourneyRunner::colour(const Step& step)
{
    session_->transcript.colours.push_back(
        step.words[1].is("cancel") ? std::nullopt : std::optional(static_cast<Colour>(number(step.words[1]))));
}

void JourneyRunner::wait(const Step& step)
{
    static_cast<void>(desktop());  // fails before the start
    host_.wait(static_cast<int>(number(step.words[1])));
}

void JourneyRunner::fault(const Step& step)
{
    if (step.words[1].is("file") && step.words[2].quoted) {
        session_->files.failNextWrite(session_->folder.resolve(step.words[2].text).string(),
                                      static_cast<std::uint32_t>(number(step.words[3])));
        return;
    }
    session_->failWrite(step.words[1].text, number(step.words[2]),
                        step.words.size() > 3 ? static_cast<std::uint32_t>(number(step.words[3])) : failureOfTheStore);
}

void JourneyRunner::boxes(const Step&)
{
    boxesFree_ = true;
}

void JourneyRunner::picture(const Step& step)
{
    static_cast<void>(desktop());  // fails before the start
    if (!options_.picturesAt.empty()) {
        fs::create_directories(options_.picturesAt);
        host_.picture((options_.picturesAt / (step.words[1].text + ".png")).string());
    }
}

}  // namespace bravona
