#include "support/EventTable.h"

#include <gtest/gtest.h>

#include "support/journey/ProvaHost.h"

namespace bravona {
namespace {

TEST(EventTable, TheScriptedUserRaisesTheEventsInTheirOrder)
{
    for (const EventCase& one : eventTable()) {
        ProvaHost host;
        EXPECT_EQ(runEvents(host, one), one.events) << one.name;
    }
}

}  // namespace
}  // namespace bravona
