#include <gtest/gtest.h>

#include <QFontInfo>
#include <QFontMetricsF>
#include <QRawFont>

#include "platform/qt/PagePainter.h"
#include "platform/reports/Report.h"

namespace bravona {
namespace {

// At this size a unit of the face is a twip.
constexpr double size = 2048 / 20.0;

TEST(ReportFace, paintsEveryLetterAsWideAsTheCoreBelieves)
{
    for (const bool bold : {false, true}) {
        const QFont font = pagePainter::face(size, bold, false);
        ASSERT_EQ(QFontInfo(font).family(), "Liberation Sans");
        const QFontMetricsF metrics(font);
        const QRawFont raw = QRawFont::fromFont(font);
        int compared = 0;
        for (char32_t character = 0x20; character < 0x2300; ++character) {
            const bool control = character >= 0x7F && character < 0xA0;
            // The soft hyphen shows only at a line's end.
            if (control || character == 0xAD || !raw.supportsCharacter(character)) {
                continue;
            }
            const QString text = QString::fromUcs4(&character, 1);
            const int believed = textWidth(text.toStdString(), size, bold);
            // Beyond Latin what is not in the table gets room for any letter.
            if (character > 0x17F && believed == 2800) {
                EXPECT_LE(metrics.horizontalAdvance(text), believed) << std::hex << static_cast<int>(character);
                continue;
            }
            EXPECT_NEAR(metrics.horizontalAdvance(text), believed, 1) << std::hex << static_cast<int>(character);
            ++compared;
        }
        EXPECT_GT(compared, 350);
    }
}

TEST(ReportFace, addsUpWithoutKerning)
{
    const std::string text = "AVVERTENZA: To. Ta, «Via Po 1» € 1.234.567,89";
    for (const bool bold : {false, true}) {
        for (const double points : {6.5, 8.5, 15.0}) {
            const double painted =
                QFontMetricsF(pagePainter::face(points, bold, false)).horizontalAdvance(QString::fromStdString(text));
            EXPECT_NEAR(painted, textWidth(text, points, bold), 0.01 * painted) << points;
        }
    }
}

}  // namespace
}  // namespace bravona
