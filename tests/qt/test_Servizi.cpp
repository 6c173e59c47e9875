#include <QApplication>
#include <QFile>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>

#include "FormeDimostrative.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/QtSettings.h"
#include "platform/qt/Theme.h"
#include "platform/qt/WindowPlaces.h"
#include "platform/windowing/Layout.h"
#include "support/Fallimento.h"

namespace bravona {
namespace {

QByteArray contenuto(const QString& percorso)
{
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(Impostazioni, ValgonoAncheDopoERestanoTesti)
{
    const QTemporaryDir cartella;
    const QString file = cartella.filePath(QStringLiteral("BV2004.conf"));
    const std::vector<std::pair<std::string, std::string>> valori{{"Anno Riferimento", "2004"},
                                                                  {"PercorsoDB", "/tmp/a, b;c/d\\e.mdb"},
                                                                  {"Vuoto", ""},
                                                                  {"Accenti", "perché €"},
                                                                  {"Numero", "0012"},
                                                                  {"Virgolette", "\"x\" 'y'"}};
    {
        QtSettings scritte(file);
        for (const auto& [chiave, valore] : valori) {
            scritte.save("Impostazioni", chiave, valore);
        }
    }
    const QtSettings lette(file);
    for (const auto& [chiave, valore] : valori) {
        EXPECT_EQ(lette.find("Impostazioni", chiave), valore) << chiave;
    }
    EXPECT_EQ(lette.find("Impostazioni", "Mai"), std::nullopt);
    EXPECT_EQ(lette.get("Documenti", "Ombreggiatura", "1"), "1");
    EXPECT_EQ(lette.find("Documenti", "Ombreggiatura"), std::nullopt);  // a read makes no key
}

TEST(Impostazioni, UnBloccoRimastoVuotoNonFermaLAvvio)
{
    const QTemporaryDir cartella;
    const QString file = cartella.filePath(QStringLiteral("BV2004.conf"));
    const auto lascia = [&file] {
        QFile resto(file + QStringLiteral(".lock"));
        EXPECT_TRUE(resto.open(QIODevice::WriteOnly));
    };
    lascia();
    QtSettings impostazioni(file);
    impostazioni.save("Impostazioni", "Anno Riferimento", "2004");
    lascia();
    impostazioni.save("Impostazioni", "Anno Riferimento", "2005");
    EXPECT_EQ(QtSettings(file).get("Impostazioni", "Anno Riferimento"), "2005");
}

TEST(PostiDelleFinestre, SiRitrovanoDaUnAvvioAllAltro)
{
    const QTemporaryDir cartella;
    const QString file = cartella.filePath(QStringLiteral("BV2004.conf"));
    {
        QtSettings impostazioni(file);
        WindowPlaces posti(&impostazioni.store());
        posti.setPlace(QStringLiteral("frmX"), {QRect(10, 20, 300, 200), true});
        posti.setWidths(QStringLiteral("frmX.lvw"), {10, 200, 0});
        posti.setFolder(QStringLiteral("Documenti"), cartella.path());
        posti.setFolder(QStringLiteral("Sparita"), cartella.filePath(QStringLiteral("mai fatta")));
    }
    QtSettings impostazioni(file);
    const WindowPlaces posti(&impostazioni.store());
    ASSERT_TRUE(posti.place(QStringLiteral("frmX")).has_value());
    EXPECT_EQ(posti.place(QStringLiteral("frmX"))->rect, QRect(10, 20, 300, 200));
    EXPECT_TRUE(posti.place(QStringLiteral("frmX"))->maximised);
    EXPECT_EQ(posti.widths(QStringLiteral("frmX.lvw")), (std::vector<int>{10, 200, 0}));
    EXPECT_EQ(posti.folder(QStringLiteral("Documenti")), cartella.path());
    EXPECT_EQ(posti.folder(QStringLiteral("Sparita")), QString());
    EXPECT_EQ(posti.folder(QStringLiteral("Mai")), QString());
    impostazioni.store().setValue(QStringLiteral("Finestre/frmY"), QStringLiteral("1 2 guasto"));
    EXPECT_FALSE(posti.place(QStringLiteral("frmY")).has_value());
}

TEST(Pdf, HaUnaPaginaPerFoglioEStaInUnFile)
{
    QtDesktop desktop;
    const QTemporaryDir cartella;
    const QString file = cartella.filePath(QStringLiteral("Fattura 12.pdf"));
    desktop.exportPdf(paginaDimostrativa(), file.toStdString(), "Fattura 12");
    const QByteArray pdf = contenuto(file);
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_EQ(pdf.count("/Type /Page\n") + pdf.count("/Type /Page "), 2);
    EXPECT_TRUE(pdf.contains("LiberationSans"));
    EXPECT_NE(numeroDelFallimento([&] {
                  desktop.exportPdf(paginaDimostrativa(), (cartella.path() + "/manca/x.pdf").toStdString(), "x");
                  return 0;
              }),
              0U);
}

// Pages that take their time: the bar comes, and stopping it leaves no file.
TEST(Pdf, SiFermaAMetaSenzaLasciareUnFile)
{
    QtDesktop desktop;
    const QTemporaryDir cartella;
    const QString file = cartella.filePath(QStringLiteral("Listino.pdf"));
    std::size_t impaginate = 0;
    Pages pagine;
    pagine.pages = PageList(400, [&impaginate](std::size_t) {
        QThread::msleep(20);
        ++impaginate;
        return Page();
    });
    QTimer mano;
    QObject::connect(&mano, &QTimer::timeout, &mano, [] {
        for (QWidget* finestra : QApplication::topLevelWidgets()) {
            if (auto* barra = qobject_cast<QProgressDialog*>(finestra); barra != nullptr && barra->isVisible()) {
                barra->findChild<QPushButton*>()->click();
            }
        }
    });
    mano.start(10);
    EXPECT_EQ(numeroDelFallimento([&] {
                  desktop.exportPdf(pagine, file.toStdString(), "Listino");
                  return 0;
              }),
              interrotto);
    EXPECT_GT(impaginate, 0U);
    EXPECT_LT(impaginate, 400U);
    EXPECT_FALSE(QFile::exists(file));
}

class FormaConTimer final : public Form {
public:
    explicit FormaConTimer(Desktop& desktop) : Form(desktop, "frmTimer", "Timer", WindowStyle::splash)
    {
        timers.push_back(&Timer1);
        Timer1.onTimer = [this] {
            ++scatti;
            if (scatti == 3) {
                unload();
            }
        };
        Timer1.start(1000);
        setLayout(layout::column({}));
    }
    Timer Timer1;
    int scatti = 0;
};

TEST(Timer, ScattaFinoAllaChiusura)
{
    QtDesktop desktop;
    desktop.setTimerScale(0.005);
    auto& forma = static_cast<FormaConTimer&>(desktop.screens().adopt(std::make_unique<FormaConTimer>(desktop)));
    int scatti = 0;
    const auto conta = forma.Timer1.onTimer;
    forma.Timer1.onTimer = [&] {
        ++scatti;
        conta();
    };
    desktop.guard([&] { forma.show(); });
    QTest::qWait(200);
    EXPECT_EQ(scatti, 3);
    EXPECT_EQ(desktop.screens().loadedCount(), 0U);
}

TEST(Colori, ContrastanoAncheSulFondoScuro)
{
    for (const Colour colore : {colours::blue, colours::red, rgb(0, 128, 0), rgb(128, 0, 128), colours::black}) {
        const QColor scuro(0x1E, 0x1F, 0x22);
        EXPECT_GE(theme::contrast(theme::readable(colore, scuro), scuro), 4.5);
        EXPECT_EQ(fromQt(theme::readable(colore, Qt::white)), colore);  // exact on a light one
    }
}

TEST(Fine, UnaFinestraModaleNonTrattieneIlProcesso)
{
    QtDesktop desktop;
    desktop.setTimerScale(0.005);
    auto& forma = desktop.screens().adopt(std::make_unique<FormaControlli>(desktop));
    Timer fine;
    fine.onTimer = [&] { desktop.end(3); };
    fine.start(1000);
    forma.timers.push_back(&fine);
    desktop.guard([&] { forma.showModal(); });
    EXPECT_TRUE(desktop.ended());
    EXPECT_EQ(desktop.run(), 3);
    forma.timers.clear();
}

}  // namespace
}  // namespace bravona
