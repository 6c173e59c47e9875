#pragma once

#include <memory>
#include <string>

#include "platform/reports/Pages.h"
#include "platform/windowing/Fields.h"
#include "platform/windowing/Form.h"
#include "platform/windowing/Lists.h"
#include "platform/windowing/Parts.h"

namespace bravona {

// The preview of a print: pages to read, search, print and save as PDF. Does not count as a loaded window; several can
// be open.
class frmAnteprima final : public Form {
public:
    // `suggestedName` is the file name offered for the PDF, without ".pdf".
    frmAnteprima(Desktop& desktop, const std::string& title, Pages pages, std::string suggestedName);

    [[nodiscard]] const Pages& pages() const { return *pvwPagine.pages(); }

    Button cmdPrima{"P&rima"}, cmdPrecedente{"Pr&ecedente"}, cmdSuccessiva{"S&uccessiva"}, cmdUltima{"U&ltima"};
    TextBox txtPagina{4};
    Label lblDi;
    ComboBox cmbZoom;
    TextBox txtCerca{18};
    PageView pvwPagine;
    Label lblStato;  // what the search or the saving came to
    Button cmdStampa{"&Stampa..."}, cmdPdf{"Salva come &PDF..."}, cmdChiudi{"&Chiudi"};

    void onLoad() override;
    void onKeyDown(KeyEvent& event) override;

private:
    void disponi();
    void MostraPagina();
    void VaiAPaginaScritta();
    void CambiaZoom(int passi);
    void Cerca();
    void CercaSuccessiva();
    void Stampa();
    void SalvaPdf();
    [[nodiscard]] int numeroPagine() const;

    std::string suggestedName_;
};

// Shows pages in a preview of their own. Modal, it returns when the preview has been closed; otherwise the preview
// belongs to the modal screen that asked for it, if there is one.
void mostraAnteprima(Desktop& desktop, const std::string& title, Pages pages, const std::string& suggestedName,
                     bool modal);

// A file name made of what is told, without the signs that a file system refuses; parts that are empty fall out.
std::string nomeFile(const std::vector<std::string>& parts);

}  // namespace bravona
