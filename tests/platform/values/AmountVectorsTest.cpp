#include <gtest/gtest.h>

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "support/Vettori.h"

namespace bravona {
namespace {

using Json = nlohmann::json;

TEST(AmountVectors, DoublesBecomeCurrencyByHalvesToEven)
{
    for (const Json& caso : casi("amounts.json", "currency_from_double")) {
        const auto atteso = caso["ten_thousandths"].get<std::int64_t>();
        EXPECT_EQ(Currency::fromDouble(caso["double"].get<double>()).tenThousandths(), atteso) << caso;
    }
}

TEST(AmountVectors, TwoDecimalsRoundHalvesAwayFromZero)
{
    for (const Json& caso : casi("amounts.json", "two_decimals")) {
        const auto testo = caso["text"].get<std::string>();
        const auto importo = caso["amount_text"].get<std::string>();
        if (caso.contains("double")) {
            const double valore = caso["double"].get<double>();
            EXPECT_EQ(twoDecimals(valore), testo) << caso;
            EXPECT_EQ(format(valore, "#,##0.00"), testo) << caso;
            EXPECT_EQ(FormattaImporto(valore), importo) << caso;
        } else {
            const auto valore = Currency::fromTenThousandths(caso["ten_thousandths"].get<std::int64_t>());
            EXPECT_EQ(twoDecimals(valore), testo) << caso;
            EXPECT_EQ(format(valore, "###,###,##0.00"), testo) << caso;
            EXPECT_EQ(FormattaImporto(valore), importo) << caso;
        }
        EXPECT_EQ(FormattaImporto(importo), importo) << "an amount text is stable";
    }
}

TEST(AmountVectors, TypedTextsBecomeAmountTexts)
{
    for (const Json& caso : casi("amounts.json", "FormattaImporto")) {
        const auto ingresso = caso["input"].get<std::string>();
        EXPECT_EQ(FormattaImporto(ingresso), caso["text"].get<std::string>()) << caso;
        EXPECT_EQ(FormattaImporto(Value(ingresso)), caso["text"].get<std::string>()) << caso;
    }
}

TEST(AmountVectors, AmountTextsAreRead)
{
    for (const Json& caso : casi("amounts.json", "parse_amount")) {
        const auto letto = parseAmount(caso["input"].get<std::string>());
        ASSERT_EQ(letto.has_value(), !caso["ten_thousandths"].is_null()) << caso;
        if (letto) {
            EXPECT_EQ(letto->tenThousandths(), caso["ten_thousandths"].get<std::int64_t>()) << caso;
        }
    }
}

TEST(AmountVectors, LeadingNumbersAreRead)
{
    for (const Json& caso : casi("amounts.json", "leading_number")) {
        EXPECT_EQ(leadingNumber(caso["input"].get<std::string>()), caso["double"].get<double>()) << caso;
    }
}

TEST(AmountVectors, TextsAreAlignedByCharactersNotBytes)
{
    for (const char* routine : {"AllineaSinistra", "AllineaDestra"}) {
        for (const Json& caso : casi("amounts.json", routine)) {
            const auto allinea = routine == std::string_view("AllineaSinistra") ? AllineaSinistra : AllineaDestra;
            EXPECT_EQ(allinea(caso["input"].get<std::string>(), caso["length"].get<std::size_t>(),
                              caso["char"].get<std::string>().front()),
                      caso["text"].get<std::string>())
                << caso;
        }
    }
}

}  // namespace
}  // namespace bravona
