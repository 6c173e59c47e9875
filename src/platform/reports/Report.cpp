#include "platform/reports/Report.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

#include "platform/text/Text.h"
#include "platform/values/Errore.h"
#include "platform/values/Numeri.h"

namespace bravona {

namespace {

constexpr std::uint32_t unknownName = 5;
constexpr Colour lightGround = rgb(244, 244, 244);
constexpr std::string_view amountPattern = "#,##0.00";

// A section ready to print: the place of each field's column in the data, looked up once.
struct BoundSection {
    const ReportSection* section = nullptr;
    std::vector<std::size_t> columns;  // by control; unused for others than fields

    void bind(Recordset& data)
    {
        if (!columns.empty() || section == nullptr) {
            return;
        }
        const auto& known = data.columns();
        for (const ReportControl& control : section->controls) {
            std::size_t place = 0;
            if (control.kind == ReportControl::Kind::field) {
                while (place < known.size() && !equalFolded(known[place].name, control.column)) {
                    ++place;
                }
                if (place == known.size()) {
                    throw Errore(3265, "Colonna sconosciuta: " + control.column);
                }
            }
            columns.push_back(place);
        }
    }
};

class Composer {
public:
    Composer(const Report& report, Recordset& data, Date today) : report_(report), data_(data), today_(today.text())
    {
        if (report.landscape) {
            std::swap(pages_.width, pages_.height);
        }
        header_.section = report.find(report.headerSection);
        detail_.section = report.find(report.detailSection);
        footer_.section = report.find(report.footerSection);
        if (report.style == Report::Style::list) {
            measureList();
        }
    }

    [[nodiscard]] std::size_t pageCount() const { return total_; }
    [[nodiscard]] const Pages& sheet() const { return pages_; }

    Pages compose()
    {
        if (report_.style == Report::Style::grouped) {
            grouped();
        } else {
            for (std::size_t sheet = 0; sheet < total_; ++sheet) {
                pages_.pages.push_back(listPage(sheet));
            }
            if (rows_ > 0) {
                data_.moveFirst();
            }
        }
        return std::move(pages_);
    }

    // One page of a list, from 0.
    Page listPage(std::size_t sheet)
    {
        Page page;
        page_ = sheet + 1;
        const std::size_t first = sheet * perPage_;
        const std::size_t last = std::min(rows_, first + perPage_);
        if (first < last) {
            data_.moveTo(first);
        }
        // Header and footer stand outside the rows; a field there shows the page's first row.
        Recordset* current = first < last ? &data_ : nullptr;
        int y = report_.marginTop;
        y += print(page, header_, current, y, -1);
        print(page, footer_, current, pages_.height - report_.marginBottom - height(footer_), -1);
        for (std::size_t row = first; row < last; ++row) {
            data_.moveTo(row);
            y += print(page, detail_, &data_, y, page.detailRows++);
        }
        return page;
    }

    // Finds the columns of every section, so that one which the data has not is told before the first page.
    void bind()
    {
        for (BoundSection* section : {&header_, &detail_, &footer_}) {
            section->bind(data_);
        }
    }

private:
    void grouped()
    {
        total_ = data_.recordCount();
        if (total_ == 0) {
            return;
        }
        for (data_.moveFirst(); !data_.eof(); data_.moveNext()) {
            Page page;
            ++page_;
            int y = report_.marginTop;
            y += print(page, header_, &data_, y, -1);
            if (detail_.section != nullptr) {
                Recordset& rows = data_.chapter(report_.chapter);
                page.primitives.reserve(page.primitives.size() +
                                        rows.recordCount() * (detail_.section->controls.size() + 1));
                if (rows.recordCount() > 0) {
                    for (rows.moveFirst(); !rows.eof(); rows.moveNext()) {
                        y += print(page, detail_, &rows, y, page.detailRows++);
                    }
                }
            }
            print(page, footer_, &data_, y, -1);
            pages_.pages.push_back(std::move(page));
        }
        data_.moveFirst();
    }

    void measureList()
    {
        const int rowHeight = height(detail_);
        const int room = pages_.height - report_.marginTop - report_.marginBottom - height(header_) - height(footer_);
        rows_ = rowHeight > 0 ? data_.recordCount() : 0;
        perPage_ = static_cast<std::size_t>(std::max(1, rowHeight > 0 ? room / rowHeight : 1));
        total_ = std::max<std::size_t>(1, (rows_ + perPage_ - 1) / perPage_);
    }

    static int height(const BoundSection& bound) { return bound.section == nullptr ? 0 : bound.section->height; }

    // Paints a section at a height of the sheet; the height that it takes.
    int print(Page& page, BoundSection& bound, Recordset* data, int y, int detailRow)
    {
        if (bound.section == nullptr) {
            return 0;
        }
        if (data != nullptr) {
            bound.bind(*data);
        }
        const int x = report_.marginLeft;
        if (bound.section->alternate && detailRow % 2 == 1) {
            BoxPrimitive ground;
            ground.x = x;
            ground.y = y;
            ground.width = pages_.width - report_.marginLeft - report_.marginRight;
            ground.height = bound.section->height;
            ground.lineWidth = 0;
            ground.filled = true;
            ground.fill = lightGround;
            page.primitives.emplace_back(ground);
        }
        for (std::size_t i = 0; i < bound.section->controls.size(); ++i) {
            const ReportControl& control = bound.section->controls[i];
            switch (control.kind) {
            case ReportControl::Kind::box:
                if (control.visible) {
                    ground(page, control, x, y);
                }
                break;
            case ReportControl::Kind::line:
                if (control.visible) {
                    page.primitives.emplace_back(
                        LinePrimitive{x + control.left, y + control.top, x + control.left + control.width,
                                      y + control.top + control.height, control.lineColour, control.lineWidth});
                }
                break;
            case ReportControl::Kind::image:
                image(page, control, x, y);
                break;
            case ReportControl::Kind::label:
                text(page, control, stands(control, data) ? resolve(control.caption) : std::string(), x, y, detailRow);
                break;
            case ReportControl::Kind::field:
                text(page, control, data == nullptr ? std::string() : value(control, (*data)[bound.columns[i]]), x, y,
                     detailRow);
                break;
            }
        }
        return bound.section->height;
    }

    static void ground(Page& page, const ReportControl& control, int x, int y)
    {
        BoxPrimitive box;
        box.x = x + control.left;
        box.y = y + control.top;
        box.width = control.width;
        box.height = control.height;
        box.line = control.lineColour;
        box.lineWidth = control.border || control.kind == ReportControl::Kind::box ? control.lineWidth : 0;
        box.filled = control.filled;
        box.fill = control.fill;
        box.radius = control.radius;
        page.primitives.emplace_back(box);
    }

    static void image(Page& page, const ReportControl& control, int x, int y)
    {
        if (!control.visible || control.path.empty()) {
            hide(page, control, {}, control.name, -1);
            return;
        }
        page.primitives.emplace_back(ImagePrimitive{x + control.left, y + control.top, control.width, control.height,
                                                    control.path, control.name});
    }

    static void hide(Page& page, const ReportControl& control, const std::string& text, const std::string& source,
                     int row)
    {
        page.hidden.push_back({text, source, control.name, row});
        if (!control.alias.empty()) {
            page.hidden.push_back({text, source, control.alias, row});
        }
    }

    static void text(Page& page, const ReportControl& control, const std::string& full, int x, int y, int detailRow)
    {
        const std::string& source = control.kind == ReportControl::Kind::field ? control.column : control.name;
        if (!control.visible) {
            hide(page, control, full, source, detailRow);
            return;
        }
        if (control.filled || control.border) {
            ground(page, control, x, y);
        }
        TextPrimitive line;
        line.x = x + control.left;
        line.y = y + control.top;
        line.width = control.width;
        line.height = control.height;
        line.points = control.points;
        if (!full.empty()) {
            if (control.minPoints > 0 && control.minPoints < control.points) {
                line.points = smaller(control, full);
            }
            line.text = fitText(full, control.width, line.points, control.bold);
        }
        line.bold = control.bold;
        line.italic = control.italic;
        line.symbol = control.symbol;
        line.align = control.align;
        line.colour = control.colour;
        line.source = source;
        line.control = control.name;
        line.detail = detailRow >= 0;
        line.detailRow = detailRow;
        page.primitives.emplace_back(std::move(line));
    }

    // The largest size, in twentieths of a point, between the control's own and its smallest at which the text fits.
    static double smaller(const ReportControl& control, const std::string& full)
    {
        const int needed = textWidth(full, control.points, control.bold);
        if (needed <= control.width) {
            return control.points;
        }
        const double fitting = std::floor(control.points * control.width / needed * 20.0) / 20.0;
        return std::max(fitting, control.minPoints);
    }

    static bool stands(const ReportControl& label, Recordset* data)
    {
        return label.onlyWith.empty() || data == nullptr || !(*data)[label.onlyWith].text().empty();
    }

    static std::string value(const ReportControl& control, const Field& field)
    {
        const Value& value = field.value();
        if (!control.pattern.empty()) {
            return format(value, control.pattern);
        }
        if (std::holds_alternative<Currency>(value.variant())) {
            return format(value, amountPattern);
        }
        return value.text();
    }

    std::string resolve(const std::string& caption) const
    {
        if (caption.find('%') == std::string::npos) {
            return caption;
        }
        std::string result = replaceAll(caption, "%p", std::to_string(page_));
        result = replaceAll(result, "%P", std::to_string(total_));
        return replaceAll(result, "%D", today_);
    }

    const Report& report_;
    Recordset& data_;
    std::string today_;
    BoundSection header_, detail_, footer_;
    Pages pages_;
    std::size_t page_ = 0;   // from 1, the one being laid out
    std::size_t total_ = 0;  // pages
    std::size_t rows_ = 0;   // of a list
    std::size_t perPage_ = 1;
};

}  // namespace

ReportControl* ReportSection::find(std::string_view control)
{
    for (ReportControl& candidate : controls) {
        if (equalFolded(candidate.name, control) ||
            (!candidate.alias.empty() && equalFolded(candidate.alias, control))) {
            return &candidate;
        }
    }
    return nullptr;
}

ReportControl& ReportSection::operator[](std::string_view control)
{
    if (ReportControl* found = find(control)) {
        return *found;
    }
    throw Errore(unknownName, "Controllo sconosciuto: " + std::string(control));
}

const ReportSection* Report::find(std::string_view section) const
{
    const auto found = std::find_if(sections.begin(), sections.end(), [&](const ReportSection& candidate) {
        return equalFolded(candidate.name, section);
    });
    return found == sections.end() ? nullptr : &*found;
}

ReportSection& Report::operator[](std::string_view section)
{
    if (const ReportSection* found = find(section)) {
        return sections[static_cast<std::size_t>(found - sections.data())];
    }
    throw Errore(unknownName, "Sezione sconosciuta: " + std::string(section));
}

Pages componi(const Report& report, Recordset& data, Date today)
{
    return Composer(report, data, today).compose();
}

Pages componiSuRichiesta(Report report, Recordset data, Date today)
{
    struct Source {
        Report report;
        Recordset data;
        Composer composer;
        Source(Report&& design, Recordset&& rows, Date day)
            : report(std::move(design)),
              data(std::move(rows)),
              composer(report, data, day)
        {}
    };
    const auto source = std::make_shared<Source>(std::move(report), std::move(data), today);
    source->composer.bind();
    Pages pages = source->composer.sheet();
    pages.pages =
        PageList(source->composer.pageCount(), [source](std::size_t page) { return source->composer.listPage(page); });
    return pages;
}

}  // namespace bravona
