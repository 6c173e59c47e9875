#include <QApplication>
#include <QBuffer>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QStandardPaths>

#include "platform/qt/Binder.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/InputFilter.h"
#include "platform/qt/Menus.h"
#include "platform/qt/PagePainter.h"
#include "platform/qt/Pictures.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/Shells.h"
#include "platform/qt/Theme.h"
#include "platform/text/Text.h"

namespace bravona {

namespace {

constexpr std::uint32_t printerFault = 482;
constexpr double twipsPerInch = 1440;
constexpr double twipsPerPoint = 20;
constexpr int pdfResolution = 1440;  // one device unit a twip

QMessageBox::Icon iconOf(MsgIcon icon)
{
    switch (icon) {
    case MsgIcon::information:
        return QMessageBox::Information;
    case MsgIcon::question:
        return QMessageBox::Question;
    case MsgIcon::critical:
        return QMessageBox::Critical;
    case MsgIcon::exclamation:
        return QMessageBox::Warning;
    case MsgIcon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

void addButtons(QMessageBox& box, MsgButtons buttons, bool lastIsDefault)
{
    const auto add = [&box](QMessageBox::StandardButton button, const char* caption) {
        QPushButton* made = box.addButton(button);
        made->setText(QString::fromUtf8(caption));
        return made;
    };
    const auto offer = [&](QPushButton* first, QPushButton* last) {
        box.setDefaultButton(lastIsDefault ? last : first);
    };
    switch (buttons) {
    case MsgButtons::ok:
        box.setDefaultButton(add(QMessageBox::Ok, "OK"));
        break;
    case MsgButtons::okCancel:
        offer(add(QMessageBox::Ok, "OK"), add(QMessageBox::Cancel, "Annulla"));
        break;
    case MsgButtons::yesNo:
        offer(add(QMessageBox::Yes, "&Sì"), add(QMessageBox::No, "&No"));
        break;
    }
}

MsgAnswer answerOf(int button, MsgButtons buttons)
{
    switch (button) {
    case QMessageBox::Yes:
        return MsgAnswer::yes;
    case QMessageBox::No:
        return MsgAnswer::no;
    case QMessageBox::Cancel:
        return MsgAnswer::cancel;
    case QMessageBox::Ok:
        return MsgAnswer::ok;
    default:  // closed by its frame
        return buttons == MsgButtons::yesNo ? MsgAnswer::no
               : buttons == MsgButtons::ok  ? MsgAnswer::ok
                                            : MsgAnswer::cancel;
    }
}

// "Caption|*.ext|Caption|*.ext" as the toolkit has it.
QString filterOf(const std::string& filter)
{
    const QStringList parts = toQt(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString caption = parts[i];
        if (const auto bracket = caption.indexOf(QLatin1Char('(')); bracket > 0) {
            caption = caption.left(bracket).trimmed();
        }
        QString patterns = parts[i + 1];
        result.push_back(caption + QLatin1String(" (") + patterns.replace(QLatin1Char(';'), QLatin1Char(' ')) +
                         QLatin1Char(')'));
    }
    return result.join(QLatin1String(";;"));
}

std::optional<std::string> chosen(const QString& path)
{
    return path.isEmpty() ? std::nullopt : std::optional(fromQt(path));
}

// A place of another system is none here: the person's own folder instead.
QString startingFolder(const std::string& folder)
{
    const QString place = toQt(folder);
    return place.isEmpty() || QFileInfo(place).isDir() ? place : QDir::homePath();
}

QPageLayout sheetOf(const Pages& pages)
{
    const bool across = pages.width > pages.height;
    QSizeF sheet(pages.width / twipsPerPoint, pages.height / twipsPerPoint);
    if (across) {
        sheet.transpose();
    }
    return {QPageSize(sheet, QPageSize::Point, QString(), QPageSize::FuzzyMatch),
            across ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF()};
}

// Which pages, from 0, and where on the device's sheet.
struct PaintJob {
    std::size_t from = 0;
    std::size_t to = 0;  // behind the last
    QRectF area;
    QString title;
};

// False when the person stopped it. A page is let go before the next one is laid out.
bool paintAll(QPainter& painter, QPagedPaintDevice& device, const Pages& pages, const PaintJob& job, QWidget* over)
{
    constexpr int patience = 1500;  // milliseconds without a bar
    const auto count = static_cast<int>(job.to - job.from);
    QProgressDialog progress(QString(), QStringLiteral("&Interrompi"), 0, count, over);
    progress.setWindowTitle(job.title);
    progress.setWindowModality(Qt::ApplicationModal);
    progress.setMinimumDuration(patience);
    progress.setMinimumWidth(theme::pixels(360));
    for (int done = 0; done < count; ++done) {
        progress.setLabelText(QStringLiteral("Pagina %1 di %2").arg(done + 1).arg(count));
        progress.setValue(done);
        if (progress.wasCanceled()) {
            return false;
        }
        if (done > 0 && !device.newPage()) {
            throw Errore(printerFault, "Errore di stampa");
        }
        painter.save();
        pagePainter::fit(painter, pages, job.area);
        pagePainter::paint(painter, pages.pages[job.from + static_cast<std::size_t>(done)]);
        painter.restore();
    }
    progress.setValue(count);
    return true;
}

}  // namespace

MsgAnswer QtDesktop::doMessageBox(const MessageBox& box)
{
    QPointer<QMessageBox> window = new QMessageBox(frontWindow());
    window->setWindowTitle(toQt(box.title));
    window->setTextFormat(Qt::PlainText);
    window->setText(toQt(box.text));
    window->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    window->setIcon(iconOf(box.icon));
    // Lines break where the text breaks them, as long as there is room.
    if (auto* label = window->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        int widest = 0;
        for (const QString& line : window->text().split(QLatin1Char('\n'))) {
            widest = std::max(widest, label->fontMetrics().horizontalAdvance(line));
        }
        label->setMinimumWidth(std::min(widest + theme::unit(), theme::pixels(620)));
    }
    addButtons(*window, box.buttons, box.lastIsDefault);
    window->setWindowModality(window->parentWidget() != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    bool over = false;
    int button = 0;
    QObject::connect(window, &QMessageBox::finished, window, [&over, &button](int result) {
        over = true;
        button = result;
    });
    window->show();
    window->activateWindow();
    if (window->defaultButton() != nullptr) {
        window->defaultButton()->setFocus();
    }
    if (hooks.box) {
        hooks.box(*window, box);
    }
    waitFor([&over, &window] { return over || !window; });
    if (window) {
        window->hide();
        window->deleteLater();
    }
    focusLater();
    return answerOf(button, box.buttons);
}

void QtDesktop::popupMenu(Form& form, Menu& menu)
{
    popup_ = new QMenu(frontWindow());
    popupRecord_ = &menu;
    popup_->setAttribute(Qt::WA_DeleteOnClose);
    menus::fill(*popup_, menu, [this, &form](Menu& entry) { enter([&] { interaction().menu(form, entry); }); });
    QPoint place = QCursor::pos();
    if (filter_->lastByKey() && form.focusedControl() != nullptr) {
        if (const QWidget* widget = widgetOf(*form.focusedControl())) {
            place = widget->mapToGlobal(QPoint(widget->width() / 3, widget->height() / 3));
        }
    }
    popup_->popup(place);
}

std::optional<std::string> QtDesktop::openFile(const FileDialog& dialog)
{
    if (hooks.openFile) {
        return hooks.openFile(dialog);
    }
    return chosen(QFileDialog::getOpenFileName(frontWindow(), toQt(dialog.title), startingFolder(dialog.folder),
                                               filterOf(dialog.filter)));
}

std::optional<std::string> QtDesktop::saveFile(const FileDialog& dialog, const std::string& name)
{
    if (hooks.saveFile) {
        return hooks.saveFile(dialog, name);
    }
    QString folder = toQt(dialog.folder);
    if (folder.isEmpty()) {
        folder = places().folder(QStringLiteral("Documenti"));
    }
    if (folder.isEmpty()) {
        folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    }
    if (!QFileInfo(folder).isDir()) {
        folder = QDir::homePath();
    }
    const QString path = QFileDialog::getSaveFileName(frontWindow(), toQt(dialog.title), folder + "/" + toQt(name),
                                                      filterOf(dialog.filter));
    if (!path.isEmpty() && dialog.folder.empty()) {
        places().setFolder(QStringLiteral("Documenti"), QFileInfo(path).absolutePath());
    }
    return chosen(path);
}

std::optional<std::string> QtDesktop::chooseFolder(const std::string& title, const std::string& folder)
{
    if (hooks.chooseFolder) {
        return hooks.chooseFolder(title, folder);
    }
    return chosen(QFileDialog::getExistingDirectory(frontWindow(), toQt(title), toQt(folder)));
}

std::optional<Colour> QtDesktop::chooseColour(const std::string& title, Colour start)
{
    if (hooks.chooseColour) {
        return hooks.chooseColour(title, start);
    }
    const QColor colour = QColorDialog::getColor(toQt(start), frontWindow(), toQt(title));
    return colour.isValid() ? std::optional(fromQt(colour)) : std::nullopt;
}

bool QtDesktop::printPages(const Pages& pages, const std::string& title)
{
    if (hooks.print) {
        return hooks.print(pages, title);
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(toQt(title));
    printer.setFullPage(true);
    printer.setPageLayout(sheetOf(pages));
    printer.setFromTo(1, static_cast<int>(pages.pages.size()));
    QPrintDialog dialog(&printer, frontWindow());
    dialog.setWindowTitle(toQt(title));
    dialog.setOptions(QAbstractPrintDialog::PrintPageRange | QAbstractPrintDialog::PrintToFile |
                      QAbstractPrintDialog::PrintShowPageSize);
    dialog.setMinMax(1, std::max(1, static_cast<int>(pages.pages.size())));
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }
    printer.setFullPage(true);
    PaintJob job{0, pages.pages.size(), QRectF(printer.paperRect(QPrinter::DevicePixel)), toQt(title)};
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0 && job.to > 0) {
        const auto count = static_cast<int>(job.to);
        const int from = std::clamp(printer.fromPage(), 1, count);
        job.from = static_cast<std::size_t>(from - 1);
        job.to = static_cast<std::size_t>(std::clamp(printer.toPage(), from, count));
    }
    QPainter painter;
    if (!painter.begin(&printer)) {
        throw Errore(printerFault, "La stampante non risponde");
    }
    const bool whole = paintAll(painter, printer, pages, job, frontWindow());
    if (!whole) {
        printer.abort();
    }
    if (!painter.end() && whole) {
        throw Errore(printerFault, "Errore di stampa");
    }
    return whole;
}

void QtDesktop::exportPdf(const Pages& pages, const std::string& path, const std::string& title)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setTitle(toQt(title));
        writer.setCreator(QStringLiteral("Bravona"));
        writer.setResolution(pdfResolution);
        writer.setPageLayout(sheetOf(pages));
        QPainter painter;
        if (!painter.begin(&writer)) {
            throw Errore(printerFault, "Errore di stampa");
        }
        const PaintJob job{
            0, pages.pages.size(),
            QRectF(0, 0, pages.width * pdfResolution / twipsPerInch, pages.height * pdfResolution / twipsPerInch),
            toQt(title)};
        if (!paintAll(painter, writer, pages, job, frontWindow())) {
            throw Errore(interrotto, "Salvataggio interrotto");
        }
    }
    const QByteArray& bytes = buffer.data();
    files_->replace(path, Bytes(bytes.begin(), bytes.end()));
    if (hooks.exported) {
        hooks.exported(pages, path, title);
    }
}

std::optional<std::pair<int, int>> QtDesktop::pictureSize(const std::string& path)
{
    return pictureFileSize(path);
}

}  // namespace bravona
