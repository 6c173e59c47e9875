#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "platform/clock/Clock.h"
#include "platform/files/Files.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/QtSettings.h"
#include "program/CartellaProgramma.h"
#include "program/Programma.h"

namespace {

// What is shipped stands beside the program, as installed and as built.
std::string cartellaFornita()
{
    return bravona::fromQt(
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/bravona")));
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication applicazione(argc, argv);
    QApplication::setApplicationName(QStringLiteral("bravona"));
    QApplication::setDesktopFileName(QStringLiteral("bravona"));
    // The dialogs of the toolkit speak as the program does, whatever the machine's language.
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    QTranslator traduzione;
    if (traduzione.load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&traduzione);
    }

    bravona::QtSettings impostazioni;
    bravona::SystemClock orologio;
    bravona::Files file;
    bravona::QtDesktop desktop(&impostazioni.store());
    desktop.setFiles(file);
    const std::string cartella = bravona::cartellaProgrammaUtente();
    desktop.guardStart([&] {
        bravona::preparaCartellaProgramma(file, cartella, cartellaFornita(),
                                          !impostazioni.get("Impostazioni", "PercorsoDB").empty());
    });
    if (desktop.ended()) {
        return desktop.exitStatus();
    }
    bravona::Programma programma({desktop, impostazioni, orologio, file, cartella});
    programma.avvia();
    const int stato = desktop.run();
    desktop.dropWindows();
    desktop.screens().clear();
    return stato;
}
