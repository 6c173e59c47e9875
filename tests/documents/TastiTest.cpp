#include <gtest/gtest.h>

#include "support/ContaTasti.h"
#include "support/Percorsi.h"

namespace bravona {
namespace {

TEST(Keys, AnInvoiceOfFiveRowsTakesNoMoreOfThemThanEver)
{
    EXPECT_EQ(contaTasti(cartellaTest() / "journeys" / "documents" / "five_rows_by_keys.journey"),
              tastiFatturaCinqueRighe);
}

}  // namespace
}  // namespace bravona
