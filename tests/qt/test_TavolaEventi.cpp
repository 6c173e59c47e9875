#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "journey/QtJourneyHost.h"
#include "support/EventTable.h"
#include "support/journey/ProvaHost.h"

// The real windows raise the events that the scripted user raises, in the same order.

namespace bravona {
namespace {

class TavolaEventi : public testing::TestWithParam<EventCase> {};

TEST_P(TavolaEventi, IDueOspitiRaccontanoLoStesso)
{
    int argc = 0;
    QtJourneyHost finestre(argc, nullptr);
    ProvaHost prova;
    const std::string racconto = runEvents(finestre, GetParam());
    EXPECT_EQ(racconto, runEvents(prova, GetParam()));
    EXPECT_EQ(racconto, GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(Tavola, TavolaEventi, testing::ValuesIn(eventTable().begin(), eventTable().end()),
                         [](const auto& caso) {
                             std::string nome = caso.param.name;
                             std::replace_if(
                                 nome.begin(), nome.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
                             return nome;
                         });

}  // namespace
}  // namespace bravona
