#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>
#include <memory>

#include "FormeDimostrative.h"
#include "platform/qt/Binder.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Shells.h"

// Keys and clicks on the real widgets: what reaches the records, in which order.

namespace bravona {
namespace {

class Gesti : public testing::Test {
protected:
    void SetUp() override
    {
        principale = &apri<FormaPrincipale>();
        controlli = &apri<FormaControlli>();
        QTest::qWait(10);
    }

    template <class Forma>
    Forma& apri()
    {
        auto& forma = static_cast<Forma&>(desktop.screens().adopt(std::make_unique<Forma>(desktop)));
        forma.show();
        return forma;
    }
    QWidget& widget(const Control& control) { return *desktop.widgetOf(control); }
    static QWidget& fuoco() { return *QApplication::focusWidget(); }
    void clic(const Control& control)
    {
        QWidget& w = widget(control);
        QTest::mouseClick(&w, Qt::LeftButton, {}, QPoint(8, w.height() / 2));
    }
    void segna(Control& control, const std::string& nome)
    {
        control.onGotFocus = [this, nome] { registro += nome + "+ "; };
        control.onLostFocus = [this, nome] { registro += nome + "- "; };
        control.onClick = [this, nome] { registro += nome + "! "; };
    }

    QtDesktop desktop;
    FormaPrincipale* principale = nullptr;
    FormaControlli* controlli = nullptr;
    std::string registro;
};

TEST_F(Gesti, IlTestoDigitatoArrivaAlCampoEPassaDaiFiltri)
{
    controlli->txtLinea.onKeyPress = [](char32_t& c) { c = c == U'x' ? 0 : c == U'a' ? U'A' : c; };
    controlli->txtLinea.setFocus();
    QTest::keyClicks(&fuoco(), QStringLiteral("axb"));
    EXPECT_EQ(controlli->txtLinea.text(), "Ab");  // over the selected old text
    EXPECT_EQ(static_cast<QLineEdit&>(widget(controlli->txtLinea)).text(), QStringLiteral("Ab"));
    EXPECT_EQ(controlli->txtLinea.selStart(), 2U);
}

TEST_F(Gesti, QuelCheStaInUnaCorniceDisabilitataSiLeggeESiCopia)
{
    auto& documento = apri<FormaDocumento>();
    documento.txtCliente[0].setText("Rossi");
    documento.cmdDocumento[0].setFocus();
    documento.fraCliente.setEnabled(false);
    documento.txtCliente[0].setText("Rossi e figli");
    auto& campo = static_cast<QLineEdit&>(widget(documento.txtCliente[0]));
    const QColor testo = campo.palette().color(QPalette::Active, QPalette::Text);
    EXPECT_TRUE(campo.isEnabled());
    EXPECT_TRUE(campo.isReadOnly());
    EXPECT_FALSE(campo.hasFrame());
    EXPECT_EQ(testo, campo.palette().color(QPalette::Active, QPalette::WindowText));
    EXPECT_FALSE(widget(documento.cmdClear).isEnabled());

    QTest::mouseDClick(&campo, Qt::LeftButton, {}, QPoint(6, campo.height() / 2));
    EXPECT_EQ(campo.selectedText().trimmed(), QStringLiteral("Rossi"));
    EXPECT_TRUE(documento.cmdDocumento[0].hasFocus()) << "what is read has not the keyboard";
    QTest::keyClick(&fuoco(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text().trimmed(), QStringLiteral("Rossi"));
    QTest::keyClicks(&campo, QStringLiteral("x"));
    EXPECT_EQ(documento.txtCliente[0].text(), "Rossi e figli");

    documento.fraCliente.setEnabled(true);
    EXPECT_FALSE(campo.isReadOnly());
    EXPECT_TRUE(widget(documento.cmdClear).isEnabled());
    clic(documento.txtCliente[0]);
    EXPECT_TRUE(documento.txtCliente[0].hasFocus());
}

TEST_F(Gesti, ITastiDelTastierinoScrivonoLaVirgola)
{
    controlli->txtCifre.setFocus();
    QTest::keyClicks(&fuoco(), QStringLiteral("12"));
    QTest::sendKeyEvent(QTest::Click, &fuoco(), Qt::Key_Period, QStringLiteral("."), Qt::KeypadModifier);
    QTest::keyClicks(&fuoco(), QStringLiteral("5"));
    EXPECT_EQ(controlli->txtCifre.text(), "12,5");
}

TEST_F(Gesti, IlTestoIncollatoPassaDaiFiltriELaRigaDiventaUnoSpazio)
{
    controlli->txtLinea.onKeyPress = [](char32_t& c) { c = c == U'9' ? 0 : c; };
    controlli->txtLinea.setFocus();
    QApplication::clipboard()->setText(QStringLiteral("uno\ndue9"));
    QTest::keyClick(&fuoco(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(controlli->txtLinea.text(), "uno due");
}

TEST_F(Gesti, IlCampoSiLasciaPrimaDelComando)
{
    segna(controlli->txtLinea, "linea");
    segna(controlli->cmdPredefinito, "ok");
    controlli->txtLinea.setFocus();
    registro.clear();
    clic(controlli->cmdPredefinito);
    EXPECT_EQ(registro, "linea- ok+ ok! ");

    controlli->txtLinea.setFocus();
    registro.clear();
    QTest::keyClick(&fuoco(), Qt::Key_Return);  // the default button
    EXPECT_EQ(registro, "linea- ok! linea+ ");

    registro.clear();
    QTest::keyClick(&fuoco(), Qt::Key_O, Qt::AltModifier);
    EXPECT_EQ(registro.substr(0, 7), "linea- ");
    EXPECT_NE(registro.find("ok! "), std::string::npos);

    controlli->txtLinea.setFocus();
    registro.clear();
    auto& barra = *static_cast<MainShell*>(desktop.mainShell())->menuBar();
    barra.actions().constLast()->menu()->actions().constFirst()->trigger();
    EXPECT_EQ(registro, "linea- linea+ ");
    EXPECT_EQ(principale->scelta, "mnuNuovo");
}

TEST_F(Gesti, UnCampoCheRifiutaTieneIlFuoco)
{
    controlli->txtLinea.setFocus();
    controlli->txtLinea.onLostFocus = [this] { controlli->txtLinea.setFocus(); };
    segna(controlli->cmdPredefinito, "ok");
    clic(controlli->cmdPredefinito);
    QTest::qWait(5);
    EXPECT_EQ(controlli->focusedControl(), &controlli->txtLinea);
    EXPECT_EQ(QApplication::focusWidget(), &widget(controlli->txtLinea));
    EXPECT_EQ(registro, "");
    controlli->txtLinea.onLostFocus = {};
}

TEST_F(Gesti, LeScorciatoieDelMenuValgonoOvunque)
{
    controlli->txtLinea.setFocus();
    QTest::keyClick(&fuoco(), Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(principale->scelta, "mnuNuovo");
}

TEST_F(Gesti, LeVociSenzaLetteraNeHannoUnaLibera)
{
    const auto voci = [](const QMenu& menu) {
        QStringList testi;
        for (const QAction* voce : menu.actions()) {
            if (!voce->isSeparator())
                testi << voce->text();
        }
        return fromQt(testi.join(QLatin1Char('|')));
    };
    const auto* shell = static_cast<MainShell*>(desktop.windowOf(*principale)->shell());
    const QMenu& file = *shell->menuBar()->actions().front()->menu();
    EXPECT_EQ(voci(file), "&Apri archivio|&Tabelle|&Esci");
    EXPECT_EQ(voci(*file.actions()[1]->menu()), "&Gestione Comuni|G&ruppi|&Note documenti");
}

TEST_F(Gesti, NienteSiVedeFuoriDalleFinestre)
{
    int visibili = 0;
    for (const QWidget* finestra : QApplication::topLevelWidgets())
        visibili += finestra->isVisible() ? 1 : 0;
    EXPECT_EQ(visibili, 1);  // the main window, and in it the child
}

TEST_F(Gesti, TabSegueIlDisegno)
{
    controlli->txtLinea.setFocus();
    QTest::keyClick(&fuoco(), Qt::Key_Tab);  // past the read-only and the disabled one
    EXPECT_EQ(controlli->focusedControl(), &controlli->txtCifre);
    EXPECT_EQ(QApplication::focusWidget(), &widget(controlli->txtCifre));
    // A mark that the style draws only where it believes that keys are in use.
    EXPECT_TRUE(fuoco().window()->testAttribute(Qt::WA_KeyboardFocusChange));
    QTest::keyClick(&fuoco(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(controlli->focusedControl(), &controlli->txtLinea);
    EXPECT_EQ(controlli->txtLinea.selLength(), 5U);
}

TEST_F(Gesti, LaLetteraDellEtichettaPortaNelCampo)
{
    controlli->cmbFisso.setFocus();
    QTest::keyClick(&fuoco(), Qt::Key_I, Qt::AltModifier);
    EXPECT_EQ(controlli->focusedControl(), &controlli->txtCifre);
    EXPECT_EQ(controlli->txtCifre.backColour(), colours::focusYellow);
    EXPECT_EQ(widget(controlli->txtCifre).palette().color(QPalette::Base), QColor(255, 255, 192));
}

TEST_F(Gesti, CasellaEOpzioniSeguonoLaMano)
{
    clic(controlli->chkAttivo);
    EXPECT_FALSE(controlli->chkAttivo.checked());
    clic(controlli->optUno);
    EXPECT_TRUE(controlli->optUno.chosen());
    EXPECT_FALSE(controlli->optDue.chosen());
    QTest::keyClick(&fuoco(), Qt::Key_Down);
    EXPECT_TRUE(controlli->optDue.chosen());
}

TEST_F(Gesti, LaListaSiSceglieSpuntaEOrdina)
{
    auto& vista = static_cast<QTreeView&>(widget(controlli->lvwElenco));
    std::vector<std::size_t> scelte;
    controlli->lvwElenco.onItemClick = [&](std::size_t riga) { scelte.push_back(riga); };
    const QRect cella = vista.visualRect(vista.model()->index(1, 1));
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, cella.center());
    EXPECT_EQ(controlli->lvwElenco.selected(), 1U);
    QTest::keyClick(&fuoco(), Qt::Key_Down);
    EXPECT_EQ(controlli->lvwElenco.selected(), 2U);
    EXPECT_EQ(scelte, (std::vector<std::size_t>{1, 2}));  // once each
    QTest::keyClick(&fuoco(), Qt::Key_Space);
    EXPECT_TRUE(controlli->lvwElenco.row(2).checked);
    QTest::keyClicks(&fuoco(), QStringLiteral("b"));
    EXPECT_EQ(controlli->lvwElenco.selected(), 1U);
    QHeaderView* testata = vista.header();
    QTest::mouseClick(testata->viewport(), Qt::LeftButton, {}, QPoint(testata->sectionViewportPosition(2) + 12, 6));
    EXPECT_EQ(controlli->lvwElenco.row(0).text, "Verdi");  // 9,90 before 240 before 1.050
    EXPECT_EQ(controlli->lvwElenco.row(2).text, "Bianchi");
    EXPECT_EQ(vista.currentIndex().row(), 2);  // the selection has followed its row
}

TEST_F(Gesti, LaTabellaLegataSiModificaEAggiungeRighe)
{
    auto& griglia = controlli->grdTabella;
    auto& vista = static_cast<QTableView&>(widget(griglia));
    const QRect cella = vista.visualRect(vista.model()->index(1, 1));
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, cella.center());
    QTest::keyClicks(&fuoco(), QStringLiteral("Nuova"));
    EXPECT_TRUE(griglia.editing());
    QTest::keyClick(&fuoco(), Qt::Key_Return);
    EXPECT_EQ(griglia.cellText(1, 1), "Nuova");
    QTest::keyClicks(&fuoco(), QStringLiteral("Altra"));
    QTest::keyClick(&fuoco(), Qt::Key_Escape);
    EXPECT_EQ(griglia.cellText(1, 1), "Nuova");
    const std::size_t prima = griglia.dataRows();
    for (std::size_t i = griglia.row(); i < prima; ++i) {
        QTest::keyClick(&fuoco(), Qt::Key_Down);
    }
    QTest::keyClicks(&fuoco(), QStringLiteral("Z"));
    QTest::keyClick(&fuoco(), Qt::Key_Up);  // leaves the row: it is kept
    EXPECT_EQ(griglia.dataRows(), prima + 1);
    EXPECT_EQ(griglia.cellText(prima, 1), "Z");
    std::size_t premuto = 99;
    griglia.onButtonClick = [&](std::size_t colonna) { premuto = colonna; };
    const QRect conPulsante = vista.visualRect(vista.model()->index(0, 2));
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, QPoint(conPulsante.right() - 4, conPulsante.center().y()));
    EXPECT_EQ(premuto, 2U);
    QTest::mouseClick(vista.verticalHeader()->viewport(), Qt::LeftButton, {},
                      QPoint(4, vista.verticalHeader()->sectionViewportPosition(1) + 4));
    QTest::keyClick(&fuoco(), Qt::Key_Delete);
    EXPECT_EQ(griglia.dataRows(), prima);
}

TEST_F(Gesti, LaTabellaLegataSiUsaConISoliTasti)
{
    auto& griglia = controlli->grdTabella;
    auto& vista = static_cast<QTableView&>(widget(griglia));
    griglia.setFocus();
    QTest::keyClick(&fuoco(), Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&fuoco(), Qt::Key_F2);
    auto* editor = qobject_cast<QLineEdit*>(&fuoco());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->selectedText().toStdString(), griglia.cellText(0, 0));
    QTest::keyClick(&fuoco(), Qt::Key_Right);  // only drops the selection
    EXPECT_EQ(griglia.col(), 0U);
    QTest::keyClick(&fuoco(), Qt::Key_Right);
    EXPECT_EQ(griglia.col(), 1U);
    EXPECT_FALSE(griglia.editing());

    QTest::keyClick(&fuoco(), Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(vista.selectionModel()->selectedIndexes().size(), 3);  // the row is seen to be chosen
    QTest::keyClick(&fuoco(), Qt::Key_Down);
    EXPECT_EQ(vista.selectionModel()->selectedIndexes().size(), 1);
    const std::size_t prima = griglia.dataRows();
    QTest::keyClick(&fuoco(), Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(griglia.dataRows(), prima - 1);

    QTest::keyClick(&fuoco(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(griglia.row(), griglia.dataRows());
    QTest::keyClicks(&fuoco(), QStringLiteral("X"));
    QTest::keyClick(&fuoco(), Qt::Key_Tab);
    QTest::keyClick(&fuoco(), Qt::Key_Tab);  // the last cell of a changed row: on to the next one
    EXPECT_EQ(griglia.row(), prima);
    EXPECT_EQ(griglia.col(), 0U);
    EXPECT_EQ(vista.currentIndex(), vista.model()->index(static_cast<int>(prima), 0));
    EXPECT_TRUE(griglia.hasFocus());

    int premuto = 0;
    griglia.onButtonClick = [&](std::size_t) { ++premuto; };
    const QRect cella = vista.visualRect(vista.model()->index(0, 2));
    const QPoint pulsante(cella.right() - 4, cella.center().y());
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, pulsante);
    QTest::mouseDClick(vista.viewport(), Qt::LeftButton, {}, pulsante);  // two quick clicks are two
    QTest::keyClick(&fuoco(), Qt::Key_Return);
    EXPECT_EQ(premuto, 3);
}

TEST_F(Gesti, UnaGrigliaBloccataSiPercorreESiVedeBloccata)
{
    auto& documento = apri<FormaDocumento>();
    documento.SSTabDocumento.setTab(3);
    documento.Griglia.setCurrent(1, 1);
    documento.Griglia.setLocked(true);
    documento.Griglia.setFocus();
    QTest::keyClick(&fuoco(), Qt::Key_Down);
    QTest::keyClick(&fuoco(), Qt::Key_Right);
    EXPECT_TRUE(documento.Griglia.hasFocus());
    EXPECT_EQ(documento.Griglia.row(), 2);
    EXPECT_EQ(documento.Griglia.col(), 2);
    const QWidget& vista = widget(documento.Griglia);
    EXPECT_EQ(vista.palette().color(QPalette::Base), vista.palette().color(QPalette::Window));
    documento.Griglia.setLocked(false);
    EXPECT_NE(vista.palette().color(QPalette::Base), vista.palette().color(QPalette::Window));
}

TEST_F(Gesti, LEditorSopraLaCellaStaDoveLaCella)
{
    auto& documento = apri<FormaDocumento>();
    documento.SSTabDocumento.setTab(3);
    QTest::qWait(10);
    documento.Griglia.setFocus();
    auto& vista = static_cast<QTableView&>(widget(documento.Griglia));
    char32_t digitato = 0;
    documento.Griglia.onKeyPress = [&](char32_t& c) {
        digitato = c;
        documento.Griglia.placeOver(documento.casella[0], documento.Griglia.row(), documento.Griglia.col());
        documento.casella[0].setVisible(true);
        documento.casella[0].setText(std::string(1, static_cast<char>(c)));
        documento.casella[0].setFocus();
        documento.casella[0].select(1, 0);
        c = 0;
    };
    QTest::mouseClick(vista.viewport(), Qt::LeftButton, {}, vista.visualRect(vista.model()->index(1, 2)).center());
    EXPECT_EQ(documento.Griglia.row(), 2);
    EXPECT_EQ(documento.Griglia.col(), 2);
    QTest::keyClicks(&fuoco(), QStringLiteral("7"));
    EXPECT_EQ(digitato, U'7');
    EXPECT_EQ(widget(documento.casella[0]).geometry(), vista.visualRect(vista.model()->index(1, 2)));
    QTest::keyClicks(&fuoco(), QStringLiteral("5"));
    EXPECT_EQ(documento.casella[0].text(), "75");
}

TEST_F(Gesti, LaDataSiScriveSenzaSeparatori)
{
    controlli->dtpData.setFocus();
    QTest::keyClicks(&fuoco(), QStringLiteral("28022005"));
    QTest::keyClick(&fuoco(), Qt::Key_Tab);
    EXPECT_EQ(controlli->dtpData.date().text(), "28/02/2005");
    EXPECT_EQ(widget(controlli->dtpData).findChild<QLineEdit*>()->text(), QStringLiteral("28/02/2005"));
}

TEST_F(Gesti, UnTestoEstraneoDelComboSiVedeESiTiene)
{
    auto& combo = static_cast<QComboBox&>(widget(controlli->cmbEstraneo));
    EXPECT_EQ(combo.currentIndex(), -1);
    controlli->cmbEstraneo.setFocus();
    QTest::keyClick(&fuoco(), Qt::Key_Tab);
    EXPECT_EQ(controlli->cmbEstraneo.text(), "Non in elenco");
    controlli->cmbLibero.setFocus();
    QTest::keyClick(&fuoco(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&fuoco(), QStringLiteral("Kg"));
    EXPECT_EQ(controlli->cmbLibero.text(), "Kg");
}

TEST_F(Gesti, UnaChiavettaInseritaDopoSiVedeAprendoLElenco)
{
    auto& combo = static_cast<QComboBox&>(widget(controlli->Drive1));
    controlli->Drive1.refresh();
    const QByteArray casa = qgetenv("HOME");
    const auto trovata = [&combo] { return combo.findText(QStringLiteral("/chiavetta")) >= 0; };
    qputenv("HOME", "/chiavetta");
    EXPECT_FALSE(trovata());
    combo.showPopup();
    EXPECT_TRUE(trovata());
    combo.hidePopup();
    qputenv("HOME", casa);
}

TEST_F(Gesti, IlMessaggioSiMostraESiRispondeColPulsante)
{
    QString testo;
    desktop.hooks.box = [&](QMessageBox& finestra, const MessageBox&) {
        testo = finestra.text();
        EXPECT_TRUE(finestra.isVisible());
        QTest::mouseClick(finestra.button(QMessageBox::No), Qt::LeftButton);
    };
    EXPECT_FALSE(desktop.ask("Vuoi <b>chiudere</b> ?", "Bravona"));
    EXPECT_EQ(testo, QStringLiteral("Vuoi <b>chiudere</b> ?"));
}

TEST_F(Gesti, ITastiDiUnaLungaAttesaNonContano)
{
    controlli->txtLinea.setFocus();
    for (const bool lunga : {true, false}) {
        desktop.setPointer(Pointer::wait);
        QTest::qSleep(lunga ? 550 : 0);
        QCoreApplication::postEvent(&fuoco(), new QKeyEvent(QEvent::KeyPress, Qt::Key_7, {}, QStringLiteral("7")));
        desktop.setPointer(Pointer::normal);
        QTest::qWait(1);
        EXPECT_EQ(controlli->txtLinea.text() == "7", !lunga);
    }
}

TEST_F(Gesti, UnErroreNonPresoSiMostraEIlProgrammaContinua)
{
    std::string titolo;
    desktop.hooks.box = [&](QMessageBox& finestra, const MessageBox& box) {
        titolo = box.title;
        QTest::mouseClick(finestra.defaultButton(), Qt::LeftButton);
    };
    controlli->cmdPredefinito.onClick = [] { throw Errore(3021, "Nessun record corrente"); };
    clic(controlli->cmdPredefinito);
    EXPECT_EQ(titolo, "Errore - Bravona");
    EXPECT_FALSE(desktop.ended());
}

TEST_F(Gesti, LaFinestraModaleSiChiudeEIlPostoSiRicorda)
{
    auto& modale = static_cast<FormaDocumento&>(desktop.screens().adopt(std::make_unique<FormaDocumento>(desktop)));
    bool bloccata = false;
    desktop.setModalPump([&](const std::function<bool()>& done) {
        QTest::qWait(5);
        segna(controlli->cmdPredefinito, "ok");
        clic(controlli->cmdPredefinito);
        bloccata = registro.empty();
        desktop.windowOf(modale)->shell()->resize(1000, 700);
        desktop.windowOf(modale)->shell()->close();
        EXPECT_TRUE(done());
    });
    modale.showModal();
    EXPECT_TRUE(bloccata);
    EXPECT_EQ(desktop.places().place(QStringLiteral("frmDocumento.finestra"))->rect.size(), QSize(1000, 700));
    EXPECT_EQ(desktop.front(), controlli);
}

TEST_F(Gesti, CentomilaRigheNonCostanoNulla)
{
    std::vector<ListRow> righe(100000);
    for (std::size_t i = 0; i < righe.size(); ++i) {
        righe[i].text = "Cliente " + std::to_string(i);
        righe[i].key = "x" + std::to_string(i);
    }
    QElapsedTimer tempo;
    tempo.start();
    controlli->lvwElenco.clear();
    controlli->lvwElenco.append(std::move(righe));
    controlli->lvwElenco.ensureVisible(99999);
    widget(controlli->lvwElenco).grab();
    EXPECT_LT(tempo.elapsed(), 3000);
    EXPECT_EQ(static_cast<QTreeView&>(widget(controlli->lvwElenco)).model()->rowCount(), 100000);
}

}  // namespace
}  // namespace bravona
