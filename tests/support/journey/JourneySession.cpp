#include "support/journey/JourneySession.h"

#include "platform/text/Text.h"
#include "schema/Schema.h"

namespace bravona {

JourneySession::JourneySession(JourneyHost& host, const std::filesystem::path& keptAt)
    : folder(keptAt),
      clock(*Date::fromYmd(2004, 1, 15)),
      host_(host)
{
    folder.fill(Delivery::bare);
}

JourneySession::~JourneySession()
{
    stop();
}

Desktop& JourneySession::desktop()
{
    if (desktop_ == nullptr) {
        throw Impossible("the program has not been started");
    }
    return *desktop_;
}

void JourneySession::start()
{
    if (started()) {
        throw Impossible("the program has been started already");
    }
    releaseArchive();
    desktop_ = &host_.open(transcript);
    programma_ = std::make_unique<Programma>(Ambiente{*desktop_, settings, clock, files, folder.path().string()});
    programma_->sessione().cn.setWriteHook([this](const std::string& table) { hook(table); });
    desktop_->guard([this] { programma_->avvia(); });
}

void JourneySession::stop()
{
    if (!started()) {
        return;
    }
    // The screens go before the session that they speak of.
    host_.close();
    desktop_ = nullptr;
    programma_.reset();
}

void JourneySession::withArchive(const std::function<void(Connection&)>& work)
{
    if (started() && programma_->sessione().cn.isOpen()) {
        releaseArchive();
        work(programma_->sessione().cn);
        return;
    }
    if (own_ == nullptr) {
        own_ = std::make_unique<Connection>();
        own_->open(folder.archive().string(), passwordArchivio);
    }
    work(*own_);
}

void JourneySession::releaseArchive()
{
    own_.reset();
}

void JourneySession::failWrite(const std::string& table, long long nth, std::uint32_t number)
{
    faults_.push_back({table, nth, number});
}

void JourneySession::hook(const std::string& table)
{
    for (Fault& fault : faults_) {
        if (fault.left > 0 && equalFolded(fault.table, table) && --fault.left == 0) {
            throw Errore(fault.number, "guasto di prova");
        }
    }
}

}  // namespace bravona
