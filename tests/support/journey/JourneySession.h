#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/clock/Clock.h"
#include "platform/files/Files.h"
#include "platform/settings/Settings.h"
#include "program/Programma.h"
#include "support/journey/JourneyHost.h"
#include "support/journey/ProgramFolder.h"

namespace bravona {

// What one journey has to itself: program folder, settings, clock, and the program once it was started.
class JourneySession {
public:
    JourneySession(JourneyHost& host, const std::filesystem::path& keptAt);
    ~JourneySession();
    JourneySession(const JourneySession&) = delete;
    JourneySession& operator=(const JourneySession&) = delete;

    void start();  // returns when the program waits for the person, or has ended
    void stop();   // where it stands, without any closing step
    [[nodiscard]] bool started() const { return desktop_ != nullptr; }
    [[nodiscard]] Desktop& desktop();

    // Runs on the archive that the program has open, before the start (and after the end) on the one of the folder.
    void withArchive(const std::function<void(Connection&)>& work);
    // Nothing of this object's has the archive's file open; the program may.
    void releaseArchive();
    // The Nth write to the table from here on fails with that number.
    void failWrite(const std::string& table, long long nth, std::uint32_t number);

    ProgramFolder folder;
    MemorySettings settings;
    FixedClock clock;
    Files files;
    Transcript transcript;

private:
    struct Fault {
        std::string table;
        long long left;
        std::uint32_t number;
    };
    void hook(const std::string& table);

    JourneyHost& host_;
    Desktop* desktop_ = nullptr;
    std::unique_ptr<Programma> programma_;
    std::unique_ptr<Connection> own_;  // while the program has none open: opening an archive takes its time
    std::vector<Fault> faults_;
};

}  // namespace bravona
