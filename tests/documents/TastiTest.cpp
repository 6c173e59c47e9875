#include <gtest/gtest.h>

#include "support/ContaTasti.h"
#include "support/Percorsi.h"
#include "support/journey/FirmFiles.h"
#include "support/journey/JourneyRunner.h"
#include "support/journey/ProvaHost.h"

namespace bravona {
namespace {

// The keys that are counted are those that make the invoice: the journey may not get shorter by making less.
TEST(Keys, AnInvoiceOfFiveRowsTakesNoMoreOfThemThanEver)
{
    const auto journey = cartellaTest() / "journeys" / "documents" / "five_rows_by_keys.journey";
    std::string steps;
    ASSERT_TRUE(readText(journey, steps));
    steps += "\nexpect sql \"SELECT NumeroDettagli, TotaleDocumento, IDCliente FROM Fatture\" \"5|1536.0000|7\"";
    ProvaHost host;
    const JourneyResult result = JourneyRunner(host, {}).run("keys", parseJourney(steps, firmsFor(journey)));
    EXPECT_TRUE(result.passed) << result.line << ": " << result.reason;
    EXPECT_LE(contaTasti(journey), tastiFatturaCinqueRighe);
}

}  // namespace
}  // namespace bravona
