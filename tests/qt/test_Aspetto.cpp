#include <QLabel>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>
#include <memory>

#include "FormeDimostrative.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/WindowPlaces.h"

// How windows look: their place, what is drawn for a record.

namespace bravona {
namespace {

template <class Forma>
Forma& apri(QtDesktop& desktop)
{
    auto& forma = static_cast<Forma&>(desktop.screens().adopt(std::make_unique<Forma>(desktop)));
    forma.show();
    QTest::qWait(10);
    return forma;
}

TEST(Aspetto, UnaPrincipaleIngranditaAlPrimoUsoSiRitrovaCosi)
{
    const QTemporaryDir cartella;
    QSettings impostazioni(cartella.filePath(QStringLiteral("BV2004.conf")), QSettings::IniFormat);
    QSize prima;
    {
        QtDesktop desktop(&impostazioni);
        auto& principale = apri<FormaPrincipale>(desktop);
        prima = desktop.windowOf(principale)->shell()->size();
        desktop.windowOf(principale)->shell()->showMaximized();
        QTest::qWait(10);
        principale.unload();
    }
    QtDesktop desktop(&impostazioni);
    QWidget& finestra = *desktop.windowOf(apri<FormaPrincipale>(desktop))->shell();
    EXPECT_TRUE(finestra.isMaximized());
    finestra.showNormal();
    QTest::qWait(10);
    EXPECT_EQ(finestra.size(), prima);
}

TEST(Aspetto, UnaColonnaDiImportiHaUnaFormaSola)
{
    QtDesktop desktop;
    apri<FormaPrincipale>(desktop);
    auto& forma = apri<FormaDocumento>(desktop);
    ListView& lista = forma.lvwDettagli;
    lista.clear();
    lista.setColumns({{"Codice", "", 1300}, {"Q.", "", 900}, {"Prezzo", "", 1300, Align::right, true}});
    const std::string enorme(20, '9');  // more than an amount holds
    struct Caso {
        std::string scritto;
        std::string disegnato;
    };
    const std::vector<Caso> casi{{"30,00", "€ 30,00"},
                                 {"€ 3,00", "€ 3,00"},
                                 {"1234,5", "€ 1.234,50"},
                                 {"0", "€ 0,00"},
                                 {"-2", "-€ 2,00"},
                                 {"-", "-"},
                                 {"", ""},
                                 {enorme, enorme}};
    for (const Caso& caso : casi) {
        ListRow riga;
        riga.text = "A1";
        riga.sub = {{"3", {}}, {caso.scritto, {}}};
        lista.add(riga);
    }
    const QAbstractItemModel& modello = *static_cast<QTreeView&>(*desktop.widgetOf(lista)).model();
    for (int i = 0; i < static_cast<int>(casi.size()); ++i) {
        const Caso& caso = casi[static_cast<std::size_t>(i)];
        EXPECT_EQ(modello.index(i, 2).data().toString().toStdString(), caso.disegnato);
        EXPECT_EQ(modello.index(i, 1).data().toString(), QStringLiteral("3"));
        EXPECT_EQ(lista.row(static_cast<std::size_t>(i)).cell(2), caso.scritto);
    }
}

}  // namespace
}  // namespace bravona
