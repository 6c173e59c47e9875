#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

#include "FormeDimostrative.h"
#include "journey/OffscreenScreen.h"
#include "platform/preview/frmAnteprima.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/QtDesktop.h"

// Pictures of the demonstration windows, light and dark, at one and two pixels a unit, for a person to look at; they
// stand in the folder `galleria` of the build. The tests see that each is drawn and that no text of a window is cut.

namespace bravona {
namespace {

void salva(QWidget& widget, const QString& nome, double rapporto)
{
    QImage image(widget.size() * rapporto, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(rapporto);
    image.fill(Qt::transparent);
    widget.render(&image);
    const QDir cartella(QApplication::applicationDirPath() + QStringLiteral("/../galleria"));
    ASSERT_TRUE(cartella.mkpath(QStringLiteral(".")));
    ASSERT_TRUE(image.save(cartella.filePath(nome + QStringLiteral(".png"))));
}

class Galleria : public testing::TestWithParam<bool> {
protected:
    void SetUp() override
    {
        prima_ = QApplication::palette();
        QApplication::setPalette(GetParam() ? darkPalette() : QApplication::style()->standardPalette());
    }
    void TearDown() override { QApplication::setPalette(prima_); }

    void mostra(Form& form, const char* nome, double rapporto = 1)
    {
        QTest::qWait(30);
        const FormWindow* window = desktop.windowOf(form);
        ASSERT_NE(window, nullptr);
        QWidget* top =
            window->main() != nullptr || form.style() != WindowStyle::child ? window->topLevel() : window->shell();
        salva(*top, QString::fromLatin1(nome) + (GetParam() ? "-scura" : "-chiara") + (rapporto > 1 ? "-200" : ""),
              rapporto);
    }

    QtDesktop desktop;

private:
    QPalette prima_;
};

TEST_P(Galleria, FinestraPrincipaleConDocumento)
{
    auto& principale =
        static_cast<FormaPrincipale&>(desktop.screens().adopt(std::make_unique<FormaPrincipale>(desktop)));
    principale.show();
    auto& documento = static_cast<FormaDocumento&>(desktop.screens().adopt(std::make_unique<FormaDocumento>(desktop)));
    documento.show();
    mostra(principale, "principale");
    mostra(documento, "documento-intestazione");
    documento.SSTabDocumento.setTab(1);
    documento.txtCodiceArticolo.setFocus();
    mostra(documento, "documento-corpo");
    mostra(documento, "documento-corpo", 2);
    documento.SSTabDocumento.setTab(2);
    documento.txtNote.setFocus();
    mostra(documento, "documento-spedizione");
    documento.SSTabDocumento.setTab(3);
    documento.Griglia.setCurrent(2, 2);
    documento.Griglia.placeOver(documento.casella[0], 2, 2);
    documento.casella[0].setText("80,00");
    documento.casella[0].setVisible(true);
    documento.casella[0].setFocus();
    mostra(documento, "documento-scadenze");
    documento.casella[0].setVisible(false);
    documento.Griglia.placeOver(documento.DTPicker1, 3, 1);
    documento.DTPicker1.setDate(*Date::fromYmd(2004, 3, 31));
    documento.DTPicker1.setVisible(true);
    documento.DTPicker1.setFocus();
    mostra(documento, "documento-data");
}

TEST_P(Galleria, TuttiIControlli)
{
    auto& controlli = static_cast<FormaControlli&>(desktop.screens().adopt(std::make_unique<FormaControlli>(desktop)));
    controlli.show();
    controlli.Drive1.refresh();
    controlli.Dir1.setPath("/usr");
    controlli.File1.setPath("/etc");
    controlli.lvwElenco.select(0);
    mostra(controlli, "controlli");
    mostra(controlli, "controlli", 2);
}

TEST_P(Galleria, AnteprimaEMessaggi)
{
    auto& anteprima = desktop.screens().adopt(
        std::make_unique<frmAnteprima>(desktop, "Bravona - Anteprima Fattura", paginaDimostrativa(), "Fattura 12"));
    anteprima.show();
    static_cast<frmAnteprima&>(anteprima).txtCerca.setText("numero 1");
    mostra(anteprima, "anteprima");
    desktop.hooks.box = [](QMessageBox& finestra, const MessageBox&) {
        QTest::qWait(20);
        salva(finestra, QStringLiteral("domanda") + (GetParam() ? "-scura" : "-chiara"), 1);
        QTest::mouseClick(finestra.button(QMessageBox::No), Qt::LeftButton);
    };
    EXPECT_FALSE(desktop.ask("Vuoi annullare la compilazione del documento ?", "Emissione documento"));
}

INSTANTIATE_TEST_SUITE_P(Tavolozze, Galleria, testing::Bool(),
                         [](const auto& caso) { return caso.param ? "Scura" : "Chiara"; });

}  // namespace
}  // namespace bravona
