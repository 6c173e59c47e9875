#include "platform/preview/frmAnteprima.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "platform/text/Text.h"
#include "platform/values/Numeri.h"
#include "platform/windowing/Desktop.h"

namespace bravona {

namespace {

constexpr std::array percentuali{50, 75, 100, 125, 150, 200, 300};
constexpr std::size_t nomeBreve = 24;  // characters of a file name beside the commands

// The folder of a path, its separator included.
std::string_view Cartella(std::string_view percorso)
{
    const std::size_t separatore = percorso.find_last_of("/\\");
    return percorso.substr(0, separatore == std::string_view::npos ? 0 : separatore + 1);
}

}  // namespace

frmAnteprima::frmAnteprima(Desktop& desktop, const std::string& title, Pages pages, std::string suggestedName)
    : Form(desktop, "frmAnteprima", title, WindowStyle::child),
      suggestedName_(std::move(suggestedName))
{
    countsAsWindow = false;
    pvwPagine.setPages(std::make_shared<const Pages>(std::move(pages)));
    cmbZoom.addItem("Larghezza pagina", PageView::fitWidth);
    cmbZoom.addItem("Pagina intera", PageView::fitPage);
    for (const int percentuale : percentuali) {
        cmbZoom.addItem(std::to_string(percentuale) + " %", percentuale);
    }
    cmbZoom.width = 16;
    lblStato.style = TextStyle::hint;
    txtPagina.align = Align::right;
    txtPagina.setAccessibleName("Pagina");
    pvwPagine.setAccessibleName("Pagine");

    pvwPagine.onChange = [this] { MostraPagina(); };
    cmdPrima.onClick = [this] { pvwPagine.setPage(0); };
    cmdPrecedente.onClick = [this] { pvwPagine.setPage(pvwPagine.page() - 1); };
    cmdSuccessiva.onClick = [this] { pvwPagine.setPage(pvwPagine.page() + 1); };
    cmdUltima.onClick = [this] { pvwPagine.setPage(numeroPagine() - 1); };
    txtPagina.onKeyPress = [](char32_t& carattere) {
        if (carattere >= U' ' && (carattere < U'0' || carattere > U'9')) {
            carattere = 0;
        }
    };
    txtPagina.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::enter) {
            VaiAPaginaScritta();
            evento.drop();
        }
    };
    txtPagina.onLostFocus = [this] { VaiAPaginaScritta(); };
    cmbZoom.onClick = [this] {
        if (cmbZoom.listIndex() >= 0) {
            pvwPagine.setZoom(cmbZoom.itemData());
        }
    };
    txtCerca.onChange = [this] { Cerca(); };
    txtCerca.onKeyDown = [this](KeyEvent& evento) {
        if (evento.key == Key::enter) {
            CercaSuccessiva();
            evento.drop();
        }
    };
    cmdStampa.onClick = [this] { Stampa(); };
    cmdPdf.onClick = [this] { SalvaPdf(); };
    cmdChiudi.onClick = [this] { unload(); };
    cmdStampa.setToolTip("Ctrl+P");
    txtCerca.setToolTip("Ctrl+F; F3 cerca ancora");
    disponi();
    setCancelButton(&cmdChiudi);
}

void frmAnteprima::disponi()
{
    add("cmdPrima", cmdPrima);
    add("cmdPrecedente", cmdPrecedente);
    add("txtPagina", txtPagina);
    add("lblDi", lblDi);
    add("cmdSuccessiva", cmdSuccessiva);
    add("cmdUltima", cmdUltima);
    add("cmbZoom", cmbZoom);
    add("pvwPagine", pvwPagine);
    add("txtCerca", txtCerca);
    add("lblStato", lblStato);
    add("cmdStampa", cmdStampa);
    add("cmdPdf", cmdPdf);
    add("cmdChiudi", cmdChiudi);
    using namespace layout;
    setLayout(column({
        row({of(cmdPrima), of(cmdPrecedente), line("Pa&gina", of(txtPagina)), of(lblDi), of(cmdSuccessiva),
             of(cmdUltima), line("&Zoom", of(cmbZoom)), stretch()}),
        grow(of(pvwPagine)),
        row({line("Cerc&a", of(txtCerca)), of(lblStato), stretch(), of(cmdStampa), of(cmdPdf), of(cmdChiudi)}),
    }));
}

void frmAnteprima::onLoad()
{
    lblDi.setCaption("di " + std::to_string(numeroPagine()));
    MostraPagina();
    pvwPagine.setFocus();
}

int frmAnteprima::numeroPagine() const
{
    return static_cast<int>(pages().pages.size());
}

void frmAnteprima::MostraPagina()
{
    const int pagina = pvwPagine.page();
    const int ultima = numeroPagine() - 1;
    txtPagina.setText(std::to_string(ultima < 0 ? 0 : pagina + 1));
    if (!cmbZoom.selectByData(pvwPagine.zoom())) {
        cmbZoom.setText(std::to_string(pvwPagine.zoom()) + " %");  // reached by the wheel
    }
    // A button that is about to grey out hands the focus on.
    const Control* fuoco = focusedControl();
    if ((pagina <= 0 && (fuoco == &cmdPrima || fuoco == &cmdPrecedente)) ||
        (pagina >= ultima && (fuoco == &cmdUltima || fuoco == &cmdSuccessiva))) {
        pvwPagine.setFocus();
    }
    cmdPrima.setEnabled(pagina > 0);
    cmdPrecedente.setEnabled(pagina > 0);
    cmdSuccessiva.setEnabled(pagina < ultima);
    cmdUltima.setEnabled(pagina < ultima);
    Cerca();
}

void frmAnteprima::VaiAPaginaScritta()
{
    const double scritta = leadingNumber(txtPagina.text());
    if (scritta >= 1) {
        pvwPagine.setPage(static_cast<int>(std::min(scritta, static_cast<double>(numeroPagine()))) - 1);
    }
    MostraPagina();
}

void frmAnteprima::CambiaZoom(int passi)
{
    const int attuale = pvwPagine.zoom() > 0 ? pvwPagine.zoom() : 100;
    auto scelta = std::lower_bound(percentuali.begin(), percentuali.end(), attuale);
    if (passi > 0) {
        scelta = std::upper_bound(percentuali.begin(), percentuali.end(), attuale);
    } else if (scelta != percentuali.begin()) {
        --scelta;
    }
    if (scelta != percentuali.end()) {
        pvwPagine.setZoom(*scelta);
    }
}

void frmAnteprima::Cerca()
{
    const std::string testo = trim(txtCerca.text());
    pvwPagine.setSearch(testo);
    const auto& tutte = pages().pages;
    const bool presente =
        testo.empty() || (!tutte.empty() && containsText(tutte[static_cast<std::size_t>(pvwPagine.page())], testo));
    lblStato.setCaption(presente ? std::string() : "non in questa pagina");
}

void frmAnteprima::CercaSuccessiva()
{
    const std::string testo = trim(txtCerca.text());
    if (testo.empty()) {
        return;
    }
    const auto& tutte = pages().pages;
    for (std::size_t passo = 1; passo <= tutte.size(); ++passo) {
        const std::size_t pagina = (static_cast<std::size_t>(pvwPagine.page()) + passo) % tutte.size();
        if (containsText(tutte[pagina], testo)) {
            pvwPagine.setPage(static_cast<int>(pagina));
            return;
        }
    }
    lblStato.setCaption("Testo non trovato");
}

void frmAnteprima::Stampa()
{
    desktop().printPages(pages(), caption());
}

void frmAnteprima::SalvaPdf()
{
    const FileDialog finestra{"Salva come PDF", {}, "Documento PDF (*.pdf)|*.pdf"};
    std::optional<std::string> percorso = desktop().saveFile(finestra, suggestedName_ + ".pdf");
    if (!percorso || percorso->empty()) {
        return;
    }
    if (lower(right(*percorso, 4)) != ".pdf") {
        *percorso += ".pdf";
        // The dialog has asked only about the name as it was typed.
        std::error_code ignorato;
        if (std::filesystem::exists(*percorso, ignorato) &&
            !desktop().askBeforeLosing("Il file \"" + *percorso + "\" esiste già. Sostituirlo?", "Salva come PDF")) {
            return;
        }
    }
    try {
        desktop().exportPdf(pages(), *percorso, suggestedName_);
    } catch (const Errore& errore) {
        if (errore.numero() != interrotto) {
            throw;
        }
        lblStato.setCaption("Salvataggio interrotto");
        return;
    }
    const std::string file = percorso->substr(Cartella(*percorso).size());
    lblStato.setCaption("Salvato: " + (length(file) > nomeBreve ? left(file, nomeBreve) + "…" : file));
}

void frmAnteprima::onKeyDown(KeyEvent& event)
{
    const bool nelTesto =
        focusedControl() == &txtPagina || focusedControl() == &txtCerca || focusedControl() == &cmbZoom;
    const bool scorre = focusedControl() == &pvwPagine && pvwPagine.zoom() != PageView::fitPage;
    const auto esegui = [&event](const auto& comando) {
        event.drop();
        comando();
    };
    if (event.ctrl && event.key == Key::character) {
        switch (event.character) {
        case U'p':
        case U'P':
            esegui([this] { Stampa(); });
            break;
        case U's':
        case U'S':
            esegui([this] { SalvaPdf(); });
            break;
        case U'f':
        case U'F':
            esegui([this] { txtCerca.setFocus(); });
            break;
        case U'+':
            esegui([this] { CambiaZoom(1); });
            break;
        case U'-':
            esegui([this] { CambiaZoom(-1); });
            break;
        default:
            break;
        }
        return;
    }
    switch (event.key) {
    case Key::f3:
        esegui([this] { CercaSuccessiva(); });
        break;
    case Key::pageDown:
        // A page larger than the window is scrolled by its view, which turns it at its end.
        if (!scorre || event.ctrl) {
            esegui([this] { pvwPagine.setPage(pvwPagine.page() + 1); });
        }
        break;
    case Key::pageUp:
        if (!scorre || event.ctrl) {
            esegui([this] { pvwPagine.setPage(pvwPagine.page() - 1); });
        }
        break;
    case Key::home:
        if (!nelTesto) {
            esegui([this] { pvwPagine.setPage(0); });
        }
        break;
    case Key::end:
        if (!nelTesto) {
            esegui([this] { pvwPagine.setPage(numeroPagine() - 1); });
        }
        break;
    default:
        break;
    }
}

void mostraAnteprima(Desktop& desktop, const std::string& title, Pages pages, const std::string& suggestedName,
                     bool modal)
{
    Form& anteprima =
        desktop.screens().adopt(std::make_unique<frmAnteprima>(desktop, title, std::move(pages), suggestedName));
    if (modal) {
        anteprima.showModal();
    } else {
        anteprima.show();
    }
}

std::string nomeFile(const std::vector<std::string>& parts)
{
    constexpr std::size_t lunghezzaMassima = 120;
    std::string nome;
    for (const std::string& part : parts) {
        std::string pulita;
        for (const char c : part) {
            const bool rifiutato =
                static_cast<unsigned char>(c) < ' ' || std::string_view("\\/:*?\"<>|").find(c) != std::string::npos;
            pulita += rifiutato ? '-' : c;
        }
        pulita = trim(pulita);
        if (!pulita.empty()) {
            nome += (nome.empty() ? "" : " ") + pulita;
        }
    }
    nome = trim(left(nome, lunghezzaMassima));
    while (!nome.empty() && nome.back() == '.') {
        nome.pop_back();
    }
    return nome;
}

}  // namespace bravona
