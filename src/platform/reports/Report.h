#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/reports/Pages.h"
#include "platform/store/Recordset.h"
#include "platform/values/Date.h"

namespace bravona {

// One thing in a section: a fixed label, a field bound to a column, an image, a box or a line. Places in twips from the
// section's upper left corner inside the margins; a control may reach beyond its section. Page tokens in a label's
// caption: %p the page, %P their number, %D the date.
struct ReportControl {
    enum class Kind { label, field, image, box, line };
    Kind kind = Kind::label;
    std::string name;
    std::string alias;                             // a second name of the same control
    int left = 0, top = 0, width = 0, height = 0;  // of a line: the vector to its other end
    std::string caption;                           // label
    std::string onlyWith;                          // label: the column without whose text it is not printed either
    std::string column;                            // field
    std::string path;                              // image; empty: nothing is painted
    double points = 9;
    double minPoints =
        0;  // a text too long is set smaller, down to this size, before it ends in an ellipsis; 0: never smaller
    bool bold = false;
    bool italic = false;
    bool symbol = false;
    Align align = Align::left;
    Colour colour = 0;
    bool visible = true;
    std::string pattern;  // field: "#,##0.00"; empty: as it is (currency columns: "#,##0.00")
    bool filled = false;  // background
    Colour fill = 0;
    bool border = false;
    Colour lineColour = 0;
    int lineWidth = 10;
    int radius = 0;
};

struct ReportSection {
    std::string name;
    int height = 0;
    std::vector<ReportControl> controls;
    bool alternate = false;                               // every second detail row on a light ground
    ReportControl& operator[](std::string_view control);  // Errore 5 for an unknown name
    [[nodiscard]] ReportControl* find(std::string_view control);
};

// A design. Grouped reports print one parent record a page: header, the chapter's rows, footer right behind them. List
// reports print the rows of the set one under another between page header and page footer (at the foot of the sheet),
// over as many pages as they need; with no row they print one page.
struct Report {
    enum class Style { grouped, list };
    Style style = Style::list;
    std::string name;         // "arptDDTvb"
    std::string windowTitle;  // of its preview
    int marginLeft = 567, marginTop = 567, marginRight = 567, marginBottom = 567;
    bool landscape = false;
    std::string chapter = "Child";        // of grouped reports
    std::vector<ReportSection> sections;  // "H", "D", "F" … in printing order
    std::string headerSection = "H";
    std::string detailSection = "D";
    std::string footerSection = "F";
    ReportSection& operator[](std::string_view section);  // Errore 5 for an unknown name
    [[nodiscard]] const ReportSection* find(std::string_view section) const;
};

// Lays a report out into pages. `today` stands for %D, dd/mm/yyyy. Errore 3265 for a column that the data has not.
Pages componi(const Report& report, Recordset& data, Date today);
// The same for a list of any length: takes the data over and lays a page out when it is asked for. The rows have one
// height, so the number of pages is known at once.
Pages componiSuRichiesta(Report report, Recordset data, Date today);

// Width in twips of a text in the report face at a size, rounded up; painted without kerning it is exact.
int textWidth(std::string_view text, double points, bool bold);
// The text on one line: breaks become blanks, and what is wider than `width` ends in an ellipsis.
std::string fitText(std::string_view text, int width, double points, bool bold);

}  // namespace bravona
